// The exported arithmetic that writes into a result: Add, Sub, Mul, Div, Rest.
#include <cmath>
#include <functional>
#include <limits>

#include "tests/unit/support/value_fixture.h"

namespace {

using ArithmeticTest = ValueTest;

struct Operation {
  const char* name;
  InPlace compute;
  std::function<int(int, int)> onIntegers;
};

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> kOperations = {{"Add", Add, std::plus()},
                                                     {"Sub", Sub, std::minus()},
                                                     {"Mul", Mul, std::multiplies()},
                                                     {"Div", Div, std::divides()},
                                                     {"Rest", Rest, std::modulus()}};
  return kOperations;
}

TEST_F(ArithmeticTest, BytesWrapToEightBitsForEveryPair) {
  for (const Operation& operation : Operations()) {
    const bool divides = operation.compute == Div || operation.compute == Rest;
    EXPECT_EQ(CountWrongPairs([&](int a, int b) {
                if (divides && b == 0) return true;
                Variable result(0);
                operation.compute(result, Byte(a), Byte(b));
                return static_cast<bool>(Holds(result, static_cast<unsigned char>(operation.onIntegers(a, b))));
              }),
              0)
        << operation.name;
  }
  EXPECT_EQ(TakeHostCalls(), "");
}

TEST_F(ArithmeticTest, EveryTypeIsComputedInItself) {
  for (const Variable& seven : Sevens()) {
    for (const Operation& operation : Operations()) {
      if (operation.compute == Rest && seven.type >= TVAR_FLOAT) continue;
      const Variable result = Apply(operation.compute, seven, seven);
      EXPECT_EQ(result.type, seven.type) << operation.name;
      EXPECT_EQ(static_cast<double>(Variable(result)), operation.onIntegers(7, 7)) << operation.name;
    }
  }
  EXPECT_EQ(TakeHostCalls(), "");
}

TEST_F(ArithmeticTest, IntegersWrapAtTheirWidth) {
  EXPECT_TRUE(Holds(Apply(Add, Variable(INT_MAX), Variable(1)), INT_MIN));
  EXPECT_TRUE(Holds(Apply(Sub, Variable(INT_MIN), Variable(1)), INT_MAX));
  EXPECT_TRUE(Holds(Apply(Mul, Variable(0x10000), Variable(0x10001)), 0x10000));
  EXPECT_TRUE(Holds(Apply(Mul, Variable(INT_MIN), Variable(-1)), INT_MIN));
  EXPECT_TRUE(Holds(Apply(Add, Variable(LLONG_MAX), Variable(1LL)), LLONG_MIN));
  EXPECT_TRUE(Holds(Apply(Sub, Variable(LLONG_MIN), Variable(1LL)), LLONG_MAX));
  EXPECT_TRUE(Holds(Apply(Mul, Variable(LLONG_MAX), Variable(2LL)), -2LL));
}

TEST_F(ArithmeticTest, FloatsAreComputedInSinglePrecision) {
  EXPECT_TRUE(Holds(Apply(Add, Variable(0.1F), Variable(0.2F)), 0.1F + 0.2F));
  EXPECT_TRUE(Holds(Apply(Sub, Variable(1e8F), Variable(1.0F)), 1e8F));
  EXPECT_TRUE(Holds(Apply(Mul, Variable(1e30F), Variable(1e30F)), std::numeric_limits<float>::infinity()));
  EXPECT_TRUE(Holds(Apply(Div, Variable(1.0F), Variable(3.0F)), 1.0F / 3.0F));
  EXPECT_TRUE(Holds(Apply(Add, Variable(0.1), Variable(0.2)), 0.1 + 0.2));
  EXPECT_TRUE(Holds(Apply(Div, Variable(1.0), Variable(3.0)), 1.0 / 3.0));
}

TEST_F(ArithmeticTest, IntegersDivideTowardsZero) {
  EXPECT_TRUE(Holds(Apply(Div, Variable(7), Variable(2)), 3));
  EXPECT_TRUE(Holds(Apply(Div, Variable(-7), Variable(2)), -3));
  EXPECT_TRUE(Holds(Apply(Div, Variable(7LL), Variable(-2LL)), -3LL));
  EXPECT_TRUE(Holds(Apply(Rest, Variable(-7), Variable(2)), -1));
  EXPECT_TRUE(Holds(Apply(Rest, Variable(7), Variable(-2)), 1));
  EXPECT_TRUE(Holds(Apply(Rest, Variable(-7LL), Variable(-2LL)), -1LL));
}

TEST_F(ArithmeticTest, OthersByMinusOneAreTheirNegatives) {
  EXPECT_TRUE(Holds(Apply(Div, Variable(7), Variable(-1)), -7));
  EXPECT_TRUE(Holds(Apply(Div, Variable(-7LL), Variable(-1LL)), 7LL));
}

TEST_F(ArithmeticTest, SmallestIntegerByMinusOneIsItself) {
  EXPECT_TRUE(Holds(Apply(Div, Variable(INT_MIN), Variable(-1)), INT_MIN));
  EXPECT_TRUE(Holds(Apply(Div, Variable(LLONG_MIN), Variable(-1LL)), LLONG_MIN));
  EXPECT_TRUE(Holds(Apply(Rest, Variable(INT_MIN), Variable(-1)), 0));
  EXPECT_TRUE(Holds(Apply(Rest, Variable(LLONG_MIN), Variable(-1LL)), 0LL));
}

