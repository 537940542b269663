// Arguments that tell a formula from what could be taken for it: another order of operations, another precision.
#pragma once

#include <gtest/gtest.h>

#include <cmath>

// The first argument in 0.377, 0.754, 1.131, ... for which the formula's value differs from that of each variant. They
// are functions of a float; one with several inputs computes them from this one.
template <class Formula, class... Variants>
float TellingArgument(Formula formula, Variants... variants) {
  for (int i = 1; i < 1000000; ++i) {
    const float argument = static_cast<float>(i) * 0.377F;
    if (((formula(argument) != variants(argument)) && ...)) return argument;
  }
  ADD_FAILURE() << "no argument tells the formula from all of its variants";
  return 0.0F;
}

// The length of a vector, and as it comes out of the sum in another order and of double precision.
inline float Length(float x, float y, float z) { return sqrtf(x * x + y * y + z * z); }
inline float LengthFromTheEnd(float x, float y, float z) { return sqrtf(x * x + (y * y + z * z)); }
inline float LengthInDouble(double x, double y, double z) {
  return static_cast<float>(std::sqrt(x * x + y * y + z * z));
}
