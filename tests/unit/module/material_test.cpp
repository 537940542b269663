// "OglMaterial".
#include "classes/material.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "tests/unit/support/fixture.h"
#include "tests/unit/support/host_trace.h"

namespace {

using MaterialTest = ModuleTest;

constexpr const char* kKinds[] = {"Ambient", "Diffuse", "Specular", "Emission"};

Variable NewMaterial(float red, float green, float blue, float alpha) {
  return New("OglMaterial(number, number, number, number)", red, green, blue, alpha);
}

Floats Get(Variable& material, const std::string& kind, bool front) {
  return ComponentsOf(Call(material, "Get" + kind, front));
}

float Shininess(Variable& material, bool front) { return Call(material, "GetShininess", front); }

void ExpectFaces(Variable& material, const std::string& kind, const Floats& front, const Floats& back) {
  EXPECT_EQ(Get(material, kind, true), front) << kind;
  EXPECT_EQ(Get(material, kind, false), back) << kind;
}

TEST_F(MaterialTest, DefaultIsAGreyOf07) {
  Variable material = New("OglMaterial(void)");
  const float ambient = 0.4F * 0.7F;
  const float diffuse = 0.9F * 0.7F;
  ExpectFaces(material, "Ambient", {ambient, ambient, ambient, 1}, {ambient, ambient, ambient, 1});
  ExpectFaces(material, "Diffuse", {diffuse, diffuse, diffuse, 1}, {diffuse, diffuse, diffuse, 1});
  ExpectFaces(material, "Specular", {1, 1, 1, 1}, {1, 1, 1, 1});
  ExpectFaces(material, "Emission", {0, 0, 0, 1}, {0, 0, 0, 1});
  EXPECT_EQ(Shininess(material, true), 60.0F);
  EXPECT_EQ(Shininess(material, false), 120.0F);
}

TEST_F(MaterialTest, NumbersMakeScaledColorsWithWhiteSpecular) {
  Variable material = NewMaterial(1.0F, -0.3F, 7.0F, 0.5F);
  const Floats ambient = {0.4F * 1.0F, 0.4F * -0.3F, 0.4F * 7.0F, 0.5F};
  const Floats diffuse = {0.9F * 1.0F, 0.9F * -0.3F, 0.9F * 7.0F, 0.5F};
  ExpectFaces(material, "Ambient", ambient, ambient);
  ExpectFaces(material, "Diffuse", diffuse, diffuse);
  ExpectFaces(material, "Specular", {1, 1, 1, 0.5F}, {1, 1, 1, 0.5F});
  ExpectFaces(material, "Emission", {0, 0, 0, 0.5F}, {0, 0, 0, 0.5F});
  EXPECT_EQ(Shininess(material, true), 60.0F);
  EXPECT_EQ(Shininess(material, false), 120.0F);
}

TEST_F(MaterialTest, FourColorsAreAmbientDiffuseSpecularEmission) {
  Variable material =
      New("OglMaterial(refer object OglColor, refer object OglColor, refer object OglColor, refer object OglColor)",
          NewColor(1, 2, 3, 4), NewColor(5, 6, 7, 8), NewColor(9, 10, 11, 12), NewColor(13, 14, 15, 16));
  float first = 1;
  for (const char* kind : kKinds) {
    const Floats expected = {first, first + 1, first + 2, first + 3};
    ExpectFaces(material, kind, expected, expected);
    first += 4;
  }
  EXPECT_EQ(Shininess(material, true), 60.0F);
  EXPECT_EQ(Shininess(material, false), 120.0F);
}

TEST_F(MaterialTest, FourColorsWithOneMissingRaise43AndCreateNothing) {
  for (std::size_t missing = 0; missing < 4; ++missing) {
    std::vector<Variable> colors;
    for (std::size_t i = 0; i < 4; ++i) colors.push_back(i == missing ? Unjoined("OglColor") : NewObject("OglColor"));
    Variable material = Unjoined("OglMaterial");
    CallRow(material,
            "OglMaterial(refer object OglColor, refer object OglColor, refer object OglColor, refer object OglColor)",
            colors);
    ExpectNoNative("OglColor");
    EXPECT_EQ(material.GetAssID(), nullptr) << missing;
  }
}

TEST_F(MaterialTest, CopyHasItsOwnComponents) {
  Variable source = NewMaterial(1, 1, 1, 1);
  Call(source, "SetShininess", 3.0F, true);
  Call(source, "SetShininess", 4.0F, false);
  for (const char* kind : kKinds) {
    Call(source, std::string("Set") + kind, 0.1F, 0.2F, 0.3F, 0.4F, true);
    Call(source, std::string("Set") + kind, 0.5F, 0.6F, 0.7F, 0.8F, false);
  }
  Variable copy = New("OglMaterial(copy)", source);
  Call(source, "SetColor", 0.0F, 0.0F, 0.0F, 0.0F);
  Call(source, "~OglMaterial");
  for (const char* kind : kKinds) ExpectFaces(copy, kind, {0.1F, 0.2F, 0.3F, 0.4F}, {0.5F, 0.6F, 0.7F, 0.8F});
  EXPECT_EQ(Shininess(copy, true), 3.0F);
  EXPECT_EQ(Shininess(copy, false), 4.0F);
}

// The log of natives from one to the other: "TalqAss(1)" and so on.
std::string Natives(const char* what, int from, int to) {
  std::string lines;
  for (int i = from; i <= to; ++i) lines += Line(what, i) + "\n";
  return lines;
}

TEST_F(MaterialTest, ComponentsGoInTheOrderInWhichTheyCame) {
  const HostTrace trace;
  {
    const OGLMaterial material(0.1F, 0.2F, 0.3F, 1.0F);
    EXPECT_EQ(TakeLog(), Natives("TalqAss", 0, 8));
  }
  EXPECT_EQ(TakeLog(), Natives("~TalqAss", 1, 8) + Natives("~TalqAss", 0, 0));
}

TEST_F(MaterialTest, AssignmentDeletesAllBeforeItCopies) {
  const OGLMaterial source(0.5F, 0.6F, 0.7F, 1.0F);
  const HostTrace trace;
  OGLMaterial target(0.1F, 0.2F, 0.3F, 1.0F);
  TakeLog();
  target = source;
  EXPECT_EQ(TakeLog(), Natives("~TalqAss", 1, 8) + Natives("TalqAss", 9, 16));
}

TEST_F(MaterialTest, NativeAssignmentCopiesAllAndToleratesItself) {
  const OGLMaterial source(0.5F, 0.5F, 0.5F, 0.25F);
  OGLMaterial target(1, 1, 1, 1);
  target.SetShininess(1, kOn);
  EXPECT_EQ(&(target = source), &target);
  EXPECT_EQ(target.GetDiffuse(kOff).red, 0.9F * 0.5F);
  EXPECT_EQ(target.GetShininess(kOn), 60.0F);
  const OGLMaterial& same = target;
  target = same;
  EXPECT_EQ(target.GetSpecular(kOn).alpha, 0.25F);
}

TEST_F(MaterialTest, SetColorGivesSpecularTheColorItself) {
  Variable material = NewMaterial(0, 0, 0, 0);
  Call(material, "SetColor", 0.7F, 0.0F, 0.3F, 0.5F);
  const Floats specular = {0.7F, 0.0F, 0.3F, 0.5F};
  const Floats diffuse = {0.9F * 0.7F, 0.0F, 0.9F * 0.3F, 0.5F};
  const Floats ambient = {0.4F * 0.7F, 0.0F, 0.4F * 0.3F, 0.5F};
  ExpectFaces(material, "Specular", specular, specular);
  ExpectFaces(material, "Diffuse", diffuse, diffuse);
  ExpectFaces(material, "Ambient", ambient, ambient);
  ExpectFaces(material, "Emission", {0, 0, 0, 0.5F}, {0, 0, 0, 0.5F});
}

// 0 times infinity is no number.
TEST_F(MaterialTest, EmissionIsZeroTimesTheColor) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  for (std::size_t infinite = 0; infinite < 3; ++infinite) {
    Floats color = {1, 2, 3};
    color[infinite] = kInfinity;
    Variable material = NewMaterial(0, 0, 0, 1);
    Call(material, "SetColor", color[0], color[1], color[2], 0.5F);
    const Floats emission = Get(material, "Emission", true);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(std::isnan(emission[i]), i == infinite) << i;
    EXPECT_EQ(emission[3], 0.5F);
  }
}

