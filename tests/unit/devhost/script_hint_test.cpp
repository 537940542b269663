// What a script's author is told to try after an error.
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/script_runner.h"

namespace {

using ScriptHintTest = ModuleTest;

// The hint of the message that the script ends with; "" when it has none.
std::string HintOf(std::string_view text) {
  const std::string message = RunScript(text);
  constexpr std::string_view kMark = "\n  hint: ";
  const std::size_t start = message.find(kMark);
  if (start == message.npos) return message.find("error") == message.npos ? "no message: " + message : "";
  const std::size_t first = start + kMark.size();
  return message.substr(first, message.find('\n', first) - first);
}

TEST_F(ScriptHintTest, StandsBetweenTheCaretAndTheCallers) {
  EXPECT_EQ(RunScript("function Turn(gl) {\n  gl->FreeMDC(1);\n}\nTurn(new TOpenGL());\n"),
            "test.talq:2:7: error 22 NO_OVERLOAD: TOpenGL::FreeMDC does not take (number).\n"
            "    gl->FreeMDC(1);\n"
            "        ^\n"
            "  hint: TOpenGL::FreeMDC takes ()\n"
            "  in Turn, called from test.talq:4\n");
}

TEST_F(ScriptHintTest, NamesArgumentsAsTheReferenceDoes) {
  const std::string before = "gl = new TOpenGL(); ";
  EXPECT_EQ(HintOf(before + "gl->SetViewPort(1);"), "TOpenGL::SetViewPort takes (left, top, right, bottom)");
  EXPECT_EQ(HintOf(before + "gl->SetClearColor(\"red\");"),
            "TOpenGL::SetClearColor takes (OglColor) or (red, green, blue)");
  EXPECT_EQ(HintOf("c = new OglColor(1, 2);"),
            "OglColor::OglColor takes () or (OglColor) or (red, green, blue, alpha) or (ColorRef)");
  EXPECT_EQ(HintOf("c = new OglColor() * \"x\";"), "OglColor::* takes (number)");
}

TEST_F(ScriptHintTest, NamesTypesWhereTheReferenceIsSilent) {
  EXPECT_EQ(HintOf("p = new POINT3(1);"), "POINT3::POINT3 takes () or (number, number, number) or (copy)");
  EXPECT_EQ(HintOf("pow(1);"), "pow takes (number, number)");
  EXPECT_EQ(HintOf("Assert();"), "Assert takes (condition[, message])");
  EXPECT_EQ(HintOf("function F(a, b) { c = a; } F(1);"), "F takes (a, b)");
  EXPECT_EQ(HintOf("function F() { c = 1; } F(1);"), "F takes ()");
}

TEST_F(ScriptHintTest, NamesWhatMayHaveBeenMeant) {
  EXPECT_EQ(HintOf("gl = new TOpenGL(); gl->SetViewport(1);"), "did you mean TOpenGL::SetViewPort?");
  EXPECT_EQ(HintOf("gl = new TOpenGl();"), "did you mean TOpenGL?");
  EXPECT_EQ(HintOf("c = new OglColor(); c.red = 1;"), "did you mean Red?");
  EXPECT_EQ(HintOf("width = 1; Print(widht);"), "did you mean width?");
  EXPECT_EQ(HintOf("prnt(1);"), "did you mean Print?");
  EXPECT_EQ(HintOf("Sqrt(1);"), "did you mean sqrt?");
  EXPECT_EQ(HintOf("Print(missing);"), "");
}

TEST_F(ScriptHintTest, TakesNamesThatHaveAValueInReach) {
  EXPECT_EQ(HintOf("function F(first) { second = 2; Print(secnd); } F(1);"), "did you mean second?");
  EXPECT_EQ(HintOf("function F(first) { Print(frist); } F(1);"), "did you mean first?");
  EXPECT_EQ(HintOf("function F() { Print(globl); } global = 1; F();"), "did you mean global?");
  EXPECT_EQ(HintOf("function F(first) { c = first; } Print(frist);"), "");
  EXPECT_EQ(HintOf("Print(latr); later = 1;"), "");
  EXPECT_EQ(HintOf("count = 1; function F() { x = count; count = 2; } F();"), "");
}

TEST_F(ScriptHintTest, OnlyFunctionsAreMeantByACall) {
  EXPECT_EQ(HintOf("function Triple(x) { return 3 * x; } Tripel(1);"), "did you mean Triple?");
  EXPECT_EQ(HintOf("triple = 3; Tripel(1);"), "");
}

TEST_F(ScriptHintTest, AClassIsNoFunction) { EXPECT_EQ(HintOf("c = OglColor();"), "it is a class: new OglColor(...)"); }

// A second native object would be joined to the script object, and the first one lost.
TEST_F(ScriptHintTest, AConstructorIsNoMethod) {
  EXPECT_EQ(RunScript("gl = new TOpenGL();\ngl->TOpenGL();\n"),
            "test.talq:2:5: error 21 UNKNOWN_NAME: TOpenGL is a constructor: it makes a new object and is no method of "
            "one that is there.\n"
            "  gl->TOpenGL();\n"
            "      ^\n"
            "  hint: use new TOpenGL(...)\n");
  EXPECT_EQ(HintOf("c = new OglColor(); c->OglColor(c);"), "use new OglColor(...)");
  EXPECT_EQ(HintOf("p = new POINT3(1, 2, 3); p->POINT3(1, 2, 3);"), "use new POINT3(...)");
}

TEST_F(ScriptHintTest, HelpsWithErrorsOfTheModule) {
  EXPECT_EQ(HintOf("gl = new TOpenGL(); gl->EndSelection();"), "BeginSelection comes before EndSelection");
  EXPECT_EQ(HintOf("x = 1 / 0;"), "");
}

}  // namespace
