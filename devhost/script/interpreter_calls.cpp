// Calls of functions, methods and constructors.
#include "devhost/script/builtins.h"
#include "devhost/script/call_position.h"
#include "devhost/script/interpreter.h"
#include "devhost/script/trace.h"

namespace devhost::script {

// The error that a call ended with arose in the callee's script, or, where that is none, here.
bool Interpreter::FailedCall(const Expression& call, std::string_view name) {
  if (!CurrentTrace().IsLocated()) return FailAt(call);
  CurrentTrace().LeaveCall(name, call.at);
  return false;
}

bool Interpreter::EvaluateArguments(const std::vector<ExpressionPtr>& arguments, std::vector<Variable>& values) {
  values.resize(arguments.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!Evaluate(*arguments[i], values[i])) return false;
  }
  return true;
}

bool Interpreter::EvaluateCall(const CallExpression& call, Variable& value) {
  std::vector<Variable> args;
  if (!EvaluateArguments(call.arguments, args)) return false;
  const CallPosition here(call.at);
  if (call.function->IsName()) return CallNamed(call, As<NameExpression>(*call.function), value, args);
  Variable function;
  if (!Evaluate(*call.function, function)) return false;
  return CallValue(function, value, args) || FailedCall(call, "a function value");
}

// A variable's function goes before the language's and the host's functions of that name.
bool Interpreter::CallNamed(const CallExpression& call, const NameExpression& callee, Variable& value,
                            std::span<Variable> args) {
  bool done = false;
  if (SlotOf(callee).assigned) {
    const Variable function(SlotOf(callee).value);
    done = CallValue(function, value, args);
  } else if (call.builtin) {
    done = CallBuiltin(*call.builtin, value, args, {call.firstArgument, call.at.source->name});
  } else if (HasFunction(callee.name)) {
    done = CallFunction(value, callee.name, args);
  } else {
    return FailUnknownFunction(callee);
  }
  return done || FailedCall(call, callee.name);
}

bool Interpreter::CallValue(const Variable& function, Variable& value, std::span<Variable> args) {
  if (Function* callable = FunctionOf(function)) return callable->Call(value, args);
  Raise(kErrorConversion, "This is no function, but of the kind " + KindOf(function) + ".");
  return false;
}

bool Interpreter::EvaluateMethodCall(const CallMethodExpression& call, Variable& value) {
  Variable object;
  std::vector<Variable> args;
  if (!Evaluate(*call.object, object) || !EvaluateArguments(call.arguments, args)) return false;
  const CallPosition here(call.at);
  return CallMethod(value, object, call.method, args) || FailedCall(call, call.method);
}

bool Interpreter::EvaluateNew(const NewExpression& expression, Variable& value) {
  std::vector<Variable> args;
  if (!EvaluateArguments(expression.arguments, args)) return false;
  const CallPosition here(expression.at);
  return Construct(value, expression.className, args) || FailedCall(expression, expression.className);
}

}  // namespace devhost::script
