// Who computes for scripts: the host, or what a module exports.
#include <string>

#include "devhost/classes/register_classes.h"
#include "devhost/runtime/computations.h"
#include "tests/unit/support/script_runner.h"
#include "value/arithmetic.h"

namespace {

std::string operandTypes;

void NoteTypes(Variable& result, const Variable& a, const Variable& b) {
  operandTypes += std::to_string(a.type) + " " + std::to_string(b.type) + ";";
  result = 99;
}

// What the module exports, in the order of the operators.
constexpr devhost::Computations kExported = {Add, Sub, Mul, Div, Rest, Or, And, Xor};

class DevhostArithmeticTest : public testing::Test {
 protected:
  void SetUp() override {
    devhost::RegisterHostClasses();
    devhost::ClearError();
    operandTypes.clear();
  }
  void TearDown() override { devhost::UseComputations(devhost::kOwnComputations); }
};

TEST_F(DevhostArithmeticTest, NumbersOfOneTypeGoToTheComputations) {
  devhost::UseComputations({NoteTypes, NoteTypes, NoteTypes, NoteTypes, NoteTypes, NoteTypes, NoteTypes, NoteTypes});
  for (const char* op : {"+", "-", "*", "/", "%", "|", "&", "^"}) {
    EXPECT_EQ(ValueOf(std::string("6 ") + op + " 3"), "99") << op;
    EXPECT_EQ(operandTypes, "8 8;") << op;
    operandTypes.clear();
  }
  for (const char* type : {"byte", "int64", "float", "double"}) {
    EXPECT_EQ(ValueOf(std::string(type) + "(6) + " + type + "(3)"), "99") << type;
  }
  EXPECT_EQ(operandTypes, "4 4;2 2;16 16;32 32;");
}

TEST_F(DevhostArithmeticTest, EverythingElseStaysWithTheHost) {
  devhost::UseComputations({NoteTypes, NoteTypes, NoteTypes, NoteTypes, NoteTypes, NoteTypes, NoteTypes, NoteTypes});
  EXPECT_EQ(ValueOf("6 + 3.5"), "9.5");
  EXPECT_EQ(ValueOf("byte(6) * 3"), "18");
  EXPECT_EQ(ValueOf("\"sun\" + \"flower\""), "sunflower");
  EXPECT_EQ(operandTypes, "");
}

TEST_F(DevhostArithmeticTest, EachOperatorHasItsOwnComputation) {
  devhost::UseComputations(kExported);
  EXPECT_EQ(ValueOf("[6 + 4, 6 - 4, 6 * 4, 6 / 4, 6 % 4, 6 | 4, 6 & 4, 6 ^ 4]"), "[10, 2, 24, 1, 2, 6, 4, 2]");
  EXPECT_EQ(ValueOf("[byte(6) | byte(9), byte(6) & byte(9), byte(6) ^ byte(9)]"), "[6, 6, 0]");
}

// The module hands these back to the host, which must not hand them to the module again.
TEST_F(DevhostArithmeticTest, WhatTheModuleLeavesToTheHostIsComputedThere) {
  devhost::UseComputations(kExported);
  EXPECT_EQ(ValueOf("7.5 % 2.0"), "1.5");
  EXPECT_TRUE(HeadlineStarts("a = 7.5 | 2.0;", "1:9: error 20"));
}

TEST_F(DevhostArithmeticTest, ErrorsOfTheComputationStopTheScript) {
  devhost::UseComputations(kExported);
  EXPECT_EQ(HeadlineOf("a = 6;\nb = a / 0;\nPrint(b);"), "2:7: error 10 DIVISION_BY_ZERO: Division by zero.");
}

TEST_F(DevhostArithmeticTest, UnloadingEndsTheModulesArithmetic) {
  devhost::UseComputations(kExported);
  devhost::UnloadModules();
  EXPECT_EQ(ValueOf("byte(6) | byte(9)"), "15");
}

}  // namespace
