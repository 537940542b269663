// What differs between systems for a program in a console.
#pragma once

#include <string>
#include <string_view>

namespace devhost::script {

// Lines end with "\n" alone on every system.
void PrepareConsole();

// Prints to stdout, at once.
void Print(std::string_view text);

// Prints the message to stderr, behind what was printed to stdout; false for the caller to return.
bool Complain(const std::string& message);

// The folder of the running program, with a separator behind it; "" where it is unknown.
std::string ProgramFolder();

}  // namespace devhost::script
