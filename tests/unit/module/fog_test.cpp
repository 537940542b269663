// The fog as a record.
#include "render/fog.h"

#include "tests/unit/support/fixture.h"
#include "tests/unit/support/opening.h"

namespace {

using FogTest = ModuleTest;

TEST_F(FogTest, NewFogIsLinearWithDensity001) {
  const OGLFog fog(0.5F, 0.25F, 0.125F, 1);
  EXPECT_EQ(fog.GetDensity(), 0.01F);
  fog.Apply(-200, 200);
  EXPECT_EQ(TakeLog(), FogOn{.color = "{0.5, 0.25, 0.125, 1}"}.Log());
}

TEST_F(FogTest, ExpModeIsTheSquaredExponential) {
  OGLFog fog(1, 1, 1, 1);
  fog.SetExpMode();
  fog.SetDensity(2.5F);
  fog.SetColor(1, 2, 3, 4);
  fog.Apply(5, 6);
  const FogOn sent = {.mode = "GL_EXP2", .density = "2.5", .color = "{1, 2, 3, 4}", .start = "5", .end = "6"};
  EXPECT_EQ(TakeLog(), sent.Log());
}

TEST_F(FogTest, LinearModeComesBack) {
  OGLFog fog(1, 1, 1, 1);
  fog.SetExpMode();
  fog.SetLinearMode();
  fog.Apply(0, 1);
  EXPECT_THAT(TakeLog(), HasSubstr("glFogi(GL_FOG_MODE, GL_LINEAR)"));
}

}  // namespace
