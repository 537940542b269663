// Light, fog, switches and drawing state of the renderer, through its script methods.
#include <map>
#include <string>

#include "classes/material.h"
#include "render/light.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/opening.h"

namespace {

using StateTest = ModuleTest;

float Number(Variable value) { return value; }

Variable HalfTransparent() { return NewColor(0.1F, 0.2F, 0.3F, 0.5F); }

TEST_F(StateTest, DefaultsOfLightAndFog) {
  Variable renderer = NewRenderer();
  EXPECT_EQ(Number(Call(renderer, "GetSpot")), 180.0F);
  EXPECT_EQ(Number(Call(renderer, "GetFogDensity")), 0.01F);
  EXPECT_EQ(CoordinatesOf(Call(renderer, "GetLightPosition")), Floats({100, 100, 2000}));
  EXPECT_EQ(ComponentsOf(Call(renderer, "GetAmbientLightColor")), Floats({0.2F, 0.2F, 0.2F, 1}));
  EXPECT_EQ(ComponentsOf(Call(renderer, "GetDiffuseLightColor")), Floats({0.8F, 0.8F, 0.8F, 1}));
  EXPECT_EQ(ComponentsOf(Call(renderer, "GetSpecularLightColor")), Floats({1, 1, 1, 1}));
}

// The three light colours.
class LightColorTest : public ModuleTest, public testing::WithParamInterface<const char*> {
 protected:
  std::string setter = std::string("Set") + GetParam() + "LightColor";
  std::string getter = std::string("Get") + GetParam() + "LightColor";
};

TEST_P(LightColorTest, NumbersAreOpaque) {
  Variable renderer = OpenRenderer();
  Call(renderer, setter, 0.1F, 0.2F, 0.3F);
  EXPECT_EQ(ComponentsOf(Call(renderer, getter)), Floats({0.1F, 0.2F, 0.3F, 1}));
  EXPECT_EQ(TakeLog(), "");
}

TEST_P(LightColorTest, ColorKeepsItsAlpha) {
  Variable renderer = OpenRenderer();
  Call(renderer, setter, HalfTransparent());
  EXPECT_EQ(ComponentsOf(Call(renderer, getter)), Floats({0.1F, 0.2F, 0.3F, 0.5F}));
  EXPECT_EQ(TakeLog(), "");
}

TEST_P(LightColorTest, ReachesOpenGLWithTheNextPosition) {
  Variable renderer = OpenRenderer();
  Call(renderer, setter, 1.0F, 2.0F, 3.0F);
  Call(renderer, "SetLightPosition", 0.0F, 0.0F, 1.0F);
  static const std::map<std::string, std::string> kParameters = {{"SetAmbientLightColor", "GL_AMBIENT"},
                                                                 {"SetDiffuseLightColor", "GL_DIFFUSE"},
                                                                 {"SetSpecularLightColor", "GL_SPECULAR"}};
  EXPECT_THAT(TakeLog(), HasSubstr("glLightfv(GL_LIGHT0, " + kParameters.at(setter) + ", {1, 2, 3, 1})\n"));
}

TEST_P(LightColorTest, ColorWithoutNativeChangesNothing) {
  Variable renderer = NewRenderer();
  Call(renderer, setter, 1.0F, 2.0F, 3.0F);
  Call(renderer, setter, Unjoined("OglColor"));
  ExpectNoNative("OglColor");
  EXPECT_EQ(ComponentsOf(Call(renderer, getter)), Floats({1, 2, 3, 1}));
}

INSTANTIATE_TEST_SUITE_P(Each, LightColorTest, testing::Values("Ambient", "Diffuse", "Specular"),
                         [](const auto& test) { return std::string(test.param); });

TEST_F(StateTest, LightPositionSendsTheWholeLightInEveryState) {
  OGLLightSet expected(1, 1, 1, 1);
  expected.SetPosition(1, 2, 3, 1);
  expected.Apply();
  const std::string light = TakeLog();
  Variable renderer = NewRenderer();
  Call(renderer, "SetLightPosition", 1.0F, 2.0F, 3.0F);
  EXPECT_EQ(TakeLog(), light);
  EXPECT_EQ(CoordinatesOf(Call(renderer, "GetLightPosition")), Floats({1, 2, 3}));
  Call(renderer, "Open", NewObject("MDC"));
  TakeLog();
  Call(renderer, "SetLightPosition", 1.0F, 2.0F, 3.0F);
  EXPECT_EQ(TakeLog(), light);
}

TEST_F(StateTest, SpotIsSentWithTheNextPosition) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetSpot", 30.0F);
  EXPECT_EQ(Number(Call(renderer, "GetSpot")), 30.0F);
  EXPECT_EQ(TakeLog(), "");
  Call(renderer, "SetLightPosition", 1.0F, 2.0F, 3.0F);
  EXPECT_THAT(TakeLog(), HasSubstr("glLightf(GL_LIGHT0, GL_SPOT_CUTOFF, 30)"));
}

TEST_F(StateTest, TwoSideIsSentWhenLightIsSwitchedOn) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableTwoSide", true);
  Call(renderer, "EnableLight", true);
  EXPECT_TRUE(TakeLog().ends_with("glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1)\n"));
}

