// A sequence of random choices that a seed fixes.
#pragma once

#include <cstdint>
#include <limits>

class Random {
 public:
  explicit Random(std::uint64_t seed) : state(seed) {}

  // 0 to count - 1.
  int Below(int count) { return static_cast<int>(Next() % static_cast<std::uint64_t>(count)); }
  bool Percent(int share) { return Below(100) < share; }
  template <class T, std::size_t size>
  T Pick(const T (&choices)[size]) {
    return choices[Below(static_cast<int>(size))];
  }

  // Small integers, now and then one at the end of a range.
  int Integer() {
    constexpr int kExtremes[] = {std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 0x10000, -0x8000};
    return Percent(8) ? Pick(kExtremes) : Below(16) - 3;
  }
  float Number() {
    using Limits = std::numeric_limits<float>;
    constexpr float kExtremes[] = {Limits::quiet_NaN(),
                                   Limits::infinity(),
                                   -Limits::infinity(),
                                   Limits::max(),
                                   Limits::denorm_min(),
                                   -2147483648.0F * 2.0F,
                                   -0.0F};
    return Percent(8) ? Pick(kExtremes) : static_cast<float>(Below(4001) - 2000) / 16.0F;
  }

 private:
  // SplitMix64.
  std::uint64_t Next() {
    std::uint64_t z = state += 0x9E3779B97F4A7C15U;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31);
  }

  std::uint64_t state;
};
