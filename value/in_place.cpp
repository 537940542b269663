// The forms that write into a result: Add to Xor.
#include "binding/errors.h"
#include "value/arithmetic.h"
#include "value/computation.h"
#include "value/operations.h"
#include "value/slot.h"

namespace {

bool SameTypeOf(int mask, const Variable& a, const Variable& b) { return (a.type & mask) != 0 && a.type == b.type; }

// Empties the result and gives it a type. The operands are read before: either may be the result itself.
void Prepare(Variable& result, TVARTYPE type) {
  result.Clear();
  result.type = type;
}

template <class Operation, class T>
void Compute(Variable& result, const Variable& a, const Variable& b) {
  const T value = Operation::Of(SlotOf<T>(a), SlotOf<T>(b));
  Prepare(result, a.type);
  SetSlot(result, value);
}

template <class Operation>
void ComputeSameType(Variable& result, const Variable& a, const Variable& b, Computation general) {
  if (!SameTypeOf(kNumericTypes, a, b)) {
    general(result, a, b);
    return;
  }
  switch (a.type) {
    case TVAR_INT64:
      return Compute<Operation, long long>(result, a, b);
    case TVAR_BYTE:
      return Compute<Operation, unsigned char>(result, a, b);
    case TVAR_INT32:
      return Compute<Operation, int>(result, a, b);
    case TVAR_FLOAT:
      return Compute<Operation, float>(result, a, b);
    default:
      return Compute<Operation, double>(result, a, b);
  }
}

// The result is emptied and typed before the divisor is tested, and stays so without a quotient.
template <class Operation, class T>
void Divide(Variable& result, const Variable& a, const Variable& b) {
  const T dividend = SlotOf<T>(a);
  const T divisor = SlotOf<T>(b);
  Prepare(result, a.type);
  if (divisor == T{0}) {
    TalqError(kDivisionByZero);
  } else {
    SetSlot(result, Operation::Of(dividend, divisor));
  }
}

template <class Operation>
void DivideIntegers(Variable& result, const Variable& a, const Variable& b) {
  switch (a.type) {
    case TVAR_INT64:
      return Divide<Operation, long long>(result, a, b);
    case TVAR_BYTE:
      return Divide<Operation, unsigned char>(result, a, b);
    default:
      return Divide<Operation, int>(result, a, b);
  }
}

}  // namespace

void Add(Variable& result, const Variable& a, const Variable& b) { ComputeSameType<Sum>(result, a, b, __AddNumb); }
void Sub(Variable& result, const Variable& a, const Variable& b) {
  ComputeSameType<Difference>(result, a, b, __SubNumb);
}
void Mul(Variable& result, const Variable& a, const Variable& b) { ComputeSameType<Product>(result, a, b, __MulNumb); }

void Div(Variable& result, const Variable& a, const Variable& b) {
  if (SameTypeOf(kIntegerTypes, a, b)) {
    DivideIntegers<Quotient>(result, a, b);
  } else if (SameTypeOf(TVAR_FLOAT, a, b)) {
    Divide<Quotient, float>(result, a, b);
  } else if (SameTypeOf(TVAR_DOUBLE, a, b)) {
    Divide<Quotient, double>(result, a, b);
  } else {
    __DivNumb(result, a, b);
  }
}

void Rest(Variable& result, const Variable& a, const Variable& b) {
  if (SameTypeOf(kIntegerTypes, a, b)) {
    DivideIntegers<Remainder>(result, a, b);
  } else {
    __RestNumb(result, a, b);
  }
}
