// Operators that the language has beyond the runtime's arithmetic.
#pragma once

#include "devhost/script/ast.h"

namespace devhost::script {

// Each returns false with an error raised when the operands are of the wrong kinds.

// -a: a number keeps its type but a byte becomes an int, the smallest integer stays; an object is multiplied by -1.
bool Negate(Variable& result, const Variable& a);
// ~a, of an integer.
bool Invert(Variable& result, const Variable& a);
// a << count or a >> count, of integers, sign kept; 32 bits unless a has 64.
bool Shift(Variable& result, const Variable& a, const Variable& count, bool left);
// a < b and its like, of two numbers or two texts; false with a NaN.
bool CompareOrder(Variable& result, Expression::Kind kind, const Variable& a, const Variable& b);

}  // namespace devhost::script
