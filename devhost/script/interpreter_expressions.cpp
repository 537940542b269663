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
      Assign(value, As<NumberExpression>(expression).number);
      return true;
    case Kind::Text:
      // A new one each time: texts are shared, and can be written to.
      AssignText(value, As<TextExpression>(expression).bytes);
      return true;
    case Kind::Global:
    case Kind::Local:
      return EvaluateName(As<NameExpression>(expression), value);
    case Kind::Array:
      return EvaluateArray(As<ArrayExpression>(expression), value);
    case Kind::Index:
    case Kind::Field:
      return EvaluatePlace(expression, value);
    case Kind::Call:
      return EvaluateCall(As<CallExpression>(expression), value);
    case Kind::CallMethod:
      return EvaluateMethodCall(As<CallMethodExpression>(expression), value);
    case Kind::New:
      return EvaluateNew(As<NewExpression>(expression), value);
    case Kind::Negate:
    case Kind::Invert:
    case Kind::Not:
      return EvaluateUnary(As<UnaryExpression>(expression), value);
    case Kind::And:
    case Kind::Or:
      return EvaluateLogical(As<BinaryExpression>(expression), value);
    default:
      return EvaluateBinary(As<BinaryExpression>(expression), value);
  }
}

Slot& Interpreter::SlotOf(const NameExpression& name) {
  const Scope& scope = name.kind == Kind::Local ? locals : globals;
  return scope.slots[static_cast<std::size_t>(name.slot)];
}

bool Interpreter::EvaluateName(const NameExpression& name, Variable& value) {
  const Slot& slot = SlotOf(name);
  if (!slot.assigned) return FailUnknown(name);
  Assign(value, slot.value);
  return true;
}

bool Interpreter::EvaluateArray(const ArrayExpression& expression, Variable& value) {
  Variable array;
  array.Init(TVAR_ARRAY, static_cast<int>(expression.elements.size()));
  for (std::size_t i = 0; i < expression.elements.size(); ++i) {
    if (!Evaluate(*expression.elements[i], array[static_cast<int>(i)])) return false;
  }
  Assign(value, array);
  return true;
}

bool Interpreter::EvaluateUnary(const UnaryExpression& expression, Variable& value) {
  Variable operand;
  if (!Evaluate(*expression.operand, operand)) return false;
  if (expression.kind == Kind::Not) {
    AssignBool(value, !IsTrue(operand));
    return true;
  }
  const bool done = expression.kind == Kind::Negate ? Negate(value, operand) : Invert(value, operand);
  return done || FailAt(expression);
}

bool Interpreter::EvaluateLogical(const BinaryExpression& expression, Variable& value) {
  Variable operand;
  if (!Evaluate(*expression.left, operand)) return false;
  const bool isDecided = IsTrue(operand) == (expression.kind == Kind::Or);
  if (!isDecided && !Evaluate(*expression.right, operand)) return false;
  AssignBool(value, IsTrue(operand));
  return true;
}

bool Interpreter::EvaluateBinary(const BinaryExpression& expression, Variable& value) {
  Variable left;
  Variable right;
  if (!Evaluate(*expression.left, left) || !Evaluate(*expression.right, right)) return false;
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
