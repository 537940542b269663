// The fog as a record.
#include "render/fog.h"

#include "tests/unit/support/fixture.h"

namespace {

using FogTest = ModuleTest;

TEST_F(FogTest, NewFogIsLinearWithDensity001) {
  const OGLFog fog(0.5F, 0.25F, 0.125F, 1);
  EXPECT_EQ(fog.GetDensity(), 0.01F);
  fog.Apply(-200, 200);
  EXPECT_EQ(TakeLog(), Lines({"glEnable(GL_FOG)", "glFogi(GL_FOG_MODE, GL_LINEAR)", "glFogf(GL_FOG_DENSITY, 0.01)",
                              "glFogfv(GL_FOG_COLOR, {0.5, 0.25, 0.125, 1})", "glFogf(GL_FOG_START, -200)",
                              "glFogf(GL_FOG_END, 200)"}));
}

TEST_F(FogTest, ExpModeIsTheSquaredExponential) {
  OGLFog fog(1, 1, 1, 1);
  fog.SetExpMode();
  fog.SetDensity(2.5F);
  fog.SetColor(1, 2, 3, 4);
  fog.Apply(5, 6);
  EXPECT_EQ(TakeLog(),
            Lines({"glEnable(GL_FOG)", "glFogi(GL_FOG_MODE, GL_EXP2)", "glFogf(GL_FOG_DENSITY, 2.5)",
                   "glFogfv(GL_FOG_COLOR, {1, 2, 3, 4})", "glFogf(GL_FOG_START, 5)", "glFogf(GL_FOG_END, 6)"}));
}

TEST_F(FogTest, LinearModeComesBack) {
  OGLFog fog(1, 1, 1, 1);
  fog.SetExpMode();
  fog.SetLinearMode();
  fog.Apply(0, 1);
  EXPECT_NE(TakeLog().find("glFogi(GL_FOG_MODE, GL_LINEAR)"), std::string::npos);
}

}  // namespace