TEST_F(ArithmeticTest, AZeroDivisorLeavesTheSlotAsClearLeftIt) {
  constexpr long long kCleared = 0x5A5A5A5A5A5A5A5A;
  const auto leaves = [](InPlace compute, const Variable& a, const Variable& zero) {
    Host().clearedSlot = kCleared;
    const Variable result = Apply(compute, a, zero);
    Host().clearedSlot = 0;
    EXPECT_EQ(TakeError(), "10 Division by zero.");
    EXPECT_EQ(result.type, a.type);
    EXPECT_EQ(result.slot.int64, kCleared) << a.type;
  };
  for (const InPlace compute : {Div, Rest}) {
    leaves(compute, Byte(6), Byte(0));
    leaves(compute, Variable(6), Variable(0));
    leaves(compute, Variable(6LL), Variable(0LL));
  }
  leaves(Div, Variable(6.0F), Variable(0.0F));
  leaves(Div, Variable(6.0), Variable(0.0));
}

TEST_F(ArithmeticTest, ZeroDivisorsRaiseAndLeaveAZeroOfTheType) {
  const auto check = [](InPlace compute, const Variable& a, const Variable& zero) {
    const Variable result = Apply(compute, a, zero);
    EXPECT_EQ(devhost::RaisedCount(), 1);
    EXPECT_EQ(TakeError(), "10 Division by zero.");
    EXPECT_EQ(result.type, a.type);
    EXPECT_EQ(+result.slot.int64, 0);
  };
  for (const InPlace compute : {Div, Rest}) {
    check(compute, Byte(6), Byte(0));
    check(compute, Variable(6), Variable(0));
    check(compute, Variable(6LL), Variable(0LL));
  }
  check(Div, Variable(6.0F), Variable(0.0F));
  check(Div, Variable(6.0F), Variable(-0.0F));
  check(Div, Variable(6.0), Variable(0.0));
  check(Div, Variable(6.0), Variable(-0.0));
  EXPECT_EQ(TakeHostCalls(), "");
}

TEST_F(ArithmeticTest, ANumberThatIsNoneIsADivisor) {
  const Variable result = Apply(Div, Variable(6.0), Variable(std::nan("")));
  EXPECT_EQ(result.type, TVAR_DOUBLE);
  EXPECT_TRUE(std::isnan(result.slot.float64));
}

TEST_F(ArithmeticTest, OnlyIntegersHaveRemaindersHere) {
  EXPECT_TRUE(Holds(Apply(Rest, Variable(7.5), Variable(2.0)), 1.5));
  EXPECT_TRUE(Holds(Apply(Rest, Variable(7.5F), Variable(2.0F)), 1.5F));
  EXPECT_EQ(TakeHostCalls(), "Rest Rest");
}

TEST_F(ArithmeticTest, DifferentTypesGoToTheHost) {
  for (const Operation& operation : Operations()) {
    for (const Variable& a : Sevens()) {
      for (const Variable& b : Sevens()) {
        if (a.type == b.type) continue;
        const Variable result = Apply(operation.compute, a, b);
        EXPECT_EQ(TakeHostCalls(), operation.name);
        EXPECT_EQ(result.type, TopType(a.type, b.type));
        EXPECT_EQ(static_cast<double>(Variable(result)), operation.onIntegers(7, 7)) << operation.name;
      }
    }
  }
}

TEST_F(ArithmeticTest, WhatIsNoNumberGoesToTheHost) {
  EXPECT_EQ(devhost::TextOf(Apply(Add, Text("sun"), Text("flower"))), "sunflower");
  EXPECT_EQ(TakeHostCalls(), "Add");
  for (const InPlace compute : {Sub, Mul, Div, Rest}) {
    EXPECT_EQ(Apply(compute, Text("sun"), Text("flower")).type, devhost::kEmptyType);
    EXPECT_NE(TakeError(), "");
  }
  EXPECT_EQ(TakeHostCalls(), "Sub Mul Div Rest");
}

TEST_F(ArithmeticTest, TheResultMayBeAnOperand) {
  for (const Operation& operation : Operations()) {
    Variable a(17);
    operation.compute(a, a, Variable(5));
    EXPECT_TRUE(Holds(a, operation.onIntegers(17, 5))) << operation.name;
    Variable b = Byte(5);
    operation.compute(b, Byte(17), b);
    EXPECT_TRUE(Holds(b, static_cast<unsigned char>(operation.onIntegers(17, 5)))) << operation.name;
    Variable both(17LL);
    operation.compute(both, both, both);
    EXPECT_TRUE(Holds(both, static_cast<long long>(operation.onIntegers(17, 17)))) << operation.name;
  }
  Variable half(0.5);
  Div(half, half, half);
  EXPECT_TRUE(Holds(half, 1.0));
  Variable zero(0);
  Div(zero, zero, zero);
  EXPECT_EQ(TakeError(), "10 Division by zero.");
}

}  // namespace
