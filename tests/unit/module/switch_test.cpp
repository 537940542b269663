// The renderer's switches: what each stores, and what it tells OpenGL.
#include <string>

#include "tests/unit/support/fixture.h"
#include "tests/unit/support/opening.h"

namespace {

int Truth(Variable value) { return value; }

struct Switch {
  const char* setter;
  const char* getter;
  bool initial;
  std::string on;  // what it sends for an open renderer
  std::string off;
};

const Switch kSwitches[] = {
    {"EnableLight", "IsLight", false,
     Lines({"glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, 1)", "glEnable(GL_LIGHTING)", "glEnable(GL_LIGHT0)",
            "glDisable(GL_COLOR_MATERIAL)", "glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 0)"}),
     Lines({"glDisable(GL_LIGHTING)", "glEnable(GL_COLOR_MATERIAL)",
            "glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE)"})},
    {"EnableFog", "IsFog", false, FogOn().Log(), Lines({"glDisable(GL_FOG)"})},
    {"EnableBlend", "IsBlend", false,
     Lines({"glEnable(GL_BLEND)", "glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA)"}),
     Lines({"glDisable(GL_BLEND)"})},
    {"EnableSmooth", "IsSmooth", false, Lines({"glShadeModel(GL_SMOOTH)"}), Lines({"glShadeModel(GL_FLAT)"})},
    {"EnableTwoSide", "IsTwoSide", false, "", ""},
    {"EnableSmoothLine", "IsSmoothLine", false, "", ""},
    {"EnableSmoothPoint", "IsSmoothPoint", false, "", ""},
    {"EnableWired", "IsWired", false, "", ""},
    {"SetOutlinePatch", "GetOutlinePatch", true, "", ""},
};

class SwitchTest : public ModuleTest, public testing::WithParamInterface<Switch> {};

TEST_P(SwitchTest, StoresWhileClosed) {
  Variable renderer = NewRenderer();
  EXPECT_EQ(Truth(Call(renderer, GetParam().getter)), GetParam().initial ? 1 : 0);
  for (const bool on : {true, false}) {
    Call(renderer, GetParam().setter, on);
    EXPECT_EQ(Truth(Call(renderer, GetParam().getter)), on ? 1 : 0);
  }
  EXPECT_EQ(TakeLog(), "");
}

TEST_P(SwitchTest, TellsOpenGLWhileOpen) {
  Variable renderer = OpenRenderer();
  Call(renderer, GetParam().setter, true);
  EXPECT_EQ(TakeLog(), GetParam().on);
  Call(renderer, GetParam().setter, false);
  EXPECT_EQ(TakeLog(), GetParam().off);
  Call(renderer, "FreeMDC");
  TakeLog();
  Call(renderer, GetParam().setter, true);
  EXPECT_EQ(TakeLog(), GetParam().on);
}

TEST_P(SwitchTest, ChangesNoOtherSwitch) {
  Variable renderer = NewRenderer();
  Call(renderer, GetParam().setter, !GetParam().initial);
  for (const Switch& other : kSwitches) {
    const bool changed = std::string(other.setter) == GetParam().setter;
    EXPECT_EQ(Truth(Call(renderer, other.getter)), changed != other.initial ? 1 : 0) << other.getter;
  }
}

INSTANTIATE_TEST_SUITE_P(Each, SwitchTest, testing::ValuesIn(kSwitches),
                         [](const auto& test) { return std::string(test.param.setter); });

}  // namespace
