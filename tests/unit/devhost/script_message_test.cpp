// Messages of the script language, its limits, and texts that are no scripts.
#include <cstdint>
#include <utility>

#include "tests/unit/support/script_runner.h"

namespace {

std::string Repeat(const std::string& text, int count) {
  std::string repeated;
  for (int i = 0; i < count; ++i) repeated += text;
  return repeated;
}

TEST(ScriptMessageTest, ShowsLineAndCaret) {
  EXPECT_EQ(
      RunScript("a = 1;\n\tb = a + missing;\n"),
      "test.talq:2:10: error 21 UNKNOWN_NAME: The variable 'missing' is unknown: nothing has been assigned to it.\n"
      "   b = a + missing;\n"
      "           ^\n");
  EXPECT_EQ(RunScript("a = \"\xC3\xA4\xC3\xB6\" + nix;\r\n"),
            "test.talq:1:12: error 21 UNKNOWN_NAME: The variable 'nix' is unknown: nothing has been assigned to it.\n"
            "  a = \"\xC3\xA4\xC3\xB6\" + nix;\n"
            "             ^\n");
}

TEST(ScriptMessageTest, CutsLongLines) {
  const std::string message =
      RunScript("a = \"" + std::string(5000, 'x') + "\"; b = c; d = \"" + std::string(5000, 'y') + "\";");
  EXPECT_EQ(message.substr(0, 18), "test.talq:1:5013: ");
  const std::size_t excerpt = message.find('\n') + 1;
  const std::size_t caretLine = message.find('\n', excerpt) + 1;
  EXPECT_EQ(caretLine - excerpt, 163U);
  const std::size_t caret = message.find('^', caretLine);
  EXPECT_EQ(message.substr(excerpt + (caret - caretLine), 2), "c;");
}

TEST(ScriptMessageTest, CutsLongLinesBetweenCharacters) {
  for (const std::string shift : {"", " "}) {
    std::string text = "\"";
    for (int i = 0; i < 200; ++i) text += "\xC3\xA9";
    text += '"';
    const std::string message =
        RunScript(std::string("a = ").append(text).append(shift).append("; b = c; d = ").append(text));
    const std::string excerpt = message.substr(message.find('\n') + 3);
    EXPECT_EQ(excerpt[0], '\xC3');
    EXPECT_EQ(excerpt[excerpt.find('\n') - 1], '\xA9');
  }
}

TEST(ScriptMessageTest, ListsCallers) {
  EXPECT_EQ(
      RunScript("function Inner(x) {\n  return x / 0;\n}\nfunction Outer() {\n  return Inner(1);\n}\n\nOuter();\n"),
      "test.talq:2:12: error 10 DIVISION_BY_ZERO: " + std::string("Division by zero.\n") +
          "    return x / 0;\n"
          "             ^\n"
          "  in Inner, called from test.talq:5\n"
          "  in Outer, called from test.talq:8\n");
}

TEST(ScriptMessageTest, FunctionValuesAreCallersToo) {
  const std::string message = RunScript("function F() {\n  Fail(1);\n}\nlist = [F];\nlist[0]();");
  EXPECT_THAT(message, HasSubstr("  in a function value, called from test.talq:5\n"));
}

TEST(ScriptMessageTest, ArgumentsAreNoCallers) {
  const std::string message = RunScript("function F(x) { return x; }\nF(1 / 0);");
  EXPECT_THAT(message, Not(HasSubstr("called from")));
}

TEST(ScriptMessageTest, SyntaxSaysWhatWasExpected) {
  EXPECT_EQ(RunScript("a = 1\nb = 2;"),
            "test.talq:1:6: expected ';' at the end of the statement, found 'b'\n  a = 1\n       ^\n");
  EXPECT_EQ(HeadlineOf("a = ;"), "1:5: expected a value, found ';'");
  EXPECT_EQ(HeadlineOf("a = (1"), "1:7: expected ')' after the expression, found the end of the text");
  EXPECT_EQ(HeadlineOf("a = [1, 2"), "1:10: expected ']' or ',' after the element, found the end of the text");
  EXPECT_EQ(HeadlineOf("f(1 2);"), "1:5: expected ')' or ',' after the argument, found '2'");
  EXPECT_EQ(HeadlineOf("a[1 = 2;"),
            "1:5: expected ']' after the index, found '=' ('=' assigns in a statement of its own, '==' compares)");
  EXPECT_EQ(HeadlineOf("if (a = 1) b = 2;"),
            "1:7: expected ')' after the condition, found '=' ('=' assigns in a statement of its own, '==' compares)");
  EXPECT_EQ(HeadlineOf("if a b = 2;"), "1:4: expected '(' before the condition, found 'a'");
  EXPECT_EQ(HeadlineOf("for (i = 0, i < 3; i += 1) ;"), "1:11: expected ';' after the first part of 'for', found ','");
  EXPECT_EQ(HeadlineOf("for (i = 0; i < 3; i++) ;"),
            "1:21: expected an assignment or a call: this value would not be used, found '++' (write 'i += 1')");
  EXPECT_EQ(HeadlineOf("a == 1;"), "1:7: expected an assignment or a call: this value would not be used, found ';'");
  EXPECT_EQ(HeadlineOf("1 = a;"), "1:1: expected a variable, an element or a field left of the assignment");
  EXPECT_EQ(HeadlineOf("{ a = 1;"), "1:1: the '{' here has no '}'");
  EXPECT_EQ(HeadlineOf("try a = 1;"), "1:5: expected '{' after 'try', found 'a'");
  EXPECT_EQ(HeadlineOf("try { } a = 1;"), "1:9: expected 'catch' after the statements of 'try', found 'a'");
  EXPECT_EQ(HeadlineOf("try { } catch (c) { }"), "1:17: expected ',' after the name for the error's code, found ')'");
  EXPECT_EQ(HeadlineOf("a = new 3;"), "1:9: expected the name of a class after 'new', found '3'");
  EXPECT_EQ(HeadlineOf("a = b->;"), "1:8: expected the name of a field or method, found ';'");
  EXPECT_EQ(HeadlineOf("a = b.while;"), "1:7: expected the name of a field or method, found 'while'");
}

TEST(ScriptMessageTest, DefinitionsStandAtTheTop) {
  EXPECT_EQ(HeadlineOf("a = 1; param b;"), "1:8: 'param' must be the script's first statement");
  EXPECT_EQ(HeadlineOf("{ function F() { } }"), "1:3: 'function' stands at the script's top level only");
  EXPECT_EQ(HeadlineOf("if (1) include \"x\";"), "1:8: 'include' stands at the script's top level only");
  EXPECT_EQ(HeadlineOf("function F() { }\nfunction F() { }"), "2:10: the function 'F' is already defined");
  EXPECT_EQ(HeadlineOf("function F(a, a) { }"), "1:15: there are two parameters 'a'");
  EXPECT_EQ(HeadlineOf("function F(a b) { }"), "1:14: expected ')' or ',' after the parameters, found 'b'");
  EXPECT_EQ(HeadlineOf("function F() return 1;"),
            "1:14: expected '{' before the function's statements, found 'return'");
  EXPECT_EQ(HeadlineOf("param a b;"), "1:8: expected ';' at the end of the statement, found 'b'");
  EXPECT_EQ(HeadlineOf("break;"), "1:1: 'break' stands inside a loop only");
  EXPECT_EQ(HeadlineOf("while (1) { } continue;"), "1:15: 'continue' stands inside a loop only");
}

TEST(ScriptMessageTest, TokensThatAreNone) {
  EXPECT_EQ(HeadlineOf("a = 1 @ 2;"), "1:7: unexpected character '@'");
  EXPECT_EQ(HeadlineOf("a = \x01;"), "1:5: unexpected byte 0x01");
  EXPECT_EQ(HeadlineOf("a = \"abc"), "1:5: the text that begins here has no closing '\"' on its line");
  EXPECT_EQ(HeadlineOf("a = \"abc\n\";"), "1:5: the text that begins here has no closing '\"' on its line");
  EXPECT_EQ(HeadlineOf("a = \"\\q\";"),
            "1:6: unknown escape; the known ones are \\n \\t \\r \\0 \\\\ \\\" \\' and \\xHH");
  EXPECT_EQ(HeadlineOf("a = 1; /* b"), "1:8: the comment that begins here has no '*/'");
  EXPECT_EQ(HeadlineOf("a = 12b;"), "1:7: a number ends here: a letter cannot follow it");
  EXPECT_EQ(HeadlineOf("a = 0x;"), "1:7: expected a hexadecimal digit");
  EXPECT_EQ(HeadlineOf("a = 9223372036854775808;"), "1:5: the number is too large: integers have 64 bits");
  EXPECT_EQ(HeadlineOf("a = 0xFFFFFFFFFFFFFFFF;"), "1:5: the number is too large: integers have 64 bits");
}

TEST(ScriptMessageTest, RuntimeErrorsHaveTheirPlace) {
  EXPECT_TRUE(HeadlineStarts("a = [1];\nb = a[0] + a[1];", "2:13: error 20 CONVERSION"));
  EXPECT_TRUE(HeadlineStarts("a = [1];\na[3] = 1;", "2:2: error 20 CONVERSION"));
  EXPECT_TRUE(HeadlineStarts("NoSuchFunction(1);", "1:1: error 21 UNKNOWN_NAME: "));
  EXPECT_TRUE(HeadlineStarts("a = new NoSuchClass();", "1:9: error 21 UNKNOWN_NAME: "));
  EXPECT_TRUE(HeadlineStarts("a = [];\na->NoSuchMethod();", "2:4: error 21 UNKNOWN_NAME: "));
  EXPECT_TRUE(HeadlineStarts("a = 1; b = a.x;", "1:14: error 21 UNKNOWN_NAME:"));
  EXPECT_TRUE(HeadlineStarts("a = 1 < \"b\";", "1:7: error 20 CONVERSION: "));
}

TEST(ScriptLimitTest, EndlessRecursionIsAnError) {
  const std::string message = RunScript("function F(n) {\n  return F(n + 1);\n}\nF(0);");
  EXPECT_THAT(message, HasSubstr("error 26 TOO_DEEP: The calls are nested too deeply"));
  EXPECT_THAT(message, HasSubstr("calls more\n"));
  EXPECT_EQ(RunScript("function F(n) { return F(n + 1); } try { F(0); } catch (c, t) { return c; }"), "26");
}

TEST(ScriptLimitTest, TwoHundredCallsDeepAreFine) {
  EXPECT_EQ(RunScript("function Sum(n) { if (n == 0) { return 0; } else { return n + Sum(n - 1); } } return Sum(200);"),
            "20100");
}

TEST(ScriptLimitTest, NestingIsBounded) {
  static constexpr std::pair<const char*, const char*> kCases[] = {
      {"b = ", "("},   {"b = ", "["},  {"b = ", "-("},      {"b = ", "!"},     {"b = ", "~"},
      {"b = ", "- "},  {"b = ", "f("}, {"b = ", "a["},      {"b = ", "a->b("}, {"", "{"},
      {"", "if (1) "}, {"", "try {"},  {"", "while (1) {"}, {"", "for (;;) "}, {"", "if (1) ; else "}};
  for (const auto& [before, opening] : kCases) {
    const std::string message = RunScript(before + Repeat(opening, 100000));
    EXPECT_THAT(message, HasSubstr("nested too deeply: more than 200 levels")) << opening;
  }
}

TEST(ScriptLimitTest, ChainsAreBounded) {
  for (const char* link : {" + 1", "[0]", ".x", "->F()", " && 1", "()"}) {
    const std::string message = RunScript("a = b" + Repeat(link, 100000) + ";");
    EXPECT_THAT(message, HasSubstr("the expression is too long: more than 200 operations deep")) << link;
  }
  EXPECT_EQ(ValueOf("1" + Repeat(" + 1", 190)), "191");
  EXPECT_EQ(ValueOf(Repeat("(", 190) + "7" + Repeat(")", 190)), "7");
}

TEST(ScriptLimitTest, AnyTextIsParsed) {
  static constexpr const char* kWords[] = {
      "param", "if",   "else", "while", "for", "function", "return", "break", "try",  "catch", "include",
      "new",   "true", "a",    "f",     "1",   "2.5",      "\"t\"",  "(",     ")",    "[",     "]",
      "{",     "}",    ",",    ";",     ".",   "->",       "=",      "+=",    "+",    "-",     "*",
      "<<",    "==",   "&&",   "!",     "~",   "\n",       "/*",     "\\",    "\x80", "0x"};
  std::uint32_t state = 12345;
  int accepted = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    for (std::uint32_t count = static_cast<std::uint32_t>(round % 12); count-- > 0;) {
      state = state * 1664525U + 1013904223U;
      text += kWords[(state >> 8) % std::size(kWords)];
      text += ' ';
    }
    devhost::script::SyntaxError error;
    const auto program = devhost::script::Parse(text, "random", nullptr, error);
    accepted += program != nullptr ? 1 : 0;
    ASSERT_TRUE(program != nullptr || (!error.message.empty() && error.at.line > 0)) << text;
  }
  EXPECT_GT(accepted, 1600);
}

}  // namespace
