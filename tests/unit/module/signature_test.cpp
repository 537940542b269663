// Which signature texts fit which C++ types. The compiler asks the same of every row of the method table.
#include "binding/signature.h"

#include <string_view>

#include <gtest/gtest.h>

#include "binding/method.h"
#include "classes/color.h"
#include "classes/material.h"
#include "render/topengl.h"

namespace {

TEST(SignatureTest, MethodHasItsClassAndKinds) {
  EXPECT_TRUE(IsMethodOf<TOpenGL>("TOpenGL::Clear(void)"));
  EXPECT_TRUE((IsMethodOf<TOpenGL, float>("TOpenGL::SetSpot(number)")));
  EXPECT_TRUE((IsMethodOf<TOpenGL, float, int, Flag>("TOpenGL::Any(number, int, boolean)")));
  EXPECT_TRUE((IsMethodOf<TOpenGL, const OGLColor&, const OGLMaterial&>(
      "TOpenGL::Any(refer object OglColor, refer object OglMaterial)")));
  EXPECT_TRUE((IsMethodOf<OGLColor, float>("OglColor::Any(number)")));
  EXPECT_TRUE((IsMethodOf<OGLMaterial, Flag>("OglMaterial::Any(boolean)")));
}

TEST(SignatureTest, MethodOfAnotherClassDoesNotFit) {
  EXPECT_FALSE((IsMethodOf<OGLColor, float>("TOpenGL::SetSpot(number)")));
  EXPECT_FALSE((IsMethodOf<TOpenGL, float>("TOpenG::SetSpot(number)")));
  EXPECT_FALSE((IsMethodOf<TOpenGL, float>("TOpenGL.SetSpot(number)")));
  EXPECT_FALSE((IsMethodOf<TOpenGL, float>("")));
}

TEST(SignatureTest, OtherParametersDoNotFit) {
  for (const std::string_view list :
       {"(void)", "(number)", "(number, number, number)", "(number,number)", "(number, int)", "(int, number)",
        "(number, number", "(number, number) ", "number, number", "()", "(", ""}) {
    EXPECT_FALSE((IsMethodOf<TOpenGL, float, float>("TOpenGL::Any" + std::string(list)))) << list;
  }
  EXPECT_FALSE(IsMethodOf<TOpenGL>("TOpenGL::Any(number)"));
  EXPECT_FALSE(IsMethodOf<TOpenGL>("TOpenGL::Any()"));
  EXPECT_FALSE(IsMethodOf<TOpenGL>("TOpenGL::Any(void, void)"));
  EXPECT_FALSE((IsMethodOf<TOpenGL, const OGLColor&>("TOpenGL::Any(refer object OglMaterial)")));
}

TEST(SignatureTest, ConstructorHasItsClassTwice) {
  EXPECT_TRUE(IsConstructorOf<OGLColor>("OglColor::OglColor(void)"));
  EXPECT_TRUE((IsConstructorOf<OGLColor, float, float>("OglColor::OglColor(number, number)")));
  for (const std::string_view text :
       {"TOpenGL::OglColor(void)", "OglColor::TOpenGL(void)", "OglColor.OglColor(void)", "OglColor::OglColor void)",
        "OglColor::~OglColor(void)", "OglColor::OglColor(number)", ""}) {
    EXPECT_FALSE(IsConstructorOf<OGLColor>(text)) << text;
  }
}

TEST(SignatureTest, CopyStandsForOneOfTheClassItself) {
  EXPECT_TRUE((IsConstructorOf<OGLColor, const OGLColor&>("OglColor::OglColor(copy)")));
  EXPECT_FALSE((IsConstructorOf<OGLColor, const OGLColor&>("OglColor::OglColor(refer object OglColor)")));
  EXPECT_FALSE((IsConstructorOf<OGLColor, const OGLColor&>("OglColor::OglColor(copy, copy)")));
  EXPECT_TRUE((IsConstructorOf<OGLColor, const OGLMaterial&>("OglColor::OglColor(refer object OglMaterial)")));
  EXPECT_TRUE((IsConstructorOf<OGLColor, const OGLColor&, const OGLColor&>(
      "OglColor::OglColor(refer object OglColor, refer object OglColor)")));
  EXPECT_FALSE((IsConstructorOf<OGLColor, float>("OglColor::OglColor(copy)")));
}

TEST(SignatureTest, DestructorTakesNothing) {
  EXPECT_TRUE(IsDestructorOf<OGLColor>("OglColor::~OglColor(void)"));
  for (const std::string_view text :
       {"TOpenGL::~OglColor(void)", "OglColor::~TOpenGL(void)", "OglColor::OglColor(void)", "OglColor::~OglColor()",
        "OglColor::~OglColor(void) ", ""}) {
    EXPECT_FALSE(IsDestructorOf<OGLColor>(text)) << text;
  }
}

// What Method asks: the parameters are those of the member function.
TEST(SignatureTest, MembersTypeGivesTheKinds) {
  using SetSpot = MemberType<decltype(&OGLLightSet::SetSpotCutoff)>;
  EXPECT_TRUE(SetSpot::Fits<TOpenGL>("TOpenGL::SetSpot(number)"));
  EXPECT_FALSE(SetSpot::Fits<TOpenGL>("TOpenGL::SetSpot(int)"));
  using GetSpot = MemberType<decltype(&OGLLightSet::GetSpotCutoff)>;
  EXPECT_TRUE(GetSpot::Fits<TOpenGL>("TOpenGL::GetSpot(void)"));
  EXPECT_FALSE(GetSpot::Fits<TOpenGL>("TOpenGL::GetSpot(number)"));
}

}  // namespace
