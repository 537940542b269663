// What the program talq is asked to do.
#pragma once

#include <span>
#include <string>

namespace devhost::script {

struct CommandLine {
  enum class Action { Help, List, Probe, Interact, RunFile, RunText };

  Action action = Action::RunFile;
  std::string topic;                  // of --help; empty: the program itself
  std::string script;                 // the file's path, or the statements of -e
  std::span<const std::string> args;  // of the script
  std::string module;                 // path; empty: TalqOpenGL.dll beside the program
  bool usesModule = true;
  bool moduleArithmetic = false;
  bool checks = false;
  bool tracesGl = false;
  std::string tracedFunctions;  // names, with commas between; empty: all
};

extern const char* const kUsage;

// False with a one-line message when the arguments (without the program's name) make no command. The command refers to
// them.
bool ReadCommandLine(std::span<const std::string> arguments, CommandLine& commandLine, std::string& message);

}  // namespace devhost::script
