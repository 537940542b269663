// Integer arithmetic on numbers that scripts give, which may be anything. It wraps and never traps.
#pragma once

#include <climits>

// Towards zero. What no int can hold becomes the smallest one, as x86's own conversion has it.
inline int Truncate(float value) {
  return value >= -2147483648.0F && value < 2147483648.0F ? static_cast<int>(value) : INT_MIN;
}

inline int WrappingSum(int a, int b) { return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b)); }
inline int WrappingDifference(int a, int b) {
  return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}
inline int WrappingProduct(int a, int b) {
  return static_cast<int>(static_cast<unsigned>(a) * static_cast<unsigned>(b));
}
