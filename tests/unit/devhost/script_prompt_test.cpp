// The prompt: what is entered, and what is shown.
#include "devhost/script/prompt.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "devhost/runtime/classes.h"
#include "tests/unit/support/devhost_fixture.h"

namespace {

class ScriptPromptTest : public DevhostTest {
 protected:
  // What the prompt shows after its greeting, up to its end.
  std::string Shown(const std::string& input, devhost::script::FileReader readFile = nullptr) {
    std::FILE* file = std::tmpfile();
    std::fwrite(input.data(), 1, input.size(), file);
    std::fseek(file, 0, SEEK_SET);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    succeeded = devhost::script::RunPrompt(file, "Version 1", readFile);
    errors = testing::internal::GetCapturedStderr();
    const std::string shown = testing::internal::GetCapturedStdout();
    std::fclose(file);
    const std::string greeting = "Version 1\nhelp shows what can be entered, exit leaves.\n";
    EXPECT_TRUE(shown.starts_with(greeting)) << shown;
    return shown.substr(std::min(greeting.size(), shown.size()));
  }

  bool succeeded = false;
  std::string errors;
};

TEST_F(ScriptPromptTest, EndsWithTheInputOrWhenAskedTo) {
  EXPECT_EQ(Shown(""), "talq> \n");
  EXPECT_TRUE(succeeded);
  EXPECT_EQ(Shown("exit\n1\n"), "talq> ");
  EXPECT_EQ(Shown(" exit; \n1\n"), "talq> ");
  EXPECT_EQ(Shown("exit = 1;\r\nexit + 1\r\n"), "talq> talq> 2\ntalq> \n");
  EXPECT_EQ(errors, "");
}

TEST_F(ScriptPromptTest, ShowsValues) {
  EXPECT_EQ(Shown("1 + 2"), "talq> 3\ntalq> \n");
  EXPECT_EQ(Shown("\"a\"; [1, 2]; 0;\n"), "talq> a\n[1, 2]\n0\ntalq> \n");
  EXPECT_EQ(Shown("a = 1\n"), "talq> talq> \n");
  EXPECT_EQ(Shown("Print(1)\n"), "talq> 1\ntalq> \n");
  EXPECT_EQ(errors, "");
}

TEST_F(ScriptPromptTest, ShowsOnlyValuesThatStandByThemselves) {
  EXPECT_EQ(Shown("if (1) abs(-1); { abs(-2); } for (abs(1); 0; ) ;\n"), "talq> talq> \n");
  EXPECT_EQ(Shown("function F() { abs(-1); return 3; } F();\n"), "talq> 3\ntalq> \n");
  EXPECT_EQ(errors, "");
  Shown("if (1) 2;\n");
  EXPECT_THAT(errors, HasSubstr("this value would not be used"));
  Shown("for (1; 0; ) ;\n");
  EXPECT_THAT(errors, HasSubstr("this value would not be used"));
  Shown("function F() { 1; }\n");
  EXPECT_THAT(errors, HasSubstr("this value would not be used"));
}

TEST_F(ScriptPromptTest, KeepsVariablesAndFunctions) {
  EXPECT_EQ(Shown("x = 4;\nfunction F(a) { return a * x; }\nF(2)\nx = 5;\nF(2)\n"),
            "talq> talq> talq> 8\ntalq> talq> 10\ntalq> \n");
  EXPECT_EQ(Shown("function F() { return G(); }\nfunction G() { return 1; }\nF()\n"), "talq> talq> talq> 1\ntalq> \n");
  EXPECT_EQ(errors, "");
}

TEST_F(ScriptPromptTest, TakesAFunctionAnew) {
  EXPECT_EQ(Shown("function F() { return 1; }\ng = F;\nfunction F() { return 2; }\nF() * 10 + g()\n"),
            "talq> talq> talq> talq> 21\ntalq> \n");
  EXPECT_EQ(errors, "");
  Shown("function F() { } function F() { }\n");
  EXPECT_THAT(errors, HasSubstr("the function 'F' is already defined"));
}

TEST_F(ScriptPromptTest, GoesOnWhileABracketIsOpen) {
  EXPECT_EQ(Shown("[1,\n2\n]\n"), "talq>   ...   ... [1, 2]\ntalq> \n");
  EXPECT_EQ(Shown("function F() {\n\n  return 3;\n}\nF()\n"), "talq>   ...   ...   ... talq> 3\ntalq> \n");
  EXPECT_EQ(Shown("/* a ( b\nc */ 4 // (\n"), "talq>   ... 4\ntalq> \n");
  EXPECT_EQ(Shown("\"(\"\n"), "talq> (\ntalq> \n");
  EXPECT_EQ(errors, "");
}

TEST_F(ScriptPromptTest, RefusesAtOnceWhatMoreTextCannotMend) {
  EXPECT_EQ(Shown("a = (1 + ;\n2\n"), "talq> talq> 2\ntalq> \n");
  EXPECT_EQ(errors, "prompt:1:10: syntax error: expected a value, found ';'\n  a = (1 + ;\n           ^\n");
  EXPECT_EQ(Shown("[1)\n2\n"), "talq> talq> 2\ntalq> \n");
  EXPECT_EQ(Shown("\"a\n2\n"), "talq> talq> 2\ntalq> \n");
  EXPECT_EQ(Shown("a =\n2\n"), "talq> talq> 2\ntalq> \n");
  EXPECT_EQ(Shown("f(1,\n"), "talq>   ... talq> \n");
  EXPECT_EQ(errors, "prompt:1:5: syntax error: expected a value, found the end of the text\n  f(1,\n      ^\n");
}

TEST_F(ScriptPromptTest, GoesOnAfterAnError) {
  EXPECT_EQ(Shown("x = 1;\nx = 2; x = 3 / 0; x = 4;\nx\n"), "talq> talq> talq> 2\ntalq> \n");
  EXPECT_EQ(errors,
            "prompt:1:14: error 10 DIVISION_BY_ZERO: Division by zero.\n"
            "  x = 2; x = 3 / 0; x = 4;\n               ^\n");
  EXPECT_TRUE(succeeded);
}

TEST_F(ScriptPromptTest, RefusedTextLeavesNothing) {
  EXPECT_EQ(Shown("Print(1); function F() { } y = ;\nF()\nz = 1; z\n"), "talq> talq> talq> 1\ntalq> \n");
  EXPECT_THAT(errors, HasSubstr("There is no function \"F\""));
}

TEST_F(ScriptPromptTest, ErrorsInFunctionsOfEarlierLinesAreShownThere) {
  Shown("function Half(x) { return x / 0; }\n\nHalf(1)\n");
  EXPECT_EQ(errors,
            "prompt:1:29: error 10 DIVISION_BY_ZERO: Division by zero.\n"
            "  function Half(x) { return x / 0; }\n                              ^\n"
            "  in Half, called from prompt:1\n");
}

TEST_F(ScriptPromptTest, IncludesFiles) {
  const auto readFile = [](const std::string& path, std::string& text) {
    text = "7; a = 1;";
    return path == "a.talq";
  };
  Shown("include \"a.talq\";\n", readFile);
  EXPECT_THAT(errors, HasSubstr("a.talq:1:2: syntax error: expected an assignment or a call"));
  const auto readOther = [](const std::string&, std::string& text) {
    text = "count += 1;";
    return true;
  };
  EXPECT_EQ(Shown("count = 0;\ninclude \"b\"\ninclude \"b\"\ncount\n", readOther),
            "talq> talq> talq> talq> 2\ntalq> \n");
}

TEST_F(ScriptPromptTest, ReleasesObjectsInReverseOrder) {
  static std::string ended;
  ended.clear();
  static const MethodEntry kMethods[] = {{[](VarRegister&, VarRegister* args, int argc, Processor*) {
                                            devhost::Assign(devhost::DefineField(args[argc - 1], "name"),
                                                            args[0].GetVar());
                                          },
                                          "Ended::Ended(refer object String)"},
                                         {[](VarRegister&, VarRegister* args, int argc, Processor*) {
                                            Variable& self = args[argc - 1];
                                            ended += devhost::TextOf(*devhost::Field(self, "name"));
                                          },
                                          "Ended::~Ended(void)"},
                                         {nullptr, nullptr}};
  ASSERT_TRUE(devhost::RegisterMethods(kMethods));
  Shown("a = new Ended(\"a\");\nb = new Ended(\"b\");\nc = 1 / 0;\nc = new Ended(\"c\"); a = a;\nexit\n");
  EXPECT_EQ(ended, "cba");
  devhost::UnregisterMethods(kMethods);
}

TEST_F(ScriptPromptTest, ShowsHelp) {
  EXPECT_THAT(Shown("help\n"), HasSubstr("talq> A statement runs; "));
  EXPECT_THAT(Shown("help TOpenGL::Clear\n"), HasSubstr("talq> TOpenGL::Clear\n\nClear()\n"));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(Shown("help Spere\n"), "talq> talq> \n");
  EXPECT_EQ(errors, "the reference has no entry 'Spere'; did you mean Sphere?\n");
  EXPECT_EQ(Shown("help = 2;\nhelp + 1\n"), "talq> talq> 3\ntalq> \n");
}

}  // namespace
