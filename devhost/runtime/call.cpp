// Calls: from a class or function name and arguments to a handler, and what handlers ask of the interpreter.
#include <cstdlib>

#include "devhost/runtime/access.h"
#include "devhost/runtime/call_observer.h"
#include "devhost/runtime/classes.h"
#include "devhost/runtime/near_names.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/register.h"
#include "devhost/runtime/runtime.h"

namespace devhost {
namespace {

// Registers for the arguments and the script object behind them.
struct Arguments {
  explicit Arguments(std::span<Variable> values) : frame(static_cast<int>(values.size()) + 1) {
    for (Variable& value : values) frame.Bind(count++, value);
  }
  Arguments(VarRegister* registers, int registerCount) : frame(registerCount + 1) {
    for (; count < registerCount; ++count) frame.Bind(count, registers[count].GetVar());
  }

  RegisterFrame frame;
  int count = 0;
};

// Runs the fitting overload on the object; its result goes to a register of its own, as it may replace an argument.
bool Invoke(Variable& result, const Class& type, std::string_view name, Arguments& args, Variable& self) {
  const Method* method = ResolveMethod(type, name, args.frame.Registers(), args.count);
  if (!method) return false;
  args.frame.Bind(args.count, self);
  VarRegister returned;
  RunHandler(*method, returned, args.frame.Registers(), args.count);
  Assign(result, returned.GetVar());
  return !PendingError();
}

bool ConstructWith(Variable& target, std::string_view className, Arguments& args) {
  const Class* type = className.empty() ? nullptr : FindClass(className);
  if (!type) {
    Raise(kErrorName, "There is no class \"" + std::string(className) + "\".", DidYouMean(className, ClassNames()));
    return false;
  }
  Variable object;
  MakeObject(object, type);
  Variable ignored;
  const int raisedBefore = RaisedCount();
  if (!Invoke(ignored, *type, className, args, object) && RaisedCount() > raisedBefore) return false;
  Assign(target, object);
  return !PendingError();
}

bool CallMethodWith(Variable& result, Variable& object, std::string_view name, Arguments& args) {
  // The object lives on until the call ends, whatever the method does to the variable that held it.
  Variable self(object);
  const Class* type = ClassOf(self);
  if (!type) {
    Raise(kErrorName, "A " + KindOf(self) + " has no method \"" + std::string(name) + "\".");
    return false;
  }
  if (name == type->name) {
    // Its handler would join a second native object to this one.
    Raise(kErrorName, type->name + " is a constructor: it makes a new object and is no method of one that is there.",
          "use new " + type->name + "(...)");
    return false;
  }
  return Invoke(result, *type, name, args, self);
}

}  // namespace

bool Construct(Variable& target, std::string_view className, std::span<Variable> args) {
  Arguments arguments(args);
  return ConstructWith(target, className, arguments);
}

bool CallMethod(Variable& result, Variable& object, std::string_view method, std::span<Variable> args) {
  Arguments arguments(args);
  return CallMethodWith(result, object, method, arguments);
}

bool CallFunction(Variable& result, std::string_view name, std::span<Variable> args) {
  const Class* functions = FindClass("");
  if (!functions || !HasMethod(*functions, name)) {
    Raise(kErrorName, "There is no function \"" + std::string(name) + "\".");
    return false;
  }
  Arguments arguments(args);
  Variable none;
  return Invoke(result, *functions, name, arguments, none);
}

Processor* CurrentProcessor() {
  static Processor processor;
  return &processor;
}

}  // namespace devhost

void Processor::MakeInstance(Variable& target, char* className, VarRegister* args, int count) {
  devhost::Arguments arguments(args, count);
  devhost::ConstructWith(target, className, arguments);
}

int Processor::RunMethod(VarRegister& result, char* method, VarRegister* args, int count, Variable* object) {
  devhost::Arguments arguments(args, count);
  // The result register may be bound to the object, so it is written last; a failed call leaves it empty.
  Variable returned;
  const bool done = devhost::CallMethodWith(returned, *object, method, arguments);
  devhost::Assign(result.GetVar(), returned);
  return done ? 1 : 0;
}

int Processor::RunFunction(VarRegister& result, Variable& function, VarRegister* args, int count) {
  std::vector<Variable> arguments;
  arguments.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) arguments.emplace_back(args[i].GetVar());
  Variable returned;
  devhost::Function* code = devhost::FunctionOf(function);
  if (!code) devhost::Raise(devhost::kErrorConversion, "A " + devhost::KindOf(function) + " cannot be called.");
  const bool done = code && code->Call(returned, arguments);
  devhost::Assign(result.GetVar(), returned);
  return done ? 1 : 0;
}

TVConnect* GetConnector() {
  static TVConnect connector;
  return &connector;
}

Processor* TVConnect::GetOwner() { return devhost::CurrentProcessor(); }

void* HMALLOC(std::size_t size, std::size_t, std::size_t, std::size_t) { return std::malloc(size); }
