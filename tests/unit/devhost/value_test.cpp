#include <climits>
#include <cmath>

#include "tests/unit/support/devhost_fixture.h"

namespace {

using devhost::Compute;
using devhost::KindOf;
using devhost::Operator;
using devhost::TextOf;

class DevhostValueTest : public DevhostTest {
 protected:
  static std::string ComputedText(const Variable& a, Operator op, const Variable& b) {
    Variable result;
    return Compute(result, op, a, b) ? TextOf(result) : "failed";
  }
  static int ComputedType(const Variable& a, const Variable& b) {
    Variable result;
    Compute(result, Operator::Add, a, b);
    return result.type;
  }
};

TEST_F(DevhostValueTest, ConvertsEveryNumericType) {
  for (Variable value :
       {Variable(static_cast<unsigned char>(7)), Variable(7), Variable(7LL), Variable(7.0f), Variable(7.0)}) {
    EXPECT_EQ(static_cast<int>(value), 7);
    EXPECT_EQ(static_cast<unsigned long>(value), 7u);
    EXPECT_EQ(static_cast<float>(value), 7.0f);
    EXPECT_EQ(static_cast<double>(value), 7.0);
    EXPECT_EQ(value.IsNumber(), 1);
  }
}

TEST_F(DevhostValueTest, FloatsOutsideAnIntegersRangeGiveTheNearest) {
  EXPECT_EQ(static_cast<int>(Variable(1e30)), INT_MAX);
  EXPECT_EQ(static_cast<int>(Variable(-1e30)), INT_MIN);
  EXPECT_EQ(static_cast<int>(Variable(std::nan(""))), 0);
  EXPECT_EQ(static_cast<int>(Variable(0x1'0000'0003LL)), 3);
}

TEST_F(DevhostValueTest, AFailedConversionRaisesAndGivesZero) {
  Variable text = Text("12");
  EXPECT_EQ(static_cast<float>(text), 0.0f);
  EXPECT_NE(devhost::CurrentProcessor()->GetErrorStatus(), 0);
  EXPECT_EQ(TakeError(), "20 A number is needed here, not String.");
  Variable number(5);
  EXPECT_EQ(static_cast<unsigned char*>(number), nullptr);
  EXPECT_EQ(TakeError(), "20 A String is needed here, not number.");
  EXPECT_EQ(devhost::CurrentProcessor()->GetErrorStatus(), 0);
}

TEST_F(DevhostValueTest, PromotesToTheWiderType) {
  const Variable byte(static_cast<unsigned char>(1));
  EXPECT_EQ(ComputedType(byte, byte), TVAR_BYTE);
  EXPECT_EQ(ComputedType(byte, Variable(1)), TVAR_INT32);
  EXPECT_EQ(ComputedType(byte, Variable(1LL)), TVAR_INT64);
  EXPECT_EQ(ComputedType(Variable(1), Variable(1LL)), TVAR_INT64);
  EXPECT_EQ(ComputedType(Variable(1LL), Variable(1.0f)), TVAR_FLOAT);
  EXPECT_EQ(ComputedType(Variable(1), Variable(1.0f)), TVAR_FLOAT);
  EXPECT_EQ(ComputedType(Variable(1.0f), Variable(1.0)), TVAR_DOUBLE);
}

TEST_F(DevhostValueTest, IntegersWrap) {
  EXPECT_EQ(ComputedText(Variable(INT_MAX), Operator::Add, Variable(1)), std::to_string(INT_MIN));
  EXPECT_EQ(ComputedText(Variable(LLONG_MAX), Operator::Multiply, Variable(2LL)), "-2");
  EXPECT_EQ(ComputedText(Variable(static_cast<unsigned char>(3)), Operator::Subtract,
                         Variable(static_cast<unsigned char>(5))),
            "254");
  EXPECT_EQ(ComputedText(Variable(INT_MIN), Operator::Divide, Variable(-1)), std::to_string(INT_MIN));
  EXPECT_EQ(ComputedText(Variable(INT_MIN), Operator::Remainder, Variable(-1)), "0");
  EXPECT_EQ(ComputedText(Variable(LLONG_MIN), Operator::Divide, Variable(-1LL)), std::to_string(LLONG_MIN));
}

TEST_F(DevhostValueTest, DividesTowardsZero) {
  EXPECT_EQ(ComputedText(Variable(-7), Operator::Divide, Variable(2)), "-3");
  EXPECT_EQ(ComputedText(Variable(-7), Operator::Remainder, Variable(2)), "-1");
  EXPECT_EQ(ComputedText(Variable(7.5), Operator::Remainder, Variable(2)), "1.5");
}

TEST_F(DevhostValueTest, DivisionByZeroRaises) {
  for (const Variable& zero : {Variable(0), Variable(0LL), Variable(static_cast<unsigned char>(0)), Variable(0.0)}) {
    EXPECT_EQ(ComputedText(Variable(1), Operator::Divide, zero), "failed");
    EXPECT_EQ(TakeError(), "10 Division by zero.");
    EXPECT_EQ(ComputedText(Variable(1), Operator::Remainder, zero), "failed");
    EXPECT_EQ(TakeError(), "10 Division by zero.");
  }
}

TEST_F(DevhostValueTest, BitOperatorsNeedIntegers) {
  EXPECT_EQ(ComputedText(Variable(6), Operator::And, Variable(3)), "2");
  EXPECT_EQ(ComputedText(Variable(6), Operator::Or, Variable(3)), "7");
  EXPECT_EQ(ComputedText(Variable(6), Operator::Xor, Variable(3)), "5");
  EXPECT_EQ(ComputedText(Variable(6.0), Operator::Or, Variable(3)), "failed");
  EXPECT_EQ(TakeError(), "20 The operator | works on integers.");
}

TEST_F(DevhostValueTest, TextsAreJoined) {
  EXPECT_EQ(ComputedText(Text("a"), Operator::Add, Text("b")), "ab");
  EXPECT_EQ(ComputedText(Text("n = "), Operator::Add, Variable(1.5)), "n = 1.5");
  EXPECT_EQ(ComputedText(Text("a"), Operator::Subtract, Text("b")), "failed");
  EXPECT_EQ(TakeError(), "20 The operator - does not work on String and String.");
}

TEST_F(DevhostValueTest, ObjectsComputeThroughTheirOperatorMethods) {
  const Variable point = NewObject("POINT3", {Variable(1), Variable(2), Variable(3)});
  EXPECT_EQ(ComputedText(point, Operator::Multiply, Variable(2)), "POINT3(2, 4, 6)");
  EXPECT_EQ(ComputedText(point, Operator::Add, point), "POINT3(2, 4, 6)");
  EXPECT_EQ(ComputedText(point, Operator::Remainder, point), "failed");
  EXPECT_EQ(TakeError(), "20 The operator % does not work on POINT3 and POINT3.");
}

TEST_F(DevhostValueTest, TheHostsArithmeticWritesTheResult) {
  Variable result(5);
  __MulNumb(result, Variable(3), Variable(2.5));
  EXPECT_EQ(TextOf(result), "7.5");
  _AndNumb(result, Variable(6), Variable(3LL));
  EXPECT_EQ(result.type, TVAR_INT64);
  EXPECT_EQ(TextOf(result), "2");
  __DivNumb(result, Variable(6), Variable(0));
  EXPECT_EQ(TakeError(), "10 Division by zero.");
  __SubNumb(result, Text("a"), Variable(0));
  EXPECT_EQ(result.type, devhost::kEmptyType);
  EXPECT_NE(TakeError(), "");
}

TEST_F(DevhostValueTest, ComparesNumbersAndTexts) {
  int order = 0;
  EXPECT_TRUE(devhost::Compare(order, Variable(2), Variable(2.5)));
  EXPECT_LT(order, 0);
  EXPECT_TRUE(devhost::Compare(order, Variable(LLONG_MAX), Variable(LLONG_MAX - 1)));
  EXPECT_GT(order, 0);
  EXPECT_TRUE(devhost::Compare(order, Text("b"), Text("a")));
  EXPECT_GT(order, 0);
  EXPECT_FALSE(devhost::Compare(order, Text("1"), Variable(1)));
  EXPECT_EQ(TakeError(), "20 String and number cannot be compared by size.");
}

TEST_F(DevhostValueTest, EqualityIsByValueOrIdentity) {
  EXPECT_TRUE(devhost::Equal(Variable(2), Variable(2.0)));
  EXPECT_TRUE(devhost::Equal(Text("a"), Text("a")));
  EXPECT_FALSE(devhost::Equal(Text("1"), Variable(1)));
  EXPECT_TRUE(devhost::Equal(Variable(), Variable()));
  const Variable array = Vector({Variable(1)});
  Variable same;
  devhost::Assign(same, array);
  EXPECT_TRUE(devhost::Equal(array, same));
  EXPECT_FALSE(devhost::Equal(array, Vector({Variable(1)})));
}

TEST_F(DevhostValueTest, ByteStringsCarryAZeroPastTheEnd) {
  Variable bytes;
  bytes.Init(TVAR_BYTES, 3);
  ASSERT_NE(bytes.GetString(), nullptr);
  EXPECT_EQ(bytes.GetString()->length, 3);
  for (int i = 0; i <= 3; ++i) EXPECT_EQ(bytes.GetString()->bytes[i], 0);
  bytes = Name("Hello");
  EXPECT_EQ(bytes.GetString()->length, 5);
  EXPECT_STREQ(reinterpret_cast<char*>(bytes.GetString()->bytes), "Hello");
  bytes.Init(TVAR_BYTES, -4);
  EXPECT_EQ(bytes.GetString()->length, 0);
  EXPECT_EQ(Variable(5).GetString(), nullptr);
}

TEST_F(DevhostValueTest, ArraysGiveElementsAndScratch) {
  Variable array = Vector({Variable(1), Vector({Variable(2), Variable(3)})});
  EXPECT_EQ(array.GetType(), TVAR_ARRAY);
  EXPECT_EQ(array.GetDim(), 2);
  EXPECT_EQ(static_cast<int>(array[1][1]), 3);
  array[1][1] = 2.5f;
  EXPECT_EQ(TextOf(array), "[1, [2, 2.5]]");
  EXPECT_EQ(array[7].GetType(), devhost::kEmptyType);
  EXPECT_EQ(array[-1].GetType(), devhost::kEmptyType);
  Variable empty;
  empty.Init(TVAR_ARRAY, -3);
  EXPECT_EQ(empty.GetDim(), 0);
  EXPECT_EQ(empty[0].IsNumber(), 0);
  empty.Init(TVAR_ARRAY, INT_MAX);
  EXPECT_EQ(TakeError(), "20 An array of 2147483647 elements is too long.");
  EXPECT_EQ(empty.GetDim(), 0);
}

TEST_F(DevhostValueTest, AssigningSharesArraysAndCopiesNumbers) {
  Variable array = Vector({Variable(1)});
  Variable other;
  devhost::Assign(other, array);
  other[0] = 9;
  EXPECT_EQ(static_cast<int>(array[0]), 9);
  devhost::Assign(array, array[0]);  // the element outlives its array
  EXPECT_EQ(TextOf(array), "9");
  devhost::Assign(other, other);
  EXPECT_EQ(TextOf(other), "[9]");
}

TEST_F(DevhostValueTest, ElementsAreRangeChecked) {
  Variable array = Vector({Variable(4)});
  Variable index(0.0);
  ASSERT_NE(devhost::Element(array, index), nullptr);
  index = 1;
  EXPECT_EQ(devhost::Element(array, index), nullptr);
  EXPECT_EQ(TakeError(), "20 Index 1 lies outside the 1 elements of the Vector.");
  index = Name("x");
  EXPECT_EQ(devhost::Element(array, index), nullptr);
  EXPECT_EQ(TakeError(), "20 An index is a number, not String.");
  Variable number(3);
  EXPECT_EQ(devhost::Element(number, index), nullptr);
  EXPECT_EQ(TakeError(), "20 A number has no elements.");
  Variable text = Text("AB");
  index = 1;
  EXPECT_EQ(TextOf(*devhost::Element(text, index)), "66");
}

TEST_F(DevhostValueTest, TruthAndKinds) {
  EXPECT_FALSE(devhost::IsTrue(Variable()));
  EXPECT_FALSE(devhost::IsTrue(Variable(0.0)));
  EXPECT_TRUE(devhost::IsTrue(Variable(0.5)));
  EXPECT_FALSE(devhost::IsTrue(Text("")));
  EXPECT_TRUE(devhost::IsTrue(Text("0")));
  EXPECT_FALSE(devhost::IsTrue(Vector({})));
  EXPECT_TRUE(devhost::IsTrue(NewObject("POINT3")));
  EXPECT_EQ(KindOf(Variable()), "nothing");
  EXPECT_EQ(KindOf(Variable(1.5f)), "number");
  EXPECT_EQ(KindOf(Text("a")), "String");
  EXPECT_EQ(KindOf(Vector({})), "Vector");
  EXPECT_EQ(KindOf(NewObject("POINT3")), "POINT3");
}

TEST_F(DevhostValueTest, NumbersPrintShortestAndExact) {
  EXPECT_EQ(TextOf(Variable(0.1f)), "0.1");
  EXPECT_EQ(TextOf(Variable(0.1)), "0.1");
  EXPECT_EQ(TextOf(Variable(1.0 / 3)), "0.3333333333333333");
  EXPECT_EQ(TextOf(Variable(1.0f / 3)), "0.33333334");
  EXPECT_EQ(TextOf(Variable(16777216.0f)), "16777216");
  EXPECT_EQ(TextOf(Variable(LLONG_MIN)), "-9223372036854775808");
}

TEST_F(DevhostValueTest, AnArrayWithinItselfPrints) {
  Variable array = Vector({Variable(1)});
  devhost::Assign(array[0], array);
  EXPECT_THAT(TextOf(array), HasSubstr("..."));
  array[0] = 0;
}

TEST_F(DevhostValueTest, ReferencesAreFollowed) {
  Variable number(3);
  Variable reference;
  reference.type = devhost::kReferenceType;
  reference.slot.pointer = &number;
  EXPECT_EQ(reference.IsPointer(), 1);
  EXPECT_EQ(reference.GetPointer(), &number);
  EXPECT_EQ(number.IsPointer(), 0);
  EXPECT_EQ(number.GetPointer(), nullptr);
  EXPECT_EQ(TextOf(reference), "3");
}

}  // namespace
