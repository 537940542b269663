// Calls of functions, methods and constructors.
#include "devhost/script/builtins.h"
#include "devhost/script/interpreter.h"
#include "devhost/script/trace.h"

namespace devhost::script {

// The error that a call ended with arose in the callee's script, or, where that is none, here.
bool Interpreter::FailedCall(const Expression& call, std::string_view name) {
  if (!CurrentTrace().IsLocated()) return FailAt(call);
  CurrentTrace().LeaveCall(name, call.at);
  return false;
}

bool Interpreter::EvaluateOperands(const Expression& expression, std::size_t first, std::vector<Variable>& values) {
  values.resize(expression.operands.size() - first);
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!Evaluate(*expression.operands[first + i], values[i])) return false;
  }
  return true;
}

// A variable's function goes before the language's and the host's functions of that name.
bool Interpreter::EvaluateCall(const Expression& call, Variable& value) {
  const Expression& callee = *call.operands[0];
  std::vector<Variable> args;
  if (!EvaluateOperands(call, 1, args)) return false;
  bool done = false;
  if (!callee.IsName()) {
    Variable function;
    if (!Evaluate(callee, function)) return false;
    done = CallValue(function, value, args);
  } else if (SlotOf(callee).assigned) {
    const Variable function(SlotOf(callee).value);
    done = CallValue(function, value, args);
  } else if (call.builtin != nullptr) {
    done = CallBuiltin(*call.builtin, value, args, {call.text, call.at.source->name});
  } else if (HasFunction(callee.text)) {
    done = CallFunction(value, callee.text, args);
  } else {
    return FailUnknownFunction(callee);
  }
  return done || FailedCall(call, callee.IsName() ? callee.text : "a function value");
}

bool Interpreter::CallValue(const Variable& function, Variable& value, std::span<Variable> args) {
  Function* callable = FunctionOf(function);
  if (callable != nullptr) return callable->Call(value, args);
  Raise(kErrorConversion, "This is no function, but of the kind " + KindOf(function) + ".");
  return false;
}

bool Interpreter::EvaluateMethodCall(const Expression& call, Variable& value) {
  Variable object;
  std::vector<Variable> args;
  if (!Evaluate(*call.operands[0], object) || !EvaluateOperands(call, 1, args)) return false;
  return CallMethod(value, object, call.text, args) || FailedCall(call, call.text);
}

bool Interpreter::EvaluateNew(const Expression& expression, Variable& value) {
  std::vector<Variable> args;
  if (!EvaluateOperands(expression, 0, args)) return false;
  return Construct(value, expression.text, args) || FailedCall(expression, expression.text);
}

}  // namespace devhost::script
