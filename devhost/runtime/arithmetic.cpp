// Arithmetic on values. Numbers are computed in the wider of their types, integers modulo their width.
#include <cmath>
#include <type_traits>

#include "devhost/runtime/classes.h"
#include "devhost/runtime/computations.h"
#include "devhost/runtime/number.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"

namespace devhost {
namespace {

constexpr const char* kOperatorNames[] = {"+", "-", "*", "/", "%", "|", "&", "^"};

const char* NameOf(Operator op) { return kOperatorNames[static_cast<int>(op)]; }

template <typename T>
bool DivideIntegers(T& result, bool remainder, T a, T b) {
  using Unsigned = std::make_unsigned_t<T>;
  result = 0;
  if (b == 0) {
    TalqError(kErrorDivisionByZero);
    return false;
  }
  // The smallest integer divided by -1 wraps to itself instead of trapping.
  if (std::is_signed_v<T> && b == static_cast<T>(-1)) {
    if (!remainder) result = static_cast<T>(Unsigned{0} - static_cast<Unsigned>(a));
  } else {
    result = static_cast<T>(remainder ? a % b : a / b);
  }
  return true;
}

template <typename T>
bool ComputeIntegers(T& result, Operator op, T a, T b) {
  // Unsigned arithmetic of full width wraps where signed arithmetic must not overflow.
  const auto x = static_cast<unsigned long long>(a);
  const auto y = static_cast<unsigned long long>(b);
  switch (op) {
    case Operator::Add:
      result = static_cast<T>(x + y);
      return true;
    case Operator::Subtract:
      result = static_cast<T>(x - y);
      return true;
    case Operator::Multiply:
      result = static_cast<T>(x * y);
      return true;
    case Operator::Or:
      result = static_cast<T>(x | y);
      return true;
    case Operator::And:
      result = static_cast<T>(x & y);
      return true;
    case Operator::Xor:
      result = static_cast<T>(x ^ y);
      return true;
    case Operator::Divide:
    case Operator::Remainder:
      break;
  }
  return DivideIntegers(result, op == Operator::Remainder, a, b);
}

template <typename T>
bool ComputeFloats(T& result, Operator op, T a, T b) {
  result = 0;
  switch (op) {
    case Operator::Add:
      result = a + b;
      return true;
    case Operator::Subtract:
      result = a - b;
      return true;
    case Operator::Multiply:
      result = a * b;
      return true;
    case Operator::Divide:
    case Operator::Remainder:
      if (b == 0) {
        TalqError(kErrorDivisionByZero);
        return false;
      }
      result = op == Operator::Divide ? a / b : std::fmod(a, b);
      return true;
    default:
      Raise(kErrorConversion, std::string("The operator ") + NameOf(op) + " works on integers.");
      return false;
  }
}

bool ComputeNumbers(Variable& result, Operator op, const Variable& a, const Variable& b) {
  const TVARTYPE type = PromotedType(a.type, b.type);
  Variable::Slot slot{0};
  bool done = false;
  switch (type) {
    case TVAR_INT64:
      done = ComputeIntegers(slot.int64, op, Int64Of(a), Int64Of(b));
      break;
    case TVAR_BYTE:
      done = ComputeIntegers(slot.byte, op, a.slot.byte, b.slot.byte);
      break;
    case TVAR_INT32:
      done = ComputeIntegers(slot.int32, op, Int32Of(a), Int32Of(b));
      break;
    case TVAR_FLOAT:
      done = ComputeFloats(slot.float32, op, static_cast<float>(DoubleOf(a)), static_cast<float>(DoubleOf(b)));
      break;
    default:
      done = ComputeFloats(slot.float64, op, DoubleOf(a), DoubleOf(b));
      break;
  }
  result.Clear();
  result.type = type;
  result.slot = slot;
  return done;
}

bool CanJoin(const Variable& value) { return IsNumeric(value) || value.type == TVAR_BYTES; }

bool RaiseUnfit(Operator op, const Variable& a, const Variable& b) {
  Raise(kErrorConversion,
        "The operator " + std::string(NameOf(op)) + " does not work on " + KindOf(a) + " and " + KindOf(b) + ".");
  return false;
}

// The host's own arithmetic on operands of any kinds.
bool ComputeGenerally(Variable& result, Operator op, const Variable& a, const Variable& b) {
  if (IsNumeric(a) && IsNumeric(b)) return ComputeNumbers(result, op, a, b);
  if (op == Operator::Add && CanJoin(a) && CanJoin(b)) {
    AssignText(result, TextOf(a) + TextOf(b));
    return true;
  }
  const Class* type = ObjectOf(a) ? ClassOf(a) : nullptr;
  if (!type || !HasMethod(*type, NameOf(op))) return RaiseUnfit(op, a, b);
  Variable object(a);
  Variable operand(b);
  return CallMethod(result, object, NameOf(op), {&operand, 1});
}

void ComputeInto(Variable& result, Operator op, const Variable& a, const Variable& b) {
  Variable computed;  // stays empty when the operands do not fit
  ComputeGenerally(computed, op, a, b);
  Assign(result, computed);
}

Computations computations = kOwnComputations;

}  // namespace

const Computations kOwnComputations = {__AddNumb,  __SubNumb, __MulNumb, __DivNumb,
                                       __RestNumb, _OrNumb,   _AndNumb,  _XorNumb};

void UseComputations(const Computations& table) { computations = table; }

bool Compute(Variable& result, Operator op, const Variable& a, const Variable& b) {
  if (!IsNumeric(a) || a.type != b.type) return ComputeGenerally(result, op, a, b);
  const int raisedBefore = RaisedCount();
  computations[static_cast<std::size_t>(op)](result, a, b);
  return RaisedCount() == raisedBefore;
}

bool Compare(int& order, const Variable& a, const Variable& b) {
  if (IsNumeric(a) && IsNumeric(b)) {
    if (PromotedType(a.type, b.type) < TVAR_FLOAT) {
      const long long x = Int64Of(a);
      const long long y = Int64Of(b);
      order = (x > y) - (x < y);
    } else {
      const double x = DoubleOf(a);
      const double y = DoubleOf(b);
      order = (x > y) - (x < y);
    }
    return true;
  }
  if (a.type == TVAR_BYTES && b.type == TVAR_BYTES) {
    order = TextIn(a).compare(TextIn(b));
    return true;
  }
  Raise(kErrorConversion, KindOf(a) + " and " + KindOf(b) + " cannot be compared by size.");
  return false;
}

bool Equal(const Variable& a, const Variable& b) {
  if (IsNumeric(a) && IsNumeric(b)) {
    if (PromotedType(a.type, b.type) < TVAR_FLOAT) return Int64Of(a) == Int64Of(b);
    return DoubleOf(a) == DoubleOf(b);
  }
  if (a.type != b.type) return false;
  if (a.type == TVAR_BYTES) return TextIn(a) == TextIn(b);
  return a.type == kEmptyType || a.slot.pointer == b.slot.pointer;
}

}  // namespace devhost

using devhost::ComputeInto;
using devhost::Operator;

// NOLINTBEGIN(bugprone-reserved-identifier)
void __AddNumb(Variable& result, const Variable& a, const Variable& b) { ComputeInto(result, Operator::Add, a, b); }
void __SubNumb(Variable& result, const Variable& a, const Variable& b) {
  ComputeInto(result, Operator::Subtract, a, b);
}
void __MulNumb(Variable& result, const Variable& a, const Variable& b) {
  ComputeInto(result, Operator::Multiply, a, b);
}
void __DivNumb(Variable& result, const Variable& a, const Variable& b) { ComputeInto(result, Operator::Divide, a, b); }
void __RestNumb(Variable& result, const Variable& a, const Variable& b) {
  ComputeInto(result, Operator::Remainder, a, b);
}
void _OrNumb(Variable& result, const Variable& a, const Variable& b) { ComputeInto(result, Operator::Or, a, b); }
void _AndNumb(Variable& result, const Variable& a, const Variable& b) { ComputeInto(result, Operator::And, a, b); }
void _XorNumb(Variable& result, const Variable& a, const Variable& b) { ComputeInto(result, Operator::Xor, a, b); }
// NOLINTEND(bugprone-reserved-identifier)
