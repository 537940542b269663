#include "devhost/script/command_line.h"

#include <algorithm>
#include <string_view>

namespace devhost::script {

const char* const kUsage =
    "usage: talq [option...] script [argument...]\n"
    "       talq [option...] -e 'statements' [argument...]\n"
    "       talq [option...] -i\n"
    "       talq [option...] --list\n"
    "       talq [option...] --probe\n"
    "       talq --help [name]\n"
    "\n"
    "Runs a Talq script; its arguments are what its first statement, 'param', names. What it includes is looked for\n"
    "beside it, in the folders of TALQ_PATH (with ';' between them), and in examples beside this program.\n"
    "\n"
    "  -e 'statements'  run these statements\n"
    "  -i               run statements as they are entered\n"
    "  --list           show the module's version, methods and errors; with --no-module, what scripts have without it\n"
    "  --probe          show what this machine's OpenGL gives to the module: pixel formats, maker, limits\n"
    "  --module PATH    load this module (else: TalqOpenGL.dll beside the program)\n"
    "  --no-module      load no module\n"
    "  --module-arithmetic\n"
    "                   compute two numbers of one type with what the module exports\n"
    "  --check          look for what goes wrong in OpenGL without an error, and tell of it at the end: the line, the\n"
    "                   method, what to do\n"
    "  --trace-gl       print each OpenGL call of the module, behind the script's line, in order with what the script\n"
    "                   prints, to standard error (2> calls.txt keeps the calls in a file of their own)\n"
    "  --trace-gl=NAMES print these alone, as of 'glFrustum,glLight*'\n"
    "  --help           show this text\n"
    "  --help NAME      show the references' entry, as of TOpenGL::Sphere, Sphere, Print, include or OGL_NO_DC; the\n"
    "                   methods of a class\n"
    "\n"
    "The exit code is 0, 1 after an error, 2 when the command line is not understood, or 3 when --check found something\n"
    "in a script that ended without an error.\n";

namespace {

constexpr std::string_view kTraceOf = "--trace-gl=";

// Reads an option that stands alone; false for any other word.
bool ReadSwitch(std::string_view argument, CommandLine& commandLine) {
  if (argument == "--list") {
    commandLine.action = CommandLine::Action::List;
  } else if (argument == "--probe") {
    commandLine.action = CommandLine::Action::Probe;
  } else if (argument == "-i") {
    commandLine.action = CommandLine::Action::Interact;
  } else if (argument == "--no-module") {
    commandLine.usesModule = false;
  } else if (argument == "--module-arithmetic") {
    commandLine.moduleArithmetic = true;
  } else if (argument == "--check") {
    commandLine.checks = true;
  } else if (argument == "--trace-gl" || (argument.starts_with(kTraceOf) && argument != kTraceOf)) {
    commandLine.tracesGl = true;
    commandLine.tracedFunctions = argument.substr(std::min(argument.size(), kTraceOf.size()));
  } else {
    return false;
  }
  return true;
}

// The option that asks for an action without a script; null for other actions.
const char* LoneOption(CommandLine::Action action) {
  if (action == CommandLine::Action::List) return "--list";
  if (action == CommandLine::Action::Probe) return "--probe";
  return action == CommandLine::Action::Interact ? "-i" : nullptr;
}

// Whether the options go together; says in the message which do not.
bool Fits(const CommandLine& commandLine, std::string& message) {
  if (commandLine.checks && LoneOption(commandLine.action)) {
    message = "--check takes a script or -e";
    return false;
  }
  if (commandLine.usesModule) return true;
  if (commandLine.checks) message = "--check and --no-module exclude each other";
  if (commandLine.action == CommandLine::Action::Probe) message = "--probe and --no-module exclude each other";
  if (commandLine.moduleArithmetic) message = "--module-arithmetic and --no-module exclude each other";
  if (commandLine.tracesGl) message = "--trace-gl and --no-module exclude each other";
  return message.empty();
}

}  // namespace

bool ReadCommandLine(std::span<const std::string> arguments, CommandLine& commandLine, std::string& message) {
  using Action = CommandLine::Action;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    const bool isLast = i + 1 == arguments.size();
    if (argument == "--help" || argument == "-h") {
      commandLine.action = Action::Help;
      if (!isLast) commandLine.topic = arguments[i + 1];
      if (arguments.size() > i + 2) message = "--help takes one name";
      return message.empty();
    }
    if (ReadSwitch(argument, commandLine)) continue;
    if ((argument == "--module" || argument == "-e") && isLast) {
      message = std::string(argument) + (argument == "-e" ? " needs statements" : " needs a path");
      return false;
    }
    if (argument == "--module") {
      commandLine.module = arguments[++i];
      continue;
    }
    if (argument.size() > 1 && argument[0] == '-' && argument != "-e") {
      message = "unknown option " + std::string(argument);
      return false;
    }
    if (const char* option = LoneOption(commandLine.action)) {
      message = std::string(option) + " takes no script";
      return false;
    }
    if (argument == "-e") {
      commandLine.action = Action::RunText;
      ++i;
    }
    commandLine.script = arguments[i];
    commandLine.args = arguments.subspan(i + 1);
    return Fits(commandLine, message);
  }
  if (LoneOption(commandLine.action)) return Fits(commandLine, message);
  message = "no script is given";
  return false;
}

}  // namespace devhost::script
