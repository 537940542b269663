// Picking: names, the pick rectangle, and the depth of selections.
#include <limits>
#include <string>

#include "render/topengl.h"
#include "tests/unit/support/fixture.h"

namespace {

using SelectionTest = ModuleTest;

constexpr int kSmallest = std::numeric_limits<int>::min();
constexpr int kLargest = std::numeric_limits<int>::max();

// The gluPickMatrix line to which a pick on a client rectangle with this bottom leads.
std::string PickMatrix(int bottom, int x, int y, int width, int height) {
  Device().bottom = bottom;
  Variable renderer = OpenRenderer();
  Call(renderer, "BeginSelection", x, y, width, height);
  std::string line;
  for (const recorder::Call& call : recorder::Get().calls) {
    if (call.name == "gluPickMatrix") line = call.Text();
  }
  Call(renderer, "EndSelection");
  TakeLog();
  return line;
}

std::string Ending() {
  return Lines({"glMatrixMode(GL_PROJECTION)", "glPopMatrix()", "glMatrixMode(GL_MODELVIEW)", "glFlush()",
                "glRenderMode(GL_RENDER)"});
}

// A selection without an end leaves its log and a matrix on the stack.
void ForgetUnended() {
  TakeLog();
  recorder::Get().balance.matrixDepth.clear();
}

TEST_F(SelectionTest, ABindThatFailsTakesTheClientRectangleToo) {
  Variable renderer = NewRenderer();
  Device().bottom = 300;
  Call(renderer, "BindMDC", NewObject("MDC"));
  ExpectModuleError(OGL_NO_DC, "The Device Context is not Open");
  Call(renderer, "BeginSelection", 100, 50, 4, 4);
  EXPECT_THAT(TakeLog(), HasSubstr("gluPickMatrix(98, 248, 4, 4,"));
  Call(renderer, "EndSelection");
  TakeLog();
}

TEST_F(SelectionTest, NamesGoToOpenGLOpenOrNot) {
  for (Variable renderer : {OpenRenderer(), NewRenderer()}) {
    Call(renderer, "InitNameStack");
    Call(renderer, "PushName", 7);
    Call(renderer, "LoadName", -1);
    Call(renderer, "PopName");
    EXPECT_EQ(TakeLog(), Lines({"glInitNames()", "glPushName(7)", "glLoadName(4294967295)", "glPopName()"}));
  }
}

TEST_F(SelectionTest, BeginMultipliesThePickMatrixByTheFrustum) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetClipping", -1.0F, 1.5F, -2.0F, 2.5F, 1.0F, 10.0F);
  TakeLog();
  recorder::Get().answers.viewport = {5, 6, 640, 480};
  Call(renderer, "BeginSelection", 100, 50, 4, 6);
  EXPECT_EQ(TakeLog(), Lines({"glSelectBuffer(512)", "glRenderMode(GL_SELECT)", "glGetIntegerv(GL_VIEWPORT)",
                              "glMatrixMode(GL_PROJECTION)", "glPushMatrix()", "glLoadIdentity()",
                              "gluPickMatrix(98, 427, 4, 6, {5, 6, 640, 480})", "glFrustum(-1, 1.5, -2, 2.5, 1, 10)",
                              "glMatrixMode(GL_MODELVIEW)"}));
  Call(renderer, "EndSelection");
  EXPECT_EQ(TakeLog(), Ending());
}

TEST_F(SelectionTest, PickAt100And50Of4By4OnBottom480IsCentredAt98And428) {
  EXPECT_EQ(PickMatrix(480, 100, 50, 4, 4), "gluPickMatrix(98, 428, 4, 4, {0, 0, 0, 0})");
}

TEST_F(SelectionTest, HalvesAreCutOffTowardsZero) {
  EXPECT_EQ(PickMatrix(480, 100, 50, 1, 1), "gluPickMatrix(100, 430, 1, 1, {0, 0, 0, 0})");
  EXPECT_EQ(PickMatrix(480, 100, 50, 5, 7), "gluPickMatrix(98, 427, 5, 7, {0, 0, 0, 0})");
  EXPECT_EQ(PickMatrix(480, 100, 50, -5, -7), "gluPickMatrix(102, 433, -5, -7, {0, 0, 0, 0})");
  EXPECT_EQ(PickMatrix(480, -100, -50, 0, 0), "gluPickMatrix(-100, 530, 0, 0, {0, 0, 0, 0})");
}

TEST_F(SelectionTest, HugeNumbersWrapAsIntegers) {
  EXPECT_EQ(PickMatrix(480, kSmallest, kLargest, 2, 2), "gluPickMatrix(2147483647, -2147483168, 2, 2, {0, 0, 0, 0})");
  EXPECT_EQ(PickMatrix(480, 0, kSmallest, 2, 0), "gluPickMatrix(-1, -2147483168, 2, 0, {0, 0, 0, 0})");
  EXPECT_EQ(PickMatrix(-10, 0, kLargest, kSmallest, kLargest),
            "gluPickMatrix(1073741824, 1073741816, -2147483648, 2147483647, {0, 0, 0, 0})");
}

