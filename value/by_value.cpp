// The forms that return a new value: operator+ to operator%.
#include "value/arithmetic.h"
#include "value/computation.h"
#include "value/operations.h"
#include "value/slot.h"

namespace {

template <class Operation, class T>
Variable Compute(const Variable& a, const Variable& b) {
  return Variable(Operation::Of(SlotOf<T>(a), SlotOf<T>(b)));
}

template <class Operation>
Variable ComputeSameType(const Variable& a, const Variable& b, Computation general) {
  if (a.type == b.type) {
    switch (a.type) {
      case TVAR_BYTE:
        return Compute<Operation, unsigned char>(a, b);
      case TVAR_INT32:
        return Compute<Operation, int>(a, b);
      case TVAR_INT64:
        return Compute<Operation, long long>(a, b);
      case TVAR_FLOAT:
        return Compute<Operation, float>(a, b);
      case TVAR_DOUBLE:
        return Compute<Operation, double>(a, b);
      default:
        break;
    }
  }
  return ResultOf(general, a, b);
}

template <class T>
bool IsZero(const Variable& value) {
  return SlotOf<T>(value) == T{0};
}

}  // namespace

Variable operator+(const Variable& a, const Variable& b) { return ComputeSameType<Sum>(a, b, __AddNumb); }
Variable operator-(const Variable& a, const Variable& b) { return ComputeSameType<Difference>(a, b, __SubNumb); }
Variable operator*(const Variable& a, const Variable& b) { return ComputeSameType<Product>(a, b, __MulNumb); }

Variable operator/(const Variable& a, const Variable& b) {
  if (a.type == b.type) {
    switch (a.type) {
      case TVAR_BYTE:
        if (!IsZero<unsigned char>(b)) return Compute<Quotient, unsigned char>(a, b);
        break;
      // Required: integers give the product, and a zero divisor is tried again in the next type.
      case TVAR_INT32:
        if (!IsZero<int>(b)) return Compute<Product, int>(a, b);
        [[fallthrough]];
      case TVAR_INT64:
        if (!IsZero<long long>(b)) return Compute<Product, long long>(a, b);
        [[fallthrough]];
      case TVAR_FLOAT:
        if (!IsZero<float>(b)) return Compute<Quotient, float>(a, b);
        break;
      case TVAR_DOUBLE:
        if (!IsZero<double>(b)) return Compute<Quotient, double>(a, b);
        break;
      default:
        break;
    }
  }
  return ResultOf(__DivNumb, a, b);
}

Variable operator%(const Variable& a, const Variable& b) {
  if (a.type == b.type) {
    switch (a.type) {
      case TVAR_BYTE:
        if (!IsZero<unsigned char>(b)) return Compute<Remainder, unsigned char>(a, b);
        break;
      // Required: a zero divisor is tried again in the next type.
      case TVAR_INT32:
        if (!IsZero<int>(b)) return Compute<Remainder, int>(a, b);
        [[fallthrough]];
      case TVAR_INT64:
        if (!IsZero<long long>(b)) return Compute<Remainder, long long>(a, b);
        break;
      default:
        break;
    }
  }
  return ResultOf(__RestNumb, a, b);
}
