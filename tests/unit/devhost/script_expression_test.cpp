// Values, operators and built-in functions of the script language.
#include "devhost/classes/register_classes.h"
#include "tests/unit/support/script_runner.h"

namespace {

TEST(ScriptLiteralTest, NumbersHaveTypes) {
  EXPECT_EQ(ValueOf("2147483647"), "2147483647");
  EXPECT_EQ(ValueOf("2147483648"), "2147483648");
  EXPECT_EQ(ValueOf("0x10"), "16");
  EXPECT_EQ(ValueOf("0xFFFFFFFF"), "4294967295");
  EXPECT_EQ(ValueOf("9223372036854775807"), "9223372036854775807");
  EXPECT_EQ(ValueOf("1.5"), "1.5");
  EXPECT_EQ(ValueOf(".25"), "0.25");
  EXPECT_EQ(ValueOf("25e-1"), "2.5");
  EXPECT_EQ(ValueOf("7 / 2"), "3");
  EXPECT_EQ(ValueOf("7 / 2.0"), "3.5");
}

TEST(ScriptLiteralTest, TextsHaveEscapes) {
  EXPECT_EQ(ValueOf("\"a\\n\\t\\r\\\\\\\"\\'\\x41b\""), "a\n\t\r\\\"'Ab");
  EXPECT_EQ(ValueOf("\"a\\0b\" == \"a\\x00b\""), "1");
  EXPECT_EQ(ValueOf("\"\xC3\xA4\""), "\xC3\xA4");
}

TEST(ScriptLiteralTest, BooleansAreNumbers) { EXPECT_EQ(ValueOf("[true, false]"), "[1, 0]"); }

TEST(ScriptLiteralTest, ArraysNest) {
  EXPECT_EQ(ValueOf("[]"), "[]");
  EXPECT_EQ(ValueOf("[1, [2, \"x\"], []]"), "[1, [2, x], []]");
  EXPECT_EQ(ValueOf("[1, [2, 3]][1][0]"), "2");
}

TEST(ScriptOperatorTest, Arithmetic) {
  EXPECT_EQ(ValueOf("7 + 2"), "9");
  EXPECT_EQ(ValueOf("7 - 9"), "-2");
  EXPECT_EQ(ValueOf("7 * 2"), "14");
  EXPECT_EQ(ValueOf("7 % 4"), "3");
  EXPECT_EQ(ValueOf("6 & 3"), "2");
  EXPECT_EQ(ValueOf("6 | 3"), "7");
  EXPECT_EQ(ValueOf("6 ^ 3"), "5");
  EXPECT_EQ(ValueOf("\"a\" + \"b\""), "ab");
}

TEST(ScriptOperatorTest, Signs) {
  EXPECT_EQ(ValueOf("-3"), "-3");
  EXPECT_EQ(ValueOf("- -3"), "3");
  EXPECT_EQ(ValueOf("-2.5"), "-2.5");
  EXPECT_EQ(ValueOf("-3000000000"), "-3000000000");
  EXPECT_EQ(ValueOf("-(0x7FFFFFFF * -1 - 1)"), "-2147483648");
  EXPECT_EQ(ValueOf("~5"), "-6");
  EXPECT_EQ(ValueOf("!5"), "0");
  EXPECT_EQ(ValueOf("!\"\""), "1");
  EXPECT_EQ(HeadlineOf("a = ~1.5;"), "1:5: error 20 CONVERSION: '~' needs integers; this is of the kind number.");
}

TEST(ScriptOperatorTest, Shifts) {
  EXPECT_EQ(ValueOf("1 << 31"), "-2147483648");
  EXPECT_EQ(ValueOf("-8 >> 1"), "-4");
  EXPECT_EQ(ValueOf("0x100000000 << 4"), "68719476736");
  EXPECT_EQ(HeadlineOf("a = 1 << 32;"), "1:7: error 20 CONVERSION: A shift's count lies between 0 and 31.");
  EXPECT_EQ(HeadlineOf("a = 1 << -1;"), "1:7: error 20 CONVERSION: A shift's count lies between 0 and 31.");
  EXPECT_EQ(HeadlineOf("a = 0x100000000 >> 64;"), "1:17: error 20 CONVERSION: A shift's count lies between 0 and 63.");
}

TEST(ScriptOperatorTest, Comparisons) {
  EXPECT_EQ(ValueOf("[1 < 2, 2 < 2, 2 <= 2, 3 > 2, 2 > 2, 2 >= 2]"), "[1, 0, 1, 1, 0, 1]");
  EXPECT_EQ(ValueOf("[1 == 1.0, 1 != 1, \"a\" == \"a\", \"a\" != \"b\", \"a\" < \"b\"]"), "[1, 0, 1, 1, 1]");
}

TEST(ScriptOperatorTest, NothingComparesWithNan) {
  EXPECT_EQ(RunScript("inf = 1e308 * 10; nan = inf - inf; return [nan < 1, nan <= 1, 1 > nan, 1 >= nan, nan == nan];"),
            "[0, 0, 0, 0, 0]");
}

TEST(ScriptOperatorTest, LogicIsShort) {
  EXPECT_EQ(ValueOf("[1 && 2, 1 && 0, 0 || 3, 0 || 0]"), "[1, 0, 1, 0]");
  EXPECT_EQ(
      RunScript("n = [0]; function F() { n[0] += 1; return true; } a = false && F(); b = true || F(); return n[0];"),
      "0");
  EXPECT_EQ(
      RunScript("n = [0]; function F() { n[0] += 1; return true; } a = true && F(); b = false || F(); return n[0];"),
      "2");
}

TEST(ScriptOperatorTest, ObjectsUseTheirMethods) {
  devhost::RegisterHostClasses();
  EXPECT_EQ(RunScript("p = new POINT3(1, 2, 3); p.x += 4; p->y = 7; q = p; q.z = 0; return [p.x, p->y, p.z];"),
            "[5, 7, 0]");
  EXPECT_EQ(RunScript("m = new Matrix(1, 1); m[0][0] = 3; m *= 2; return m[0][0] * 1.0;"), "6");
  EXPECT_EQ(RunScript("v = new Vector(); for (i = 0; i < 3; i += 1) v->Add(i * i); return [v->Size(), v[2]];"),
            "[3, 4]");
}

TEST(ScriptOperatorTest, Precedence) {
  EXPECT_EQ(ValueOf("1 + 2 * 3 - 4 / 2"), "5");
  EXPECT_EQ(ValueOf("(1 + 2) * 3"), "9");
  EXPECT_EQ(ValueOf("10 - 4 - 3"), "3");
  EXPECT_EQ(ValueOf("1 << 2 + 1"), "8");
  EXPECT_EQ(ValueOf("1 + 1 < 3 == true"), "1");
  EXPECT_EQ(ValueOf("1 | 6 & 3 ^ 2"), "1");
  EXPECT_EQ(ValueOf("4 & 4 == 4"), "0");
  EXPECT_EQ(ValueOf("1 || 0 && 0"), "1");
  EXPECT_EQ(ValueOf("-2 * -3"), "6");
  EXPECT_EQ(ValueOf("!0 + 1"), "2");
  EXPECT_EQ(ValueOf("-[4][0]"), "-4");
}

TEST(ScriptOperatorTest, EvaluatesFromLeftToRight) {
  EXPECT_EQ(RunScript("log = [\"\"]; function L(t) { log[0] += t; return 1; } a = L(\"a\") + L(\"b\") * L(\"c\"); "
                      "b = [L(\"d\"), L(\"e\")][L(\"f\") - 1]; return log[0];"),
            "abcdef");
}

TEST(ScriptOperatorTest, AnIndexMayReplaceItsArray) {
  EXPECT_EQ(RunScript("a = [[1, 2], 3]; function F() { a[0] = [8, 9]; return 1; } return [a[0][F()], a[0][1]];"),
            "[2, 9]");
}

TEST(ScriptBuiltinTest, PrintSeparatesByBlanks) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(RunScript("Print(\"a\", 1, [2.5]); Print(); return 0;"), "0");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "a 1 [2.5]\n\n");
}