TEST_F(SelectionTest, BeginTestsForNoContext) {
  Variable renderer = NewRenderer();
  Call(renderer, "BeginSelection", 10, 20, 2, 2);
  const std::string log = TakeLog();
  EXPECT_TRUE(log.starts_with("glSelectBuffer(512)\n")) << log;
  EXPECT_THAT(log,
              HasSubstr("gluPickMatrix(9, -21, 2, 2, {0, 0, 0, 0})\nglFrustum(-200, 200, 200, -200, -200, 200)\n"));
  EXPECT_EQ(Call(renderer, "EndSelection").GetDim(), 0);
  EXPECT_EQ(TakeLog(), Ending());
}

TEST_F(SelectionTest, TheBufferLiesInTheRendererAndStaysThere) {
  Variable renderer = OpenRenderer();
  const auto* native = NativeOf<TOpenGL>(renderer);
  EXPECT_EQ(native->GetSelectBuffer().size(), 512U);
  const auto* start = reinterpret_cast<const unsigned char*>(native);
  const auto* buffer = reinterpret_cast<const unsigned char*>(native->GetSelectBuffer().data());
  EXPECT_TRUE(buffer > start && buffer + sizeof(unsigned[512]) <= start + sizeof(TOpenGL));
  for (int pick = 0; pick < 2; ++pick) {
    Call(renderer, "BeginSelection", 0, 0, 1, 1);
    EXPECT_EQ(recorder::Get().CurrentSelection()->buffer.data(), native->GetSelectBuffer().data());
    Call(renderer, "EndSelection");
    Call(renderer, "Close");
    Call(renderer, "Open", NewObject("MDC"));
  }
  TakeLog();
}

