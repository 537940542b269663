// Values of expressions.
#include "devhost/script/depth.h"
#include "devhost/script/interpreter.h"
#include "devhost/script/operators.h"

namespace devhost::script {

using Kind = Expression::Kind;

bool Interpreter::Evaluate(const Expression& expression, Variable& value) {
  const Depth depth;
  if (depth.IsExceeded()) return FailAt(expression);
  return EvaluateKind(expression, value);
}

bool Interpreter::EvaluateKind(const Expression& expression, Variable& value) {
  switch (expression.kind) {
    case Kind::Number:
      Assign(value, expression.number);
      return true;
    case Kind::Text:
      AssignText(value, expression.text);  // a new one each time: texts are shared, and can be written to
      return true;
    case Kind::True:
    case Kind::False:
      AssignBool(value, expression.kind == Kind::True);
      return true;
    case Kind::Global:
    case Kind::Local:
      return EvaluateName(expression, value);
    case Kind::Array:
      return EvaluateArray(expression, value);
    case Kind::Index:
    case Kind::Field:
      return EvaluatePlace(expression, value);
    case Kind::Call:
      return EvaluateCall(expression, value);
    case Kind::CallMethod:
      return EvaluateMethodCall(expression, value);
    case Kind::New:
      return EvaluateNew(expression, value);
    case Kind::Negate:
    case Kind::Invert:
    case Kind::Not:
      return EvaluateUnary(expression, value);
    case Kind::And:
    case Kind::Or:
      return EvaluateLogical(expression, value);
    default:
      return EvaluateBinary(expression, value);
  }
}

Slot& Interpreter::SlotOf(const Expression& name) {
  const Scope& scope = name.kind == Kind::Local ? locals : globals;
  return scope.slots[static_cast<std::size_t>(name.slot)];
}

bool Interpreter::EvaluateName(const Expression& name, Variable& value) {
  const Slot& slot = SlotOf(name);
  if (!slot.assigned) return FailUnknown(name);
  Assign(value, slot.value);
  return true;
}

bool Interpreter::EvaluateArray(const Expression& expression, Variable& value) {
  Variable array;
  array.Init(TVAR_ARRAY, static_cast<int>(expression.operands.size()));
  for (std::size_t i = 0; i < expression.operands.size(); ++i) {
    if (!Evaluate(*expression.operands[i], array[static_cast<int>(i)])) return false;
  }
  Assign(value, array);
  return true;
}

bool Interpreter::EvaluateUnary(const Expression& expression, Variable& value) {
  Variable operand;
  if (!Evaluate(*expression.operands[0], operand)) return false;
  if (expression.kind == Kind::Not) {
    AssignBool(value, !IsTrue(operand));
    return true;
  }
  const bool done = expression.kind == Kind::Negate ? Negate(value, operand) : Invert(value, operand);
  return done || FailAt(expression);
}

bool Interpreter::EvaluateLogical(const Expression& expression, Variable& value) {
  Variable operand;
  if (!Evaluate(*expression.operands[0], operand)) return false;
  const bool isDecided = IsTrue(operand) == (expression.kind == Kind::Or);
  if (!isDecided && !Evaluate(*expression.operands[1], operand)) return false;
  AssignBool(value, IsTrue(operand));
  return true;
}

bool Interpreter::EvaluateBinary(const Expression& expression, Variable& value) {
  Variable left;
  Variable right;
  if (!Evaluate(*expression.operands[0], left) || !Evaluate(*expression.operands[1], right)) return false;
  bool done = true;
  switch (expression.kind) {
    case Kind::Compute:
      done = Compute(value, expression.op, left, right);
      break;
    case Kind::ShiftLeft:
    case Kind::ShiftRight:
      done = Shift(value, left, right, expression.kind == Kind::ShiftLeft);
      break;
    case Kind::Equal:
    case Kind::NotEqual:
      AssignBool(value, Equal(left, right) == (expression.kind == Kind::Equal));
      break;
    default:
      done = CompareOrder(value, expression.kind, left, right);
  }
  return done || FailAt(expression);
}

}  // namespace devhost::script
