// The bit operations, which write through the host's assignment.
#include "value/arithmetic.h"
#include "value/computation.h"
#include "value/slot.h"

namespace {

template <class Operation>
void ComputeBits(Variable& result, const Variable& a, const Variable& b, Computation general) {
  if (a.type == TVAR_INT64 && b.type == TVAR_INT64) {
    result = static_cast<long long>(Operation::Of(a.slot.int64, b.slot.int64));
  } else if (a.type == TVAR_INT32 && b.type == TVAR_INT32) {
    result = static_cast<int>(Operation::Of(a.slot.int32, b.slot.int32));
  } else if (a.type == TVAR_BYTE && b.type == TVAR_BYTE) {
    // Required: the first byte with itself, as a 32-bit integer.
    result = static_cast<int>(Operation::Of(a.slot.byte, a.slot.byte));
  } else {
    general(result, a, b);
  }
}

struct BitOr {
  template <class T>
  static auto Of(T a, T b) {
    return a | b;
  }
};
struct BitAnd {
  template <class T>
  static auto Of(T a, T b) {
    return a & b;
  }
};
struct BitXor {
  template <class T>
  static auto Of(T a, T b) {
    return a ^ b;
  }
};

}  // namespace

void Or(Variable& result, const Variable& a, const Variable& b) { ComputeBits<BitOr>(result, a, b, _OrNumb); }
void And(Variable& result, const Variable& a, const Variable& b) { ComputeBits<BitAnd>(result, a, b, _AndNumb); }
void Xor(Variable& result, const Variable& a, const Variable& b) { ComputeBits<BitXor>(result, a, b, _XorNumb); }

Variable operator|(const Variable& a, const Variable& b) { return ResultOf(Or, a, b); }
Variable operator&(const Variable& a, const Variable& b) { return ResultOf(And, a, b); }
Variable operator^(const Variable& a, const Variable& b) { return ResultOf(Xor, a, b); }
