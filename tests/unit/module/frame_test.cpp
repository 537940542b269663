// The frame as a whole: initial state by settings, clearing, flushing, version texts.
#include <string>

#include "classes/gl.h"
#include "render/topengl.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/opening.h"

namespace {

using FrameTest = ModuleTest;

// What follows the context's creation in the log.
std::string OpenAndTakeState(Variable& renderer) {
  TakeLog();
  Call(renderer, "Open", NewObject("MDC"));
  const std::string log = TakeLog();
  return log.substr(log.find("glViewport"));
}

// What the light set sends at these default values, except for the two-side flag, which is on.
std::string LightOn() {
  const std::string log =
      Lines({"glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, 1)", "glEnable(GL_LIGHTING)", "glEnable(GL_LIGHT0)",
             "glDisable(GL_COLOR_MATERIAL)", "glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1)"});
  OGLLightSet(1, 1, 1, 1).Apply();
  return log + TakeLog();
}

TEST_F(FrameTest, SmoothShadingIsAppliedAtOpening) {
  Variable renderer = NewRenderer();
  Call(renderer, "EnableSmooth", true);
  EXPECT_EQ(OpenAndTakeState(renderer), Opening({.shading = "glShadeModel(GL_SMOOTH)\n"}).Log());
}

TEST_F(FrameTest, LightIsAppliedAtOpening) {
  Variable renderer = NewRenderer();
  Call(renderer, "EnableLight", true);
  Call(renderer, "EnableTwoSide", true);
  Opening opening;
  opening.light = LightOn();
  EXPECT_EQ(OpenAndTakeState(renderer), opening.Log());
}

TEST_F(FrameTest, FogIsAppliedAtOpeningWithTheFrustumsDepths) {
  Variable renderer = NewRenderer();
  Call(renderer, "EnableFog", true);
  Opening opening;
  opening.fog = FogOn().Log();
  EXPECT_EQ(OpenAndTakeState(renderer), opening.Log());
}

TEST_F(FrameTest, LightComesBeforeFog) {
  Variable renderer = NewRenderer();
  Call(renderer, "EnableLight", true);
  Call(renderer, "EnableTwoSide", true);
  Call(renderer, "EnableFog", true);
  Opening opening;
  opening.light = LightOn();
  opening.fog = FogOn().Log();
  EXPECT_EQ(OpenAndTakeState(renderer), opening.Log());
}

TEST_F(FrameTest, BlendingIsAppliedAtOpening) {
  Variable renderer = NewRenderer();
  Call(renderer, "EnableBlend", true);
  Opening opening;
  opening.blend = Lines({"glEnable(GL_BLEND)", "glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA)"});
  EXPECT_EQ(OpenAndTakeState(renderer), opening.Log());
}

TEST_F(FrameTest, ViewAndClearColorAreAppliedAtOpening) {
  Variable renderer = NewRenderer();
  Call(renderer, "SetViewPort", 10.0F, 20.0F, 110.0F, 70.0F);
  Call(renderer, "SetViewerPos", 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 0.0F, -2.0F, 0.0F);
  Call(renderer, "SetClipping", -1.0F, 1.5F, -2.0F, 3.0F, 1.0F, 10.0F);
  Call(renderer, "SetClearColor", 0.25F, 0.5F, 0.75F);
  Opening opening;
  opening.viewport = "glViewport(26, 410, 100, 50)\n";
  opening.viewer = "gluLookAt(1, 2, 3, 4, 5, 6, 0, -1, 0)\n";
  opening.frustum = "glFrustum(-1, 1.5, -2, 3, 1, 10)\n";
  opening.clearColor = "glClearColor(0.25, 0.5, 0.75, 0)\n";
  EXPECT_EQ(OpenAndTakeState(renderer), opening.Log());
}

TEST_F(FrameTest, SmoothingOfLinesAndPointsIsNotApplied) {
  Variable renderer = NewRenderer();
  Call(renderer, "EnableSmoothLine", true);
  Call(renderer, "EnableSmoothPoint", true);
  Call(renderer, "EnableWired", true);
  EXPECT_EQ(OpenAndTakeState(renderer), Opening().Log());
}

TEST_F(FrameTest, SettingsSurviveClosing) {
  Variable renderer = NewRenderer();
  Call(renderer, "EnableSmooth", true);
  Call(renderer, "EnableBlend", true);
  Call(renderer, "EnableLight", true);
  const std::string first = OpenAndTakeState(renderer);
  Call(renderer, "Close");
  EXPECT_EQ(OpenAndTakeState(renderer), first);
}

TEST_F(FrameTest, ClearClearsColorAndDepth) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetClearColor", NewColor(1.0F, 0.25F, 0.5F, 0.75F));
  TakeLog();
  Call(renderer, "Clear");
  EXPECT_EQ(TakeLog(),
            Lines({"glClearColor(1, 0.25, 0.5, 0.75)", "glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT)"}));
}