TEST_F(SelectionTest, EndStraightAfterConstructionRaisesAndReturnsNothing) {
  Variable renderer = NewRenderer();
  EXPECT_TRUE(IsUntouched(Call(renderer, "EndSelection")));
  ExpectModuleError(5, "OpenGL is not in the Selection Mode");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(SelectionTest, EndWithoutBeginAndWithoutAnErrorBaseIsSilent) {
  Variable renderer = OpenRenderer();
  module->errorBase = 65535;
  EXPECT_TRUE(IsUntouched(Call(renderer, "EndSelection")));
  EXPECT_EQ(devhost::RaisedCount(), 0);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(SelectionTest, SelectionsNestByCountingAndOnlyTheFirstEndGetsHits) {
  Variable renderer = OpenRenderer();
  recorder::Get().answers.hits = 1;
  recorder::Get().answers.hitRecords = {1, 0, 0, 42};
  Call(renderer, "BeginSelection", 1, 1, 1, 1);
  Call(renderer, "BeginSelection", 2, 2, 1, 1);
  EXPECT_EQ(recorder::Get().balance.matrixDepth[GL_PROJECTION], 2);
  EXPECT_EQ(Call(renderer, "EndSelection").GetDim(), 1);
  EXPECT_EQ(Call(renderer, "EndSelection").GetDim(), 0);
  EXPECT_EQ(recorder::Get().balance.matrixDepth[GL_PROJECTION], 0);
  TakeLog();
  Call(renderer, "EndSelection");
  ExpectModuleError(5, "OpenGL is not in the Selection Mode");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(SelectionTest, EachRendererCountsItsOwnSelections) {
  Variable selecting = OpenRenderer();
  Variable other = OpenRenderer();
  Call(selecting, "BeginSelection", 1, 1, 1, 1);
  Call(other, "EndSelection");
  ExpectModuleError(5, "OpenGL is not in the Selection Mode");
  EXPECT_EQ(Call(selecting, "EndSelection").GetType(), TVAR_ARRAY);
  TakeLog();
}

TEST_F(SelectionTest, TheCountSurvivesAClose) {
  Variable renderer = OpenRenderer();
  Call(renderer, "BeginSelection", 1, 1, 1, 1);
  Call(renderer, "Close");
  TakeLog();
  Call(renderer, "EndSelection");
  EXPECT_EQ(TakeLog(), Ending());
  // The projection that was kept went with the context.
  recorder::Get().balance.matrixDepth.clear();
}

// What the end of a renderer that has selected asks of OpenGL.
constexpr char kAsked[] = "glGetPointerv(GL_SELECTION_BUFFER_POINTER)\n";
constexpr char kEnded[] = "glGetPointerv(GL_SELECTION_BUFFER_POINTER)\nglRenderMode(GL_RENDER)\n";

// A renderer that is not open selects in the context that is current, another renderer's.
TEST_F(SelectionTest, ARendererThatGoesWhileSelectingTakesItsBufferFromOpenGL) {
  Variable open = OpenRenderer();
  Variable renderer = NewRenderer();
  Call(renderer, "BeginSelection", 1, 1, 4, 4);
  TakeLog();
  Call(renderer, "~TOpenGL");
  EXPECT_EQ(TakeLog(), kEnded);
  EXPECT_FALSE(recorder::Get().CurrentSelection()->isOn);
  Call(open, "PopName");  // would write into the buffer
  ForgetUnended();
}

TEST_F(SelectionTest, AnOpenRendererAsksBeforeAndAfterItCloses) {
  Variable renderer = OpenRenderer();
  Call(renderer, "BeginSelection", 1, 1, 4, 4);
  TakeLog();
  Call(renderer, "~TOpenGL");
  const std::string log = TakeLog();
  EXPECT_TRUE(log.starts_with(std::string(kEnded) + "wglMakeCurrent(")) << log;
  EXPECT_TRUE(log.ends_with(std::string(")\n") + kAsked)) << log;
  ForgetUnended();
}

// Begun by a closed renderer in the context that its own opening left behind.
TEST_F(SelectionTest, ItFindsItsSelectionInTheContextThatClosingBringsBack) {
  const Variable open = OpenRenderer();
  Variable renderer = NewRenderer();
  Call(renderer, "BeginSelection", 1, 1, 4, 4);
  Call(renderer, "Open", NewObject("MDC"));
  TakeLog();
  Call(renderer, "~TOpenGL");
  const std::string log = TakeLog();
  EXPECT_TRUE(log.starts_with(std::string(kAsked) + "wglMakeCurrent(")) << log;
  EXPECT_TRUE(log.ends_with(std::string(")\n") + kEnded)) << log;
  EXPECT_FALSE(recorder::Get().CurrentSelection()->isOn);
  ForgetUnended();
}

// Ended by the counter, but not in the context that was not current then.
TEST_F(SelectionTest, ItFindsASelectionThatEndedInAnotherContext) {
  Variable open = OpenRenderer();
  Variable renderer = NewRenderer();
  Call(renderer, "BeginSelection", 1, 1, 4, 4);
  Call(open, "FreeMDC");
  Call(renderer, "EndSelection");
  Call(open, "BindMDC", NewObject("MDC"));
  EXPECT_TRUE(recorder::Get().CurrentSelection()->isOn);
  TakeLog();
  Call(renderer, "~TOpenGL");
  EXPECT_EQ(TakeLog(), kEnded);
  EXPECT_FALSE(recorder::Get().CurrentSelection()->isOn);
  Call(open, "Close");
  ForgetUnended();
}

TEST_F(SelectionTest, WithoutASelectionNothingIsAsked) {
  Variable renderer = OpenRenderer();
  TakeLog();
  Call(renderer, "~TOpenGL");
  const std::string log = TakeLog();
  EXPECT_THAT(log, Not(HasSubstr("glGetPointerv")));
}

TEST_F(SelectionTest, NoContextIsAskedForAndNoneIsMadeCurrent) {
  Variable first = OpenRenderer();
  Variable second = OpenRenderer();
  Variable renderer = NewRenderer();
  Call(renderer, "BeginSelection", 1, 1, 4, 4);
  Call(second, "FreeMDC");
  TakeLog();
  Call(renderer, "BeginSelection", 1, 1, 4, 4);
  Call(renderer, "EndSelection");
  Call(renderer, "EndSelection");
  const std::string log = TakeLog();
  EXPECT_THAT(log, Not(HasSubstr("wgl")));
  // What goes on in a context that is not current is the script's affair.
  Call(second, "BindMDC", NewObject("MDC"));
  EXPECT_TRUE(recorder::Get().CurrentSelection()->isOn);
  Call(second, "Close");
  Call(first, "Close");
  ForgetUnended();
}

// Another renderer has ended this one's selection with its own, and selects again.
TEST_F(SelectionTest, AnothersSelectionGoesOn) {
  Variable open = OpenRenderer();
  Variable renderer = NewRenderer();
  Call(renderer, "BeginSelection", 1, 1, 4, 4);
  Call(open, "BeginSelection", 1, 1, 4, 4);
  Call(open, "EndSelection");
  Call(open, "BeginSelection", 1, 1, 4, 4);
  TakeLog();
  Call(renderer, "~TOpenGL");
  EXPECT_EQ(TakeLog(), kAsked);
  EXPECT_TRUE(recorder::Get().CurrentSelection()->isOn);
  Call(open, "EndSelection");
  ForgetUnended();
}

}  // namespace
