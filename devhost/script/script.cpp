#include "devhost/script/script.h"

#include <string>
#include <utility>

#include "devhost/runtime/text.h"
#include "devhost/script/interpreter.h"
#include "devhost/script/parse.h"
#include "devhost/script/trace.h"

namespace devhost::script {
namespace {

void Set(Slot& slot, const Variable& value) {
  Assign(slot.value, value);
  slot.assigned = true;
}

// The last made is destroyed first, so that an object outlives those made to use it.
void ReleaseBackwards(std::vector<Slot>& slots) {
  while (!slots.empty()) slots.pop_back();
}

std::string CountOfArguments(std::size_t count) {
  return Decimal(static_cast<long long>(count)) + (count == 1 ? " argument" : " arguments");
}

// A function of a script. A value that holds it may outlive the script; then the call is an error.
class ScriptFunction : public Function {
 public:
  ScriptFunction(Script& owner, const FunctionDefinition& functionDefinition)
      : script(&owner), definition(&functionDefinition), name(functionDefinition.name) {}

  void Detach() { script = nullptr; }

  bool Call(Variable& result, std::span<Variable> args) override {
    if (!script) {
      Raise(kErrorName, "The script of the function '" + name + "' has ended.");
      return false;
    }
    const auto parameterCount = static_cast<std::size_t>(definition->parameterCount);
    if (args.size() != parameterCount) {
      Raise(kErrorNoOverload,
            "The function '" + name + "' takes " + CountOfArguments(parameterCount) + "; the call has " +
                CountOfArguments(args.size()) + ".",
            Form());
      return false;
    }
    std::vector<Slot> locals(definition->locals.size());
    for (std::size_t i = 0; i < args.size(); ++i) Set(locals[i], args[i]);
    const Flow flow = Interpreter(script->Globals(), {locals, definition->locals}, result).Execute(*definition->body);
    ReleaseBackwards(locals);
    return flow != Flow::Failed;
  }

 private:
  // "Half takes (x)"
  std::string Form() const {
    std::string form;
    for (int i = 0; i < definition->parameterCount; ++i) {
      form.append(i > 0 ? ", " : "").append(definition->locals[static_cast<std::size_t>(i)]);
    }
    return name + " takes (" + form + ")";
  }

  Script* script;
  const FunctionDefinition* definition;
  std::string name;
};

// A text compiled by itself; each call runs it anew.
class CompiledText : public Function {
 public:
  explicit CompiledText(std::unique_ptr<Program> compiled) : program(std::move(compiled)) {}

  bool Call(Variable& result, std::span<Variable> args) override { return Script(*program).Run(result, args); }

 private:
  std::unique_ptr<Program> program;
};

}  // namespace

Script::Script(const Program& runProgram) : program(runProgram) {}

// Places for the program's variables and values of its functions, as far as they are new.
void Script::TakeUp() {
  globals.resize(program.globals.size());
  while (functions.size() < program.functions.size()) {
    const FunctionDefinition& definition = *program.functions[functions.size()];
    AssignFunction(functions.emplace_back(), new ScriptFunction(*this, definition));
    Set(globals[static_cast<std::size_t>(definition.slot)], functions.back());
  }
}

Script::~Script() {
  ReleaseBackwards(globals);
  for (const Variable& function : functions) static_cast<ScriptFunction*>(FunctionOf(function))->Detach();
}

bool Script::Run(Variable& result, std::span<Variable> args) {
  if (!PendingError()) CurrentTrace().Clear();
  TakeUp();
  const auto parameterCount = static_cast<std::size_t>(program.parameterCount);
  if (args.size() > parameterCount) {
    Raise(kErrorNoOverload, "The script takes at most " + CountOfArguments(parameterCount) + "; the call has " +
                                CountOfArguments(args.size()) + ".");
    CurrentTrace().Locate({program.sources.front().get(), 0});
    return false;
  }
  const Variable nothing;
  for (std::size_t i = 0; i < parameterCount; ++i) Set(globals[i], i < args.size() ? args[i] : nothing);
  result.Clear();
  Interpreter interpreter(Globals(), {}, result);
  Flow flow = Flow::Next;
  while (flow == Flow::Next && nextStatement < program.statements.size()) {
    flow = interpreter.Execute(*program.statements[nextStatement++]);
  }
  nextStatement = program.statements.size();
  return flow != Flow::Failed;
}

}  // namespace devhost::script

namespace devhost {

Function* CompileFunction(std::string_view source) {
  script::SyntaxError error;
  std::unique_ptr<script::Program> program = script::Parse(source, "function text", nullptr, error);
  if (program) return new script::CompiledText(std::move(program));
  Raise(kErrorSyntax, script::Describe(error.at, error.message));
  return nullptr;
}

}  // namespace devhost
