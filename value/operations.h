// The operations themselves, on plain numbers of one type. Integers wrap and never trap.
#pragma once

#include <type_traits>

// Integers are computed as unsigned ones of their own width or more, where wrapping is defined.
template <class T>
using Wrapping = std::conditional_t<std::is_floating_point_v<T>, T,
                                    std::conditional_t<sizeof(T) == 8, unsigned long long, unsigned>>;

// a + b, a - b, a * b.
struct Sum {
  template <class T>
  static T Of(T a, T b) {
    return static_cast<T>(static_cast<Wrapping<T>>(a) + static_cast<Wrapping<T>>(b));
  }
};

struct Difference {
  template <class T>
  static T Of(T a, T b) {
    return static_cast<T>(static_cast<Wrapping<T>>(a) - static_cast<Wrapping<T>>(b));
  }
};

struct Product {
  template <class T>
  static T Of(T a, T b) {
    return static_cast<T>(static_cast<Wrapping<T>>(a) * static_cast<Wrapping<T>>(b));
  }
};

// a / b, towards zero. The divisor is not zero. The smallest integer divided by -1 is itself.
struct Quotient {
  template <class T>
  static T Of(T a, T b) {
    if constexpr (std::is_signed_v<T> && std::is_integral_v<T>) {
      if (b == -1) return Difference::Of(T{0}, a);
    }
    return static_cast<T>(a / b);
  }
};

// a % b, with the sign of a. The divisor is not zero. Anything modulo -1 is 0.
struct Remainder {
  template <class T>
  static T Of(T a, T b) {
    if constexpr (std::is_signed_v<T>) {
      if (b == -1) return 0;
    }
    return static_cast<T>(a % b);
  }
};
