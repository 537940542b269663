#include "devhost/script/operators.h"

#include <cmath>

namespace devhost::script {
namespace {

bool IsInteger(const Variable& value) { return (value.type & kIntegerTypes) != 0; }

long long IntegerOf(const Variable& value) {
  if (value.type == TVAR_INT64) return value.slot.int64;
  return value.type == TVAR_BYTE ? value.slot.byte : value.slot.int32;
}

// Stores the number in the type of an operation on `operand`: 64 bits only where that has them.
void StoreInteger(Variable& result, const Variable& operand, unsigned long long number) {
  if (operand.type == TVAR_INT64) {
    result = static_cast<long long>(number);
  } else {
    result = static_cast<int>(static_cast<unsigned>(number));
  }
}

bool FailKind(const char* operation, const Variable& value) {
  Raise(kErrorConversion, std::string(operation) + " needs integers; this is of the kind " + KindOf(value) + ".");
  return false;
}

bool IsNan(const Variable& value) {
  if (value.type == TVAR_DOUBLE) return std::isnan(value.slot.float64);
  return value.type == TVAR_FLOAT && std::isnan(value.slot.float32);
}

}  // namespace

bool Negate(Variable& result, const Variable& a) {
  if (a.type == TVAR_DOUBLE) {
    result = -a.slot.float64;
  } else if (a.type == TVAR_FLOAT) {
    result = -a.slot.float32;
  } else if (IsInteger(a)) {
    StoreInteger(result, a, 0 - static_cast<unsigned long long>(IntegerOf(a)));
  } else {
    return Compute(result, Operator::Multiply, a, Variable(-1));
  }
  return true;
}

bool Invert(Variable& result, const Variable& a) {
  if (!IsInteger(a)) return FailKind("'~'", a);
  StoreInteger(result, a, ~static_cast<unsigned long long>(IntegerOf(a)));
  return true;
}

bool Shift(Variable& result, const Variable& a, const Variable& count, bool left) {
  if (!IsInteger(a)) return FailKind("A shift", a);
  if (!IsInteger(count)) return FailKind("A shift's count", count);
  const long long bits = a.type == TVAR_INT64 ? 64 : 32;
  const long long places = IntegerOf(count);
  if (places < 0 || places >= bits) {
    Raise(kErrorConversion, std::string("A shift's count lies between 0 and ") + (bits == 64 ? "63" : "31") + ".");
    return false;
  }
  const long long number = IntegerOf(a);
  StoreInteger(
      result, a,
      left ? static_cast<unsigned long long>(number) << places : static_cast<unsigned long long>(number >> places));
  return true;
}

bool CompareOrder(Variable& result, Expression::Kind kind, const Variable& a, const Variable& b) {
  int order = 0;
  if (!Compare(order, a, b)) return false;
  bool truth = false;
  if (kind == Expression::Kind::Less) truth = order < 0;
  if (kind == Expression::Kind::LessEqual) truth = order <= 0;
  if (kind == Expression::Kind::Greater) truth = order > 0;
  if (kind == Expression::Kind::GreaterEqual) truth = order >= 0;
  AssignBool(result, truth && !IsNan(a) && !IsNan(b));
  return true;
}

}  // namespace devhost::script
