// The light set as a record: its defaults, and what it sends.
#include "render/light.h"

#include <cmath>
#include <string>
#include <vector>

#include "classes/gl.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/near_variants.h"

namespace {

using LightTest = ModuleTest;
using gl_trace::Enum;

Floats Components(const OGLColor& color) { return {color.red, color.green, color.blue, color.alpha}; }

std::string LightLine(GLenum parameter, const Floats& values) {
  return Line("glLightfv", Enum{GL_LIGHT0}, Enum{parameter}, std::span<const float>(values));
}

TEST_F(LightTest, ColorsAreSharesOfTheBaseColorWithItsAlpha) {
  const OGLLightSet lights(4.0F, 0.5F, -3.0F, 0.25F);
  EXPECT_EQ(Components(lights.GetAmbient()), Floats({0.2F * 4.0F, 0.2F * 0.5F, 0.2F * -3.0F, 0.25F}));
  EXPECT_EQ(Components(lights.GetDiffuse()), Floats({0.8F * 4.0F, 0.8F * 0.5F, 0.8F * -3.0F, 0.25F}));
  EXPECT_EQ(Components(lights.GetSpecular()), Floats({4.0F, 0.5F, -3.0F, 0.25F}));
}

TEST_F(LightTest, DefaultsOfPositionCutoffAndSides) {
  const OGLLightSet lights(1, 1, 1, 1);
  const OGLPoint position = lights.GetPosition();
  EXPECT_EQ(Floats({position.x, position.y, position.z, position.w}), Floats({100, 100, 2000, 1}));
  EXPECT_EQ(lights.GetSpotCutoff(), 180.0F);
  EXPECT_EQ(lights.GetTwoSide(), kOff);
}

TEST_F(LightTest, SettersTakeNumbersOrAColor) {
  OGLLightSet lights(1, 1, 1, 1);
  lights.SetAmbient(1, 2, 3, 4);
  lights.SetDiffuse(OGLColor(5, 6, 7, 8));
  lights.SetSpecular(9, 10, 11, 12);
  EXPECT_EQ(Components(lights.GetAmbient()), Floats({1, 2, 3, 4}));
  EXPECT_EQ(Components(lights.GetDiffuse()), Floats({5, 6, 7, 8}));
  EXPECT_EQ(Components(lights.GetSpecular()), Floats({9, 10, 11, 12}));
  lights.SetAmbient(OGLColor(2, 3, 4, 5));
  lights.SetSpecular(OGLColor(6, 7, 8, 9));
  EXPECT_EQ(Components(lights.GetAmbient()), Floats({2, 3, 4, 5}));
  EXPECT_EQ(Components(lights.GetSpecular()), Floats({6, 7, 8, 9}));
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(LightTest, ColorSendsItselfAsItsParameter) {
  OGLLightColor color(GL_DIFFUSE, 1, 2, 3, 4);
  color.Apply();
  color.Set(GL_SPECULAR, 5, 6, 7, 8);
  color.Apply();
  EXPECT_EQ(TakeLog(), Lines({"glLightfv(GL_LIGHT0, GL_DIFFUSE, {1, 2, 3, 4})",
                              "glLightfv(GL_LIGHT0, GL_SPECULAR, {5, 6, 7, 8})"}));
}

TEST_F(LightTest, ApplySendsColorsThenThePlaceInEyeCoordinates) {
  const OGLLightSet lights(1, 1, 1, 1);
  lights.Apply();
  const float length = sqrtf(100.0F * 100.0F + 100.0F * 100.0F + 2000.0F * 2000.0F);
  EXPECT_NEAR(length, 2004.99F, 0.01F);
  EXPECT_EQ(TakeLog(), Lines({
                           LightLine(GL_AMBIENT, {0.2F, 0.2F, 0.2F, 1}),
                           LightLine(GL_SPECULAR, {1, 1, 1, 1}),
                           LightLine(GL_DIFFUSE, {0.8F, 0.8F, 0.8F, 1}),
                           "glMatrixMode(GL_MODELVIEW)",
                           "glPushMatrix()",
                           "glLoadIdentity()",
                           "glLightfv(GL_LIGHT0, GL_POSITION, {100, 100, 2000, 1})",
                           "glLightf(GL_LIGHT0, GL_SPOT_CUTOFF, 180)",
                           LightLine(GL_SPOT_DIRECTION, {-100 / length, -100 / length, -2000 / length, 1}),
                           "glPopMatrix()",
                       }));
}

TEST_F(LightTest, DirectionLeadsFromThePositionToTheOrigin) {
  OGLLightSet lights(1, 1, 1, 1);
  lights.SetPosition(3, 0, -4, 0.5F);
  lights.SetSpotCutoff(30);
  lights.Apply();
  const std::string log = TakeLog();
  EXPECT_THAT(log, HasSubstr(LightLine(GL_POSITION, {3, 0, -4, 0.5F})));
  EXPECT_THAT(log, HasSubstr("glLightf(GL_LIGHT0, GL_SPOT_CUTOFF, 30)"));
  EXPECT_THAT(log, HasSubstr(LightLine(GL_SPOT_DIRECTION, {-3.0F / 5, -0.0F / 5, 4.0F / 5, 1})));
}

TEST_F(LightTest, DirectionIsDividedByTheLengthInSinglePrecision) {
  const auto scaled = [](auto length) { return [=](float x) { return -x / length(x, 1.7F * x, 0.3F * x); }; };
  const float x = TellingArgument(scaled(Length), scaled(LengthFromTheEnd), scaled(LengthInDouble));
  const float length = Length(x, 1.7F * x, 0.3F * x);
  OGLLightSet lights(1, 1, 1, 1);
  lights.SetPosition(x, 1.7F * x, 0.3F * x, 1);
  lights.Apply();
  EXPECT_THAT(TakeLog(),
              HasSubstr(LightLine(GL_SPOT_DIRECTION, {-x / length, -(1.7F * x) / length, -(0.3F * x) / length, 1})));
}

TEST_F(LightTest, LightAtTheOriginSendsTheDivisionByZero) {
  OGLLightSet lights(1, 1, 1, 1);
  lights.SetPosition(0, 0, 0, 1);
  lights.Apply();
  const std::string log = TakeLog();
  EXPECT_THAT(log, HasSubstr("glLightfv(GL_LIGHT0, GL_SPOT_DIRECTION, {nan, nan, nan, 1})"));
}

TEST_F(LightTest, EnableSwitchesWithoutSendingTheLight) {
  OGLLightSet lights(1, 1, 1, 1);
  lights.Enable();
  EXPECT_EQ(TakeLog(), Lines({"glEnable(GL_LIGHTING)", "glEnable(GL_LIGHT0)", "glDisable(GL_COLOR_MATERIAL)",
                              "glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 0)"}));
  lights.SetTwoSide(kOn);
  lights.Enable();
  EXPECT_EQ(TakeLog(), Lines({"glEnable(GL_LIGHTING)", "glEnable(GL_LIGHT0)", "glDisable(GL_COLOR_MATERIAL)",
                              "glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1)"}));
}

TEST_F(LightTest, MissingColorIsNotSetReadsAsWhiteAndIsNotApplied) {
  for (int n = 1; n <= 3; ++n) {
    const FailingAllocation failure(n);
    OGLLightSet lights(0, 0, 0, 0);
    ASSERT_TRUE(failure.Happened());
    lights.SetAmbient(2, 2, 2, 2);
    lights.SetDiffuse(2, 2, 2, 2);
    lights.SetSpecular(2, 2, 2, 2);
    const Floats white = {1, 1, 1, 1};
    const Floats set = {2, 2, 2, 2};
    EXPECT_EQ(Components(lights.GetAmbient()), n == 1 ? white : set);
    EXPECT_EQ(Components(lights.GetDiffuse()), n == 2 ? white : set);
    EXPECT_EQ(Components(lights.GetSpecular()), n == 3 ? white : set);
    lights.Apply();
    const std::string log = TakeLog();
    const char* parameters[] = {"GL_AMBIENT", "GL_DIFFUSE", "GL_SPECULAR"};
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(log.find(parameters[i - 1]) == std::string::npos, i == n) << log;
  }
}

}  // namespace