TEST_F(MaterialTest, SetColorWithASelectorSetsOneFace) {
  Variable material = NewMaterial(0, 0, 0, 1);
  Call(material, "SetColor", 1.0F, 1.0F, 1.0F, 0.5F, true);
  ExpectFaces(material, "Specular", {1, 1, 1, 0.5F}, {1, 1, 1, 1});
  ExpectFaces(material, "Diffuse", {0.9F, 0.9F, 0.9F, 0.5F}, {0, 0, 0, 1});
  Call(material, "SetColor", 0.0F, 0.0F, 0.0F, 0.25F, 0);
  ExpectFaces(material, "Specular", {1, 1, 1, 0.5F}, {0, 0, 0, 0.25F});
  ExpectFaces(material, "Emission", {0, 0, 0, 0.5F}, {0, 0, 0, 0.25F});
}

// The setters of one component, which differ in nothing but the component.
class MaterialComponentTest : public ModuleTest, public testing::WithParamInterface<const char*> {
 protected:
  std::string setter = std::string("Set") + GetParam();
  // All components of this material are zero but their alpha, which is 9.
  Variable NewZeroMaterial() {
    const Variable zero = NewColor(0, 0, 0, 9);
    return New(
        "OglMaterial(refer object OglColor, refer object OglColor, refer object OglColor, refer object OglColor)", zero,
        zero, zero, zero);
  }
  // Expects the component's faces, and all other components unchanged.
  void ExpectOnly(Variable& material, const Floats& front, const Floats& back) {
    for (const char* kind : kKinds) {
      if (std::string(kind) == GetParam()) {
        ExpectFaces(material, kind, front, back);
      } else {
        ExpectFaces(material, kind, kUnset, kUnset);
      }
    }
  }
  const Floats kUnset = {0, 0, 0, 9};
};