TEST(ScriptBuiltinTest, AssertShowsTheCondition) {
  EXPECT_EQ(RunScript("Assert(1 < 2); Assert(true, \"fine\"); return 1;"), "1");
  EXPECT_EQ(HeadlineOf("x = 3; Assert( x ==  4 );"), "1:8: error 24 ASSERTION: Assertion failed: x ==  4");
  EXPECT_EQ(HeadlineOf("Assert(!(1 < 2), \"odd\");"), "1:1: error 24 ASSERTION: Assertion failed: !(1 < 2) (odd)");
}

TEST(ScriptBuiltinTest, ChecksTheNumberOfArguments) {
  EXPECT_EQ(HeadlineOf("Assert();"), "1:1: error 22 NO_OVERLOAD: Assert takes other arguments.");
  EXPECT_EQ(HeadlineOf("Fail(1, 2);"), "1:1: error 22 NO_OVERLOAD: Fail takes other arguments.");
}

TEST(ScriptBuiltinTest, TellsAboutValues) {
  EXPECT_EQ(RunScript("return [TypeOf(1), TypeOf(\"\"), ErrorName(10), ErrorName(9999)];"),
            "[number, String, DIVISION_BY_ZERO, ]");
  EXPECT_TRUE(HeadlineStarts("Raise([], \"t\");", "1:1: error 20 CONVERSION: "));
}

