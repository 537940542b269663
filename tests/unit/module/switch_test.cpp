// The renderer's switches: what each stores, and what it tells OpenGL.
#include <string>
#include <string_view>
#include <vector>

#include "tests/unit/support/fixture.h"

namespace {

int Truth(Variable value) { return value; }

struct Switch {
  const char* setter;
  const char* getter;
  bool initial;
  std::vector<std::string_view> on;  // calls of an open renderer
  std::vector<std::string_view> off;
};

const Switch kSwitches[] = {
    {"EnableLight",
     "IsLight",
     false,
     {"glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, 1)", "glEnable(GL_LIGHTING)", "glEnable(GL_LIGHT0)",
      "glDisable(GL_COLOR_MATERIAL)", "glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 0)"},
     {"glDisable(GL_LIGHTING)", "glEnable(GL_COLOR_MATERIAL)",
      "glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE)"}},
    {"EnableFog",
     "IsFog",
     false,
     {"glEnable(GL_FOG)", "glFogi(GL_FOG_MODE, GL_LINEAR)", "glFogf(GL_FOG_DENSITY, 0.01)",
      "glFogfv(GL_FOG_COLOR, {0.2, 0.2, 0.2, 1})", "glFogf(GL_FOG_START, -200)", "glFogf(GL_FOG_END, 200)"},
     {"glDisable(GL_FOG)"}},
    {"EnableBlend",
     "IsBlend",
     false,
     {"glEnable(GL_BLEND)", "glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA)"},
     {"glDisable(GL_BLEND)"}},
    {"EnableSmooth", "IsSmooth", false, {"glShadeModel(GL_SMOOTH)"}, {"glShadeModel(GL_FLAT)"}},
    {"EnableTwoSide", "IsTwoSide", false, {}, {}},
    {"EnableSmoothLine", "IsSmoothLine", false, {}, {}},
    {"EnableSmoothPoint", "IsSmoothPoint", false, {}, {}},
    {"EnableWired", "IsWired", false, {}, {}},
    {"SetOutlinePatch", "GetOutlinePatch", true, {}, {}},
};

class SwitchTest : public ModuleTest, public testing::WithParamInterface<Switch> {
 protected:
  static std::string Log(const std::vector<std::string_view>& lines) {
    std::string log;
    for (const std::string_view line : lines) log.append(line) += '\n';
    return log;
  }
};

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
  EXPECT_EQ(TakeLog(), Log(GetParam().on));
  Call(renderer, GetParam().setter, false);
  EXPECT_EQ(TakeLog(), Log(GetParam().off));
  Call(renderer, "FreeMDC");
  TakeLog();
  Call(renderer, GetParam().setter, true);
  EXPECT_EQ(TakeLog(), Log(GetParam().on));
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