TEST_F(StateTest, FogSettingsAreSentWhenFogIsSwitchedOn) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetFogDensity", 0.5F);
  Call(renderer, "SetFogExpMode");
  Call(renderer, "SetFogColor", 1.0F, 2.0F, 3.0F);
  EXPECT_EQ(Number(Call(renderer, "GetFogDensity")), 0.5F);
  EXPECT_EQ(TakeLog(), "");
  Call(renderer, "EnableFog", true);
  EXPECT_EQ(TakeLog(), (FogOn{.mode = "GL_EXP2", .density = "0.5", .color = "{1, 2, 3, 1}"}.Log()));
  Call(renderer, "SetFogLinearMode");
  Call(renderer, "SetFogColor", HalfTransparent());
  Call(renderer, "EnableFog", true);
  EXPECT_EQ(TakeLog(), (FogOn{.density = "0.5", .color = "{0.1, 0.2, 0.3, 0.5}"}.Log()));
}

TEST_F(StateTest, FogColorWithoutNativeChangesNothing) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetFogColor", Unjoined("OglColor"));
  ExpectNoNative("OglColor");
  Call(renderer, "EnableFog", true);
  EXPECT_EQ(TakeLog(), FogOn().Log());
}

TEST_F(StateTest, FogRangeIsTheFrustumsAtTheMomentOfSwitching) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetPerspective", 90.0F, 1.0F, 2.0F, 50.0F);
  Call(renderer, "EnableFog", true);
  EXPECT_TRUE(TakeLog().ends_with("glFogf(GL_FOG_START, 2)\nglFogf(GL_FOG_END, 50)\n"));
  Call(renderer, "SetClipping", -1.0F, 1.0F, -1.0F, 1.0F, 3.0F, 70.0F);
  EXPECT_THAT(TakeLog(), Not(HasSubstr("Fog")));
  Call(renderer, "EnableFog", true);
  EXPECT_TRUE(TakeLog().ends_with("glFogf(GL_FOG_START, 3)\nglFogf(GL_FOG_END, 70)\n"));
}

TEST_F(StateTest, ColorOfAnUnlitRendererIsTheCurrentColor) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetColor", 0.1F, 0.2F, 0.3F, 0.4F);
  EXPECT_EQ(TakeLog(), "glColor4f(0.1, 0.2, 0.3, 0.4)\n");
  Call(renderer, "SetColor", HalfTransparent());
  EXPECT_EQ(TakeLog(), "glColor4f(0.1, 0.2, 0.3, 0.5)\n");
}

TEST_F(StateTest, ColorOfALitRendererDrivesTheMaterialToo) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableLight", true);
  TakeLog();
  Call(renderer, "SetColor", 0.1F, 0.2F, 0.3F, 0.4F);
  EXPECT_EQ(TakeLog(),
            Lines({"glEnable(GL_COLOR_MATERIAL)", "glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE)",
                   "glColor4f(0.1, 0.2, 0.3, 0.4)"}));
}

TEST_F(StateTest, ColorWithoutNativeDrawsNothing) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableLight", true);
  TakeLog();
  Call(renderer, "SetColor", Unjoined("OglColor"));
  ExpectNoNative("OglColor");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(StateTest, MaterialIsAppliedAndTakesTheColorMaterialOffWhenLit) {
  const Variable material = New("OglMaterial(number, number, number, number)", 1.0F, 0.5F, 0.25F, 1.0F);
  NativeOf<OGLMaterial>(material)->Apply();
  const std::string applied = TakeLog();
  Variable renderer = OpenRenderer();
  Call(renderer, "SetMaterial", material);
  EXPECT_EQ(TakeLog(), applied);
  Call(renderer, "EnableLight", true);
  TakeLog();
  Call(renderer, "SetMaterial", material);
  EXPECT_EQ(TakeLog(), "glDisable(GL_COLOR_MATERIAL)\n" + applied);
}

TEST_F(StateTest, MaterialWithoutNativeChangesNothing) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableLight", true);
  TakeLog();
  Call(renderer, "SetMaterial", Unjoined("OglMaterial"));
  ExpectNoNative("OglMaterial");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(StateTest, SizesReachAnOpenRendererAtOnce) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetPointSize", 2.5F);
  Call(renderer, "SetLineWidth", -1.0F);
  EXPECT_EQ(TakeLog(), Lines({"glPointSize(2.5)", "glLineWidth(-1)"}));
}

TEST_F(StateTest, WhatIsNotStoredDoesNothingWhileClosed) {
  Variable renderer = NewRenderer();
  Call(renderer, "EnableLight", true);
  Call(renderer, "SetPointSize", 2.5F);
  Call(renderer, "SetLineWidth", 3.5F);
  Call(renderer, "SetColor", 0.1F, 0.2F, 0.3F, 0.4F);
  Call(renderer, "SetMaterial", NewObject("OglMaterial"));
  EXPECT_EQ(TakeLog(), "");
  Call(renderer, "Open", NewObject("MDC"));
  const std::string log = TakeLog();
  for (const char* call : {"glPointSize", "glLineWidth", "glColor4f", "glMaterial"}) {
    EXPECT_THAT(log, Not(HasSubstr(call))) << call;
  }
}

TEST_F(StateTest, GettersMakeNewObjects) {
  Variable renderer = NewRenderer();
  Variable color = Call(renderer, "GetAmbientLightColor");
  EXPECT_EQ(devhost::KindOf(color), "OglColor");
  EXPECT_EQ(devhost::KindOf(Call(renderer, "GetLightPosition")), "POINT3");
  Call(color, "*=", 0.0F);
  EXPECT_EQ(ComponentsOf(Call(renderer, "GetAmbientLightColor")), Floats({0.2F, 0.2F, 0.2F, 1}));
}

}  // namespace
