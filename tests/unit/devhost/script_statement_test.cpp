// Statements, variables and functions of the script language.
#include "tests/unit/support/script_runner.h"

namespace {

TEST(ScriptStatementTest, AssignsVariables) {
  EXPECT_EQ(RunScript("a = 1; b = a + 1; a = 5; return [a, b];"), "[5, 2]");
}

TEST(ScriptStatementTest, CombinesAndAssigns) {
  EXPECT_EQ(RunScript("a = 7; a += 3; a -= 1; a *= 4; a /= 2; return a;"), "18");
  EXPECT_EQ(RunScript("a = [1, [2, 3]]; a[0] += 10; a[1][1] *= 5; return a;"), "[11, [2, 15]]");
  EXPECT_EQ(RunScript("t = \"a\"; t += \"b\"; return t;"), "ab");
}

TEST(ScriptStatementTest, ArraysAreShared) { EXPECT_EQ(RunScript("a = [1]; b = a; b[0] = 2; return a;"), "[2]"); }

TEST(ScriptStatementTest, WritesBytesOfTexts) {
  EXPECT_EQ(RunScript("t = \"cat\"; t[0] = 98; return t;"), "bat");
  EXPECT_EQ(RunScript("function F() { t = \"cat\"; t[0] = 98; return t; } F(); return F();"), "bat");
  EXPECT_EQ(HeadlineOf("t = \"cat\"; t[0] = 256;"),
            "1:13: error 20 CONVERSION: An element of a text is a byte: it lies between 0 and 255.");
}

TEST(ScriptStatementTest, ChoosesBranches) {
  const std::string script =
      "param x; if (x == \"1\") r = \"one\"; else if (x == \"2\") { r = \"two\"; } else r = \"many\"; return r;";
  EXPECT_EQ(RunScript(script, {"1"}), "one");
  EXPECT_EQ(RunScript(script, {"2"}), "two");
  EXPECT_EQ(RunScript(script, {"3"}), "many");
  EXPECT_EQ(RunScript("if (0) if (1) return 1; else return 2; return 3;"), "3");
}

TEST(ScriptStatementTest, RepeatsWhile) {
  EXPECT_EQ(
      RunScript("i = 0; s = 0; while (i < 5) { i += 1; if (i == 2) continue; if (i == 4) break; s += i; } return s;"),
      "4");
}

TEST(ScriptStatementTest, RepeatsFor) {
  EXPECT_EQ(RunScript("s = 0; for (i = 1; i <= 4; i += 1) s += i; return [s, i];"), "[10, 5]");
  EXPECT_EQ(RunScript("s = 0; for (i = 0; i < 9; i += 1) { if (i % 2) continue; if (i > 6) break; s += i; } return s;"),
            "12");
  EXPECT_EQ(RunScript("i = 0; for (;;) { i += 1; if (i == 3) return i; }"), "3");
}

TEST(ScriptStatementTest, LeavesOnlyTheInnermostLoop) {
  EXPECT_EQ(RunScript("n = 0; for (i = 0; i < 3; i += 1) { while (true) { n += 1; break; } } return n;"), "3");
}

TEST(ScriptStatementTest, TakesParameters) {
  EXPECT_EQ(RunScript("param a, b; return b + a;", {"x", "y"}), "yx");
  EXPECT_EQ(RunScript("param a, b; return TypeOf(b);", {"x"}), "nothing");
  EXPECT_EQ(RunScript("param; return 1;"), "1");
}

TEST(ScriptStatementTest, RefusesArgumentsWithoutParameter) {
  EXPECT_EQ(RunScript("param a;\nreturn a;", {"x", "y"}),
            "test.talq:1:1: error 22 NO_OVERLOAD: The script takes at most 1 argument; the call has 2 arguments.\n"
            "  param a;\n"
            "  ^\n");
}

TEST(ScriptStatementTest, LastSemicolonMayBeMissing) { EXPECT_EQ(RunScript("a = 2; return a"), "2"); }

TEST(ScriptStatementTest, EmptyStatementsDoNothing) { EXPECT_EQ(RunScript(";;{}{;} return 1;"), "1"); }

TEST(ScriptStatementTest, SkipsComments) {
  EXPECT_EQ(RunScript("// one\na = /* two\n */ 3; // four\nreturn a; // end"), "3");
}

TEST(ScriptFunctionsTest, ReturnValues) {
  EXPECT_EQ(RunScript("function Twice(x) { return 2 * x; } return Twice(Twice(3));"), "12");
  EXPECT_EQ(RunScript("function F() { } return TypeOf(F());"), "nothing");
  EXPECT_EQ(RunScript("function F() { return; } return TypeOf(F());"), "nothing");
}

TEST(ScriptFunctionsTest, AreKnownBeforeTheirDefinition) {
  EXPECT_EQ(RunScript("return Twice(4); function Twice(x) { return x + x; }"), "8");
}

TEST(ScriptFunctionsTest, Recurse) {
  EXPECT_EQ(RunScript("function F(n) { if (n <= 1) return 1; return n * F(n - 1); } return F(10);"), "3628800");
}

TEST(ScriptFunctionsTest, ReadScriptVariables) {
  EXPECT_EQ(RunScript("k = 3; function F(x) { return k * x; } return F(5);"), "15");
}

TEST(ScriptFunctionsTest, AssignVariablesOfTheirOwn) {
  EXPECT_EQ(RunScript("k = 3; function F() { k = 9; return k; } return [F(), k];"), "[9, 3]");
  EXPECT_EQ(HeadlineOf("k = 3; function F() { k += 1; } F();"),
            "1:23: error 21 UNKNOWN_NAME: The variable 'k' has no value yet: this function assigns it, which makes it "
            "local.");
}

TEST(ScriptFunctionsTest, ChangeSharedArrays) {
  EXPECT_EQ(RunScript("count = [0]; function F() { count[0] += 1; } F(); F(); return count[0];"), "2");
}

TEST(ScriptFunctionsTest, AreValues) {
  EXPECT_EQ(RunScript("function Add(a, b) { return a + b; } f = Add; table = [f]; return f(1, 2) + table[0](3, 4);"),
            "10");
  EXPECT_EQ(RunScript("function Call(f, x) { return f(x); } function Neg(x) { return -x; } return Call(Neg, 4);"),
            "-4");
  EXPECT_EQ(RunScript("function F() { return 1; } return TypeOf(F);"), "function");
}

TEST(ScriptFunctionsTest, CheckTheirArguments) {
  EXPECT_EQ(HeadlineOf("function F(a, b) { return a; }\nF(1);"),
            "2:1: error 22 NO_OVERLOAD: The function 'F' takes 2 arguments; the call has 1 argument.");
  EXPECT_EQ(HeadlineOf("f = 3; f(1);"), "1:8: error 20 CONVERSION: This is no function, but of the kind number.");
}

TEST(ScriptFunctionsTest, EndWithTheirScript) {
  Variable escaped;
  {
    devhost::script::SyntaxError error;
    const auto program = devhost::script::Parse("function F() { return 1; } return F;", "test.talq", nullptr, error);
    devhost::script::Script script(*program);
    ASSERT_TRUE(script.Run(escaped, {}));
  }
  Variable result;
  ASSERT_NE(devhost::FunctionOf(escaped), nullptr);
  EXPECT_FALSE(devhost::FunctionOf(escaped)->Call(result, {}));
  EXPECT_EQ(devhost::PendingError()->text, "The script of the function 'F' has ended.");
  devhost::ClearError();
}

TEST(ScriptTryTest, CatchesCodeAndText) {
  EXPECT_EQ(RunScript("try { Fail(\"no\"); } catch (code, text) { return [code, text]; } return 0;"), "[27, no]");
  EXPECT_EQ(RunScript("try { a = 1 / 0; } catch (c, t) { return ErrorName(c); }"), "DIVISION_BY_ZERO");
  EXPECT_EQ(RunScript("try { Raise(8, \"short\"); } catch (c, t) { return [c, t]; }"), "[8, short]");
}

TEST(ScriptTryTest, SkipsTheHandlerWithoutError) {
  EXPECT_EQ(RunScript("r = 1; try { r = 2; } catch (c, t) { r = 3; } return r;"), "2");
  EXPECT_EQ(RunScript("for (;;) { try { break; } catch (c, t) { } } return 4;"), "4");
}

TEST(ScriptTryTest, CatchesFromFunctions) {
  EXPECT_EQ(RunScript("function F() { Fail(\"deep\"); } function G() { F(); } try { G(); } catch (c, t) { return t; }"),
            "deep");
  EXPECT_EQ(RunScript("function F() { try { Fail(\"x\"); } catch (c, t) { return t; } } return F();"), "x");
}

TEST(ScriptTryTest, HandlersMayFailAgain) {
  EXPECT_EQ(HeadlineOf("try { Fail(\"a\"); } catch (c, t) {\n  Fail(t + \"b\"); }"), "2:3: error 27 FAILED: ab");
  EXPECT_EQ(RunScript("try { try { Fail(\"a\"); } catch (c, t) { Fail(t + \"b\"); } } catch (c, t) { return t; }"),
            "ab");
}

}  // namespace
