// What differs between systems for a program in a console. All texts are UTF-8, also where a console has none of it.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace devhost::script {

// Lines end with "\n" alone on every system.
void PrepareConsole();

// What main was called with, without the program's name. Windows hands main another encoding, and is asked again.
std::vector<std::string> Arguments(int argc, char** argv);

// Prints to stdout.
void Print(std::string_view text);

// Prints the message to stderr, behind what was printed to stdout; false for the caller to return.
bool Complain(const std::string& message);

// The folder of the running program, with a separator behind it; "" where it is unknown.
std::string ProgramFolder();

// What the environment says for the name; "" for nothing.
std::string EnvironmentText(const char* name);

#if defined(_WIN32)
// The handle of the console behind a stream; null for a file or a pipe.
void* ConsoleOf(std::FILE* stream);
#endif

}  // namespace devhost::script
