// What the tests of the exported arithmetic share.
#pragma once

#include <array>
#include <bit>
#include <cstring>
#include <string>
#include <vector>

#include "tests/unit/support/devhost_fixture.h"
#include "tests/unit/support/host_calls.h"
#include "value/arithmetic.h"

// The tag of values of a C++ type.
inline TVARTYPE TagOf(unsigned char /*number*/) { return TVAR_BYTE; }
inline TVARTYPE TagOf(int /*number*/) { return TVAR_INT32; }
inline TVARTYPE TagOf(long long /*number*/) { return TVAR_INT64; }
inline TVARTYPE TagOf(float /*number*/) { return TVAR_FLOAT; }
inline TVARTYPE TagOf(double /*number*/) { return TVAR_DOUBLE; }

// Whether the value is this number, of its type, bit for bit.
template <class T>
testing::AssertionResult Holds(const Variable& value, T expected) {
  std::array<unsigned char, sizeof expected> held;
  std::memcpy(held.data(), &value.slot, sizeof held);
  if (value.type == TagOf(expected) && held == std::bit_cast<decltype(held)>(expected)) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure() << devhost::TextOf(value) << " of type " << value.type << " is not " << expected
                                     << " of type " << TagOf(expected);
}

// A value of the type byte: the number's low eight bits.
inline Variable Byte(int number) { return Variable(static_cast<unsigned char>(number)); }

// The two forms of an operation.
using InPlace = void (*)(Variable& result, const Variable& a, const Variable& b);
using ByValue = Variable (*)(const Variable& a, const Variable& b);

// What an in-place form leaves in a result that held a text; what a form by value returns.
inline Variable Apply(InPlace operation, const Variable& a, const Variable& b) {
  Variable result;
  devhost::AssignText(result, "what was here");
  operation(result, a, b);
  return result;
}
inline Variable Apply(ByValue operation, const Variable& a, const Variable& b) { return operation(a, b); }

// The number 7 in every type: byte, 32 bits, 64 bits, float, double.
inline std::vector<Variable> Sevens() { return {Byte(7), Variable(7), Variable(7LL), Variable(7.0F), Variable(7.0)}; }

// Counts the pairs of bytes for which the check does not hold.
template <class Check>
int CountWrongPairs(Check check) {
  int wrong = 0;
  for (int a = 0; a < 256; ++a) {
    for (int b = 0; b < 256; ++b) wrong += check(a, b) ? 0 : 1;
  }
  return wrong;
}

// A test of the exported arithmetic: the host's services work, and no call of them is noted yet.
class ValueTest : public DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    Host() = {};
  }

  // The general routines that were called, "Add Div", which are then forgotten.
  static std::string TakeHostCalls() {
    std::string names;
    for (const std::string& name : Host().general) names += (names.empty() ? "" : " ") + name;
    Host().general.clear();
    return names;
  }
};