TEST_F(FrameTest, ClearNeedsAnOpenAndBoundRenderer) {
  Variable renderer = NewRenderer();
  Call(renderer, "Clear");
  EXPECT_EQ(TakeLog(), "");
  Call(renderer, "Open", NewObject("MDC"));
  Call(renderer, "FreeMDC");
  TakeLog();
  Call(renderer, "Clear");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(FrameTest, ClearAfterAnOpenWithoutContextDoesNothing) {
  recorder::Get().answers.createsContexts = false;
  Variable renderer = OpenRenderer();
  ExpectModuleError(0, "The Device Context is not Valid System error #0");
  Call(renderer, "Clear");
  Call(renderer, "Triangles(refer object Vector)", Numbers(Counting(3)));
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(FrameTest, ClearColorReachesAnOpenRendererAtOnce) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetClearColor", 0.25F, 0.5F, 0.75F);
  EXPECT_EQ(TakeLog(), "glClearColor(0.25, 0.5, 0.75, 0)\n");
  Call(renderer, "SetClearColor", NewColor(1.0F, 2.0F, 3.0F, 0.5F));
  EXPECT_EQ(TakeLog(), "glClearColor(1, 2, 3, 0.5)\n");
  Call(renderer, "FreeMDC");
  TakeLog();
  Call(renderer, "SetClearColor", 0.0F, 0.0F, 1.0F);
  EXPECT_EQ(TakeLog(), "glClearColor(0, 0, 1, 0)\n");
}

TEST_F(FrameTest, ClearColorOfAClosedRendererIsStored) {
  Variable renderer = NewRenderer();
  Call(renderer, "SetClearColor", NewColor(1.0F, 2.0F, 3.0F, 0.5F));
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(OpenAndTakeState(renderer), Opening({.clearColor = "glClearColor(1, 2, 3, 0.5)\n"}).Log());
}

TEST_F(FrameTest, ColorWithoutNativeLeavesTheClearColor) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetClearColor", Unjoined("OglColor"));
  ExpectNoNative("OglColor");
  Call(renderer, "Clear");
  EXPECT_TRUE(TakeLog().starts_with("glClearColor(0, 0, 0, 1)\n"));
}

TEST_F(FrameTest, FlushWorksInEveryState) {
  Variable renderer = NewRenderer();
  Call(renderer, "Flush");
  EXPECT_EQ(TakeLog(), Lines({"glFlush()", "glFinish()"}));
  Call(renderer, "Open", NewObject("MDC"));
  TakeLog();
  Call(renderer, "Flush");
  EXPECT_EQ(TakeLog(), Lines({"glFlush()", "glFinish()"}));
}

TEST_F(FrameTest, VersionIsFourTexts) {
  recorder::Get().answers.strings = {
      {GL_VENDOR, "maker"}, {GL_RENDERER, "machine"}, {GL_VERSION, "1.1"}, {GL_EXTENSIONS, "GL_a GL_b"}};
  Variable renderer = OpenRenderer();
  Variable texts = Call(renderer, "GetVersion");
  EXPECT_EQ(texts.GetType(), TVAR_ARRAY);
  EXPECT_EQ(devhost::TextOf(texts),
            devhost::TextOf(Vector({Text("maker"), Text("machine"), Text("1.1"), Text("GL_a GL_b")})));
  EXPECT_EQ(TakeLog(), Lines({"glGetString(GL_VENDOR)", "glGetString(GL_RENDERER)", "glGetString(GL_VERSION)",
                              "glGetString(GL_EXTENSIONS)"}));
}

TEST_F(FrameTest, VersionWithoutContextIsFourEmptyTexts) {
  Variable renderer = NewRenderer();
  Variable texts = Call(renderer, "GetVersion");
  ASSERT_EQ(texts.GetDim(), 4);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(texts[i].GetType(), TVAR_BYTES);
    EXPECT_EQ(devhost::TextOf(texts[i]), "");
  }
}

}  // namespace
