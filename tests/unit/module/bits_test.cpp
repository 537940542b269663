// The exported bit operations: Or, And, Xor and | & ^.
#include "tests/unit/support/value_fixture.h"

namespace {

using BitsTest = ValueTest;

// Each operation in both its forms.
template <class Check>
void ForBothForms(InPlace inPlace, ByValue byValue, Check check) {
  check([inPlace](const Variable& a, const Variable& b) { return Apply(inPlace, a, b); });
  check([byValue](const Variable& a, const Variable& b) { return Apply(byValue, a, b); });
}

TEST_F(BitsTest, IntegersKeepTheirWidth) {
  ForBothForms(Or, operator|, [](auto compute) {
    EXPECT_TRUE(Holds(compute(Variable(0x0F0F), Variable(0x00FF)), 0x0FFF));
    EXPECT_TRUE(Holds(compute(Variable(INT_MIN), Variable(1)), INT_MIN + 1));
    EXPECT_TRUE(Holds(compute(Variable(1LL << 40), Variable(1LL)), (1LL << 40) + 1));
  });
  ForBothForms(And, operator&, [](auto compute) {
    EXPECT_TRUE(Holds(compute(Variable(0x0F0F), Variable(0x00FF)), 0x000F));
    EXPECT_TRUE(Holds(compute(Variable(-1LL), Variable(1LL << 40)), 1LL << 40));
  });
  ForBothForms(Xor, operator^, [](auto compute) {
    EXPECT_TRUE(Holds(compute(Variable(0x0F0F), Variable(0x00FF)), 0x0FF0));
    EXPECT_TRUE(Holds(compute(Variable(-1LL), Variable(1LL << 40)), ~(1LL << 40)));
  });
  EXPECT_EQ(TakeHostCalls(), "");
}

TEST_F(BitsTest, TwoBytesAreTheFirstWithItselfForEveryPair) {
  const auto count = [](InPlace inPlace, ByValue byValue, auto expected) {
    int wrong = 0;
    ForBothForms(inPlace, byValue, [&](auto compute) {
      wrong += CountWrongPairs(
          [&](int a, int b) { return static_cast<bool>(Holds(compute(Byte(a), Byte(b)), expected(a))); });
    });
    return wrong;
  };
  EXPECT_EQ(count(Or, operator|, [](int a) { return a; }), 0);
  EXPECT_EQ(count(And, operator&, [](int a) { return a; }), 0);
  EXPECT_EQ(count(Xor, operator^, [](int) { return 0; }), 0);
  EXPECT_EQ(TakeHostCalls(), "");
}

TEST_F(BitsTest, DifferentTypesGoToTheHost) {
  const auto check = [](const char* name, int expected) {
    return [=](auto compute) {
      EXPECT_TRUE(Holds(compute(Variable(12), Byte(10)), expected));
      EXPECT_TRUE(Holds(compute(Byte(12), Variable(10LL)), static_cast<long long>(expected)));
      EXPECT_EQ(TakeHostCalls(), std::string(name) + " " + name);
    };
  };
  ForBothForms(Or, operator|, check("Or", 14));
  ForBothForms(And, operator&, check("And", 8));
  ForBothForms(Xor, operator^, check("Xor", 6));
}

TEST_F(BitsTest, WhatHasNoBitsGoesToTheHost) {
  const auto check = [](const char* name) {
    return [=](auto compute) {
      for (const auto& [a, b] : {std::pair(Variable(12.0F), Variable(10.0F)), std::pair(Variable(12.0), Variable(10.0)),
                                 std::pair(Text("sun"), Text("flower"))}) {
        EXPECT_NE(compute(a, b).type, TVAR_INT32);
        EXPECT_NE(TakeError(), "");
        EXPECT_EQ(TakeHostCalls(), name);
      }
    };
  };
  ForBothForms(Or, operator|, check("Or"));
  ForBothForms(And, operator&, check("And"));
  ForBothForms(Xor, operator^, check("Xor"));
}

TEST_F(BitsTest, TheResultMayBeAnOperand) {
  Variable a(12);
  Variable b(10);
  Or(a, a, b);
  EXPECT_TRUE(Holds(a, 14));
  Xor(b, a, b);
  EXPECT_TRUE(Holds(b, 4));
  And(b, b, b);
  EXPECT_TRUE(Holds(b, 4));
  Variable byte = Byte(12);
  Or(byte, byte, Byte(1));
  EXPECT_TRUE(Holds(byte, 12));
}

}  // namespace
