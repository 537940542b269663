#include "devhost/script/program.h"

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "devhost/classes/register_classes.h"
#include "devhost/data/files.h"
#include "devhost/runtime/help_command.h"
#include "devhost/runtime/runtime.h"
#include "devhost/script/call_position.h"
#include "devhost/script/command_line.h"
#include "devhost/script/console.h"
#include "devhost/script/help.h"
#include "devhost/script/module_list.h"
#include "devhost/script/parse.h"
#include "devhost/script/prompt.h"
#include "devhost/script/script.h"
#include "devhost/script/trace.h"

namespace devhost::script {
namespace {

constexpr int kExitFindings = 3;

// A script that cannot be read is told about where it is asked for, so the error is taken back.
bool ReadScript(const std::string& path, std::string& text) {
  if (ReadFile(path, text)) return true;
  ClearError();
  return false;
}

// The script's objects are gone when this returns.
bool RunScript(const std::string& text, const std::string& name, std::span<const std::string> arguments) {
  SyntaxError error;
  const std::unique_ptr<Program> program = Parse(text, name, ReadScript, error);
  if (!program) return Complain(Describe(error.at, "syntax error: " + error.message));
  std::vector<Variable> args(arguments.size());
  for (std::size_t i = 0; i < args.size(); ++i) AssignText(args[i], arguments[i]);
  Variable result;
  bool succeeded = false;
  {
    Script script(*program);
    succeeded = script.Run(result, args) || Complain(CurrentTrace().Report());
  }
  // An object may have raised an error at its end.
  if (succeeded && PendingError()) return Complain(CurrentTrace().Report());
  return succeeded;
}

// Returns the exit code.
int ShowHelp(const std::string& topic) {
  std::string text;
  std::string message;
  if (topic.empty()) {
    text = kUsage;
  } else if (!FindHelp(References(), topic, text, message)) {
    Complain("talq: " + message + "\n");
    return 2;
  }
  Print(text);
  return 0;
}

// Loads the module and sets it up as the options ask; null with an error raised.
const Module* PrepareModule(const CommandLine& commandLine) {
  const std::string path = commandLine.module.empty() ? ProgramFolder() + "TalqOpenGL.dll" : commandLine.module;
  const Module* module = LoadModule(path);
  if (!module) return nullptr;
  if (commandLine.moduleArithmetic && !UseArithmeticOf(*module)) return nullptr;
  if (commandLine.tracesGl && !TraceOpenGl(*module, commandLine.tracedFunctions)) return nullptr;
  if (commandLine.checks && !StartCheck(*module)) return nullptr;
  return module;
}

bool RunCommand(const CommandLine& commandLine) {
  const Module* module = nullptr;
  if (commandLine.usesModule) {
    module = PrepareModule(commandLine);
    if (!module) return Complain("talq: " + PendingError()->text + "\n");
  }
  if (commandLine.action == CommandLine::Action::List) {
    Print(module ? DescribeModule(*module) : DescribeHost());
    return true;
  }
  if (module && commandLine.action == CommandLine::Action::Probe) {
    Print(ProbeOpenGl(*module));
    return true;
  }
  if (commandLine.action == CommandLine::Action::Interact) {
    return RunPrompt(stdin, module ? module->version : "No module is loaded.", ReadScript);
  }
  if (commandLine.action == CommandLine::Action::RunText) {
    return RunScript(commandLine.script, "-e", commandLine.args);
  }
  std::string text;
  if (!ReadScript(commandLine.script, text))
    return Complain("talq: cannot read the script " + commandLine.script + "\n");
  return RunScript(text, commandLine.script, commandLine.args);
}

}  // namespace
}  // namespace devhost::script

int TalqMain(int argc, char** argv) {
  using namespace devhost::script;
  PrepareConsole();
  CommandLine commandLine;
  std::string message;
  const std::vector<std::string> arguments = Arguments(argc, argv);
  if (!ReadCommandLine(arguments, commandLine, message)) {
    Complain("talq: " + message + "; " + devhost::WithHelpCommand("talq --help") + " shows what there is\n");
    return 2;
  }
  if (commandLine.action == CommandLine::Action::Help) return ShowHelp(commandLine.topic);
  devhost::RegisterHostClasses();
  TellCallPositions();
  const bool succeeded = RunCommand(commandLine);
  const int joinedObjects = devhost::UnloadModules();
  const std::string findings = devhost::FinishCheck();
  if (!findings.empty()) Complain(findings);
  std::fflush(stdout);
  if (!succeeded || joinedObjects > 0) return 1;
  return findings.empty() ? 0 : kExitFindings;
}