TEST(ScriptBuiltinTest, MayBeHiddenByAFunction) {
  EXPECT_EQ(RunScript("function Fail(x) { return x; } return Fail(3);"), "3");
}

TEST(ScriptCompileTest, TextsBecomeFunctions) {
  const Variable function(TVAR_FUNCTION, const_cast<char*>("param a, b; return a - b;"));
  devhost::Function* compiled = devhost::FunctionOf(function);
  ASSERT_NE(compiled, nullptr);
  for (const int first : {10, 20}) {
    Variable args[] = {Variable(first), Variable(3)};
    Variable result;
    ASSERT_TRUE(compiled->Call(result, args));
    EXPECT_EQ(int(result), first - 3);
  }
}

TEST(ScriptCompileTest, MatrixProgramRuns) {
  devhost::RegisterHostClasses();
  const Variable program(TVAR_FUNCTION,
                         const_cast<char*>("param FullMatr, LookMatr; return LookMatr->Inverse() * FullMatr;"));
  Variable sizes[] = {Variable(4), Variable(4)};
  Variable args[2];
  for (Variable& matrix : args) {
    ASSERT_TRUE(devhost::Construct(matrix, "Matrix", sizes));
    for (int i = 0; i < 4; ++i) matrix[i][i] = 1.0;
  }
  args[0][0][3] = 5.0;
  args[0][2][2] = 8.0;
  args[1][0][3] = 2.0;
  args[1][2][2] = 4.0;
  Variable result;
  ASSERT_TRUE(devhost::FunctionOf(program)->Call(result, args)) << devhost::PendingError()->text;
  EXPECT_EQ(devhost::KindOf(result), "Matrix");
  EXPECT_EQ(double(result[0][3]), 3.0);
  EXPECT_EQ(double(result[2][2]), 2.0);
  EXPECT_EQ(double(result[1][1]), 1.0);
}

TEST(ScriptCompileTest, AnErrorHasItsPlace) {
  EXPECT_EQ(devhost::CompileFunction("return 1 +;"), nullptr);
  ASSERT_NE(devhost::PendingError(), nullptr);
  EXPECT_EQ(devhost::PendingError()->code, devhost::kErrorSyntax);
  EXPECT_EQ(devhost::PendingError()->text,
            "function text:1:11: expected a value, found ';'\n  return 1 +;\n            ^\n");
  devhost::ClearError();
}

TEST(ScriptCompileTest, DefinesFunctionsOfItsOwn) {
  const Variable function(TVAR_FUNCTION,
                          const_cast<char*>("param a; function Twice(x) { return 2 * x; } return Twice(a);"));
  Variable args[] = {Variable(4)};
  Variable result;
  ASSERT_TRUE(devhost::FunctionOf(function)->Call(result, args));
  EXPECT_EQ(int(result), 8);
}

}  // namespace