TEST_P(MaterialComponentTest, NumbersSetBothFacesUnscaled) {
  Variable material = NewZeroMaterial();
  Call(material, setter, 0.1F, -2.0F, 3.0F, 0.5F);
  ExpectOnly(material, {0.1F, -2.0F, 3.0F, 0.5F}, {0.1F, -2.0F, 3.0F, 0.5F});
}

TEST_P(MaterialComponentTest, NumbersWithASelectorSetThatFace) {
  Variable front = NewZeroMaterial();
  Call(front, setter, 1.0F, 2.0F, 3.0F, 4.0F, true);
  ExpectOnly(front, {1, 2, 3, 4}, kUnset);
  Variable back = NewZeroMaterial();
  Call(back, setter, 1.0F, 2.0F, 3.0F, 4.0F, 0);
  ExpectOnly(back, kUnset, {1, 2, 3, 4});
}

TEST_P(MaterialComponentTest, ArgumentsPastTheSelectorAreIgnored) {
  Variable material = NewZeroMaterial();
  Call(material, setter, 1.0F, 2.0F, 3.0F, 4.0F, false, true, true);
  ExpectOnly(material, kUnset, {1, 2, 3, 4});
}

TEST_P(MaterialComponentTest, ColorSetsBothFaces) {
  Variable material = NewZeroMaterial();
  Call(material, setter, NewColor(1, 2, 3, 4));
  ExpectOnly(material, {1, 2, 3, 4}, {1, 2, 3, 4});
}

TEST_P(MaterialComponentTest, ColorWithASelectorSetsThatFace) {
  Variable front = NewZeroMaterial();
  Call(front, setter, NewColor(1, 2, 3, 4), true);
  ExpectOnly(front, {1, 2, 3, 4}, kUnset);
  Variable back = NewZeroMaterial();
  Call(back, setter, NewColor(1, 2, 3, 4), false);
  ExpectOnly(back, kUnset, {1, 2, 3, 4});
}

TEST_P(MaterialComponentTest, ColorWithoutNativeRaises43AndChangesNothing) {
  Variable material = NewZeroMaterial();
  Call(material, setter, Unjoined("OglColor"));
  ExpectNoNative("OglColor");
  Call(material, setter, Unjoined("OglColor"), true);
  ExpectNoNative("OglColor");
  ExpectOnly(material, kUnset, kUnset);
}

INSTANTIATE_TEST_SUITE_P(Each, MaterialComponentTest, testing::ValuesIn(kKinds),
                         [](const auto& test) { return std::string(test.param); });

TEST_F(MaterialTest, ShininessSetsBothFacesOrTheSelectedOne) {
  Variable material = NewObject("OglMaterial");
  Call(material, "SetShininess", 10.0F);
  EXPECT_EQ(Shininess(material, true), 10.0F);
  EXPECT_EQ(Shininess(material, false), 10.0F);
  Call(material, "SetShininess", 20.0F, true);
  Call(material, "SetShininess", -30.0F, false);
  EXPECT_EQ(Shininess(material, true), 20.0F);
  EXPECT_EQ(Shininess(material, false), -30.0F);
}

