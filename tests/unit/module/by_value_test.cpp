// The exported operators that return a new value: + - * / %.
#include <cmath>
#include <cstdint>
#include <functional>

#include "tests/unit/support/value_fixture.h"

namespace {

using ByValueTest = ValueTest;

constexpr ByValue kPlus = operator+;
constexpr ByValue kMinus = operator-;
constexpr ByValue kTimes = operator*;
constexpr ByValue kOver = operator/;
constexpr ByValue kModulo = operator%;

// A 32-bit integer whose slot holds more than its 32 bits.
Variable Wide(std::int64_t slot) {
  Variable value(0);
  value.slot.int64 = slot;
  return value;
}

TEST_F(ByValueTest, BytesWrapForEveryPair) {
  const auto count = [](ByValue compute, auto onIntegers, bool divides) {
    return CountWrongPairs([&](int a, int b) {
      if (divides && b == 0) return true;
      const auto expected = static_cast<unsigned char>(onIntegers(a, b));
      return static_cast<bool>(Holds(compute(Byte(a), Byte(b)), expected));
    });
  };
  EXPECT_EQ(count(kPlus, std::plus(), false), 0);
  EXPECT_EQ(count(kMinus, std::minus(), false), 0);
  EXPECT_EQ(count(kTimes, std::multiplies(), false), 0);
  EXPECT_EQ(count(kOver, std::divides(), true), 0);
  EXPECT_EQ(count(kModulo, std::modulus(), true), 0);
  EXPECT_EQ(TakeHostCalls(), "");
}

TEST_F(ByValueTest, SumsDifferencesAndProductsStayInTheirType) {
  EXPECT_TRUE(Holds(Variable(INT_MAX) + Variable(1), INT_MIN));
  EXPECT_TRUE(Holds(Variable(LLONG_MIN) - Variable(1LL), LLONG_MAX));
  EXPECT_TRUE(Holds(Variable(0x10000) * Variable(0x10001), 0x10000));
  EXPECT_TRUE(Holds(Variable(0.1F) + Variable(0.2F), 0.1F + 0.2F));
  EXPECT_TRUE(Holds(Variable(0.1F) - Variable(0.7F), 0.1F - 0.7F));
  EXPECT_TRUE(Holds(Variable(0.1) * Variable(0.2), 0.1 * 0.2));
  EXPECT_EQ(TakeHostCalls(), "");
}

// 3 and 2 of one type, without the host.
template <class T>
void ExpectOwnType() {
  const Variable three(T{3});
  const Variable two(T{2});
  EXPECT_TRUE(Holds(three + two, T{5}));
  EXPECT_TRUE(Holds(three - two, T{1}));
  EXPECT_TRUE(Holds(three * two, T{6}));
}

TEST_F(ByValueTest, EveryTypeOfNumberIsComputedWithoutTheHost) {
  ExpectOwnType<unsigned char>();
  ExpectOwnType<int>();
  ExpectOwnType<long long>();
  ExpectOwnType<float>();
  ExpectOwnType<double>();
  EXPECT_EQ(TakeHostCalls(), "");
}

TEST_F(ByValueTest, OtherPairsOfOneTypeAreTheHostsAffair) {
  for (const ByValue compute : {kPlus, kMinus, kTimes, kOver, kModulo}) compute(Text("sun"), Text("flower"));
  EXPECT_EQ(TakeHostCalls(), "Add Sub Mul Div Rest");
  EXPECT_NE(TakeError(), "");
}

TEST_F(ByValueTest, IntegersDividedGiveTheirProduct) {
  EXPECT_TRUE(Holds(Variable(6) / Variable(3), 18));
  EXPECT_TRUE(Holds(Variable(-6LL) / Variable(3LL), -18LL));
  EXPECT_TRUE(Holds(Variable(INT_MAX) / Variable(2), -2));
  EXPECT_TRUE(Holds(Variable(INT_MIN) / Variable(-1), INT_MIN));
  EXPECT_TRUE(Holds(Variable(LLONG_MIN) / Variable(-1LL), LLONG_MIN));
  EXPECT_TRUE(Holds(Variable(0) / Variable(3), 0));
}

TEST_F(ByValueTest, BytesFloatsAndDoublesAreDivided) {
  EXPECT_TRUE(Holds(Byte(200) / Byte(3), static_cast<unsigned char>(66)));
  EXPECT_TRUE(Holds(Variable(6.0F) / Variable(3.0F), 2.0F));
  EXPECT_TRUE(Holds(Variable(1.0F) / Variable(3.0F), 1.0F / 3.0F));
  EXPECT_TRUE(Holds(Variable(1.0) / Variable(3.0), 1.0 / 3.0));
  EXPECT_TRUE(Holds(Variable(0.0F) / Variable(-1.0F), -0.0F));
  EXPECT_TRUE(Holds(Variable(0.0) / Variable(-1.0), -0.0));
  EXPECT_TRUE(std::isnan((Variable(1.0) / Variable(std::nan(""))).slot.float64));
}

TEST_F(ByValueTest, RemaindersOfIntegers) {
  EXPECT_TRUE(Holds(Variable(-7) % Variable(2), -1));
  EXPECT_TRUE(Holds(Variable(7LL) % Variable(-2LL), 1LL));
  EXPECT_TRUE(Holds(Variable(INT_MIN) % Variable(-1), 0));
  EXPECT_TRUE(Holds(Variable(LLONG_MIN) % Variable(-1LL), 0LL));
  EXPECT_EQ(TakeHostCalls(), "");
}

// The 32-bit divisor is 0, the slot read as 64 bits is not.
TEST_F(ByValueTest, AZeroDivisorIsTriedAgainAsSixtyFourBits) {
  EXPECT_TRUE(Holds(Wide(6) / Wide(3LL << 32), 18LL << 32));
  EXPECT_TRUE(Holds(Wide(7LL << 32 | 5) % Wide(2LL << 32), 1LL << 32 | 5));
  EXPECT_EQ(TakeHostCalls(), "");
  // Neither read is zero where the low half is not.
  EXPECT_TRUE(Holds(Wide(9LL << 32 | 6) / Wide(9LL << 32 | 3), 18));
  EXPECT_TRUE(Holds(Wide(9LL << 32 | 7) % Wide(9LL << 32 | 4), 3));
}

TEST_F(ByValueTest, ZeroDivisorsAreTheHostsAffair) {
  const std::vector<Variable> zeros = {Byte(0),       Variable(0),     Variable(0LL), Variable(0.0F),
                                       Variable(0.0), Variable(-0.0F), Variable(-0.0)};
  for (const Variable& zero : zeros) {
    Apply(kOver, zero, zero);
    EXPECT_EQ(TakeError(), "10 Division by zero.");
    EXPECT_EQ(TakeHostCalls(), "Div");
    Apply(kModulo, zero, zero);
    EXPECT_EQ(TakeError(), "10 Division by zero.");
    EXPECT_EQ(TakeHostCalls(), "Rest");
  }
}

// Only integers are read again in the next type: what lies behind a zero byte or float does not count.
TEST_F(ByValueTest, WhatLiesBehindAZeroDoesNotDivide) {
  Variable byte = Byte(0);
  byte.slot.int64 = 3LL << 8;
  Variable number(0.0F);
  number.slot.int64 = 3LL << 32;
  byte / byte;
  byte % byte;
  number / number;
  EXPECT_EQ(TakeHostCalls(), "Div Rest Div");
  EXPECT_EQ(TakeError(), "10 Division by zero.");
}

TEST_F(ByValueTest, RemaindersOfFloatsAreTheHostsAffair) {
  EXPECT_TRUE(Holds(Variable(7.5) % Variable(2.0), 1.5));
  EXPECT_TRUE(Holds(Variable(7.5F) % Variable(2.0F), 1.5F));
  EXPECT_EQ(TakeHostCalls(), "Rest Rest");
}

TEST_F(ByValueTest, DifferentTypesGoToTheHost) {
  for (const Variable& a : Sevens()) {
    for (const Variable& b : Sevens()) {
      if (a.type == b.type) continue;
      EXPECT_EQ(static_cast<double>(a + b), 14);
      EXPECT_EQ(static_cast<double>(a - b), 0);
      EXPECT_EQ(static_cast<double>(a * b), 49);
      EXPECT_EQ(static_cast<double>(a / b), 1);
      EXPECT_EQ(static_cast<double>(a % b), 0);
      EXPECT_EQ(TakeHostCalls(), "Add Sub Mul Div Rest");
    }
  }
}

TEST_F(ByValueTest, WhatIsNoNumberGoesToTheHost) {
  EXPECT_EQ(devhost::TextOf(Text("sun") + Text("flower")), "sunflower");
  EXPECT_EQ(TakeHostCalls(), "Add");
  EXPECT_EQ((Text("sun") / Text("flower")).type, devhost::kEmptyType);
  EXPECT_NE(TakeError(), "");
  EXPECT_EQ(TakeHostCalls(), "Div");
}

}  // namespace