TEST_F(MaterialTest, GettersMakeNewColorObjects) {
  Variable material = NewMaterial(1, 1, 1, 1);
  Variable color = Call(material, "GetDiffuse", true);
  EXPECT_EQ(devhost::KindOf(color), "OglColor");
  Call(color, "*=", 0.0F);
  EXPECT_EQ(Get(material, "Diffuse", true), Floats({0.9F, 0.9F, 0.9F, 1}));
}

TEST_F(MaterialTest, ApplySendsTheComponentsInFieldOrderThenShininess) {
  OGLMaterial material(OGLColor(1, 2, 3, 4), OGLColor(5, 6, 7, 8), OGLColor(9, 10, 11, 12), OGLColor(13, 14, 15, 16));
  material.SetDiffuse(-1, 0, 2, 0.5F, kOff);
  material.Apply();
  EXPECT_EQ(TakeLog(), Lines({
                           "glMaterialfv(GL_FRONT, GL_AMBIENT, {1, 2, 3, 4})",
                           "glMaterialfv(GL_FRONT, GL_DIFFUSE, {5, 6, 7, 8})",
                           "glMaterialfv(GL_FRONT, GL_SPECULAR, {9, 10, 11, 12})",
                           "glMaterialfv(GL_FRONT, GL_EMISSION, {13, 14, 15, 16})",
                           "glMaterialfv(GL_BACK, GL_AMBIENT, {1, 2, 3, 4})",
                           "glMaterialfv(GL_BACK, GL_DIFFUSE, {-1, 0, 2, 0.5})",
                           "glMaterialfv(GL_BACK, GL_SPECULAR, {9, 10, 11, 12})",
                           "glMaterialfv(GL_BACK, GL_EMISSION, {13, 14, 15, 16})",
                           "glMaterialf(GL_FRONT, GL_SHININESS, 60)",
                           "glMaterialf(GL_BACK, GL_SHININESS, 120)",
                       }));
}

TEST_F(MaterialTest, NothingReachesOpenGLBeforeApply) {
  Variable material = NewObject("OglMaterial");
  Call(material, "SetColor", 1.0F, 1.0F, 1.0F, 1.0F);
  Call(material, "SetAmbient", NewObject("OglColor"));
  Call(material, "SetShininess", 1.0F);
  EXPECT_EQ(TakeLog(), "");
}

// A material whose n-th component (counted from 0, in field order) could not be allocated.
Variable MaterialWithout(int n) {
  Variable material = Unjoined("OglMaterial");
  const FailingAllocation failure(n + 2);  // the first allocation is the material
  Call(material, "OglMaterial(number, number, number, number)", 1.0F, 1.0F, 1.0F, 1.0F);
  EXPECT_TRUE(failure.Happened());
  return material;
}

TEST_F(MaterialTest, MissingComponentReadsAsWhiteOnBothFaces) {
  for (int n = 0; n < 8; ++n) {
    Variable material = MaterialWithout(n);
    const std::string kind = kKinds[n % 4];
    Call(material, "Set" + kind, 0.0F, 0.0F, 0.0F, 0.0F);
    ExpectFaces(material, kind, {1, 1, 1, 1}, {1, 1, 1, 1});
    const std::string other = kKinds[(n + 1) % 4];
    Call(material, "Set" + other, 0.0F, 0.0F, 0.0F, 0.0F);
    ExpectFaces(material, other, {0, 0, 0, 0}, {0, 0, 0, 0});
  }
}

TEST_F(MaterialTest, MissingComponentIsNotAppliedNorCopied) {
  const Variable material = MaterialWithout(1);
  const Variable copy = New("OglMaterial(copy)", material);
  for (const Variable& each : std::vector{material, copy}) {
    NativeOf<OGLMaterial>(each)->Apply();
    const std::string log = TakeLog();
    EXPECT_THAT(log, Not(HasSubstr("GL_FRONT, GL_DIFFUSE")));
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 9);
  }
}

TEST_F(MaterialTest, AssignmentTakesOverThatAComponentIsMissing) {
  const Variable incomplete = MaterialWithout(1);
  OGLMaterial target(0, 0, 0, 0);
  target = *NativeOf<OGLMaterial>(incomplete);
  target.Apply();
  EXPECT_THAT(TakeLog(), Not(HasSubstr("GL_FRONT, GL_DIFFUSE")));
}

TEST_F(MaterialTest, AComponentCanBeMadeFromAColor) {
  const OGLMaterialColor component(GL_DIFFUSE, OGLColor(1, 2, 3, 4), GL_BACK);
  component.Apply();
  EXPECT_EQ(TakeLog(), "glMaterialfv(GL_BACK, GL_DIFFUSE, {1, 2, 3, 4})\n");
}

}  // namespace
