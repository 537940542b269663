// One colour of a material.
#include "classes/material_color.h"

#include <string>

#include "classes/gl.h"
#include "tests/unit/support/fixture.h"

namespace {

using MaterialColorTest = ModuleTest;

std::string SentBy(const OGLMaterialColor& color) {
  color.Apply();
  return TakeLog();
}

TEST_F(MaterialColorTest, KnowsItsParameterAndFace) {
  OGLMaterialColor color(GL_DIFFUSE, 1, 2, 3, 4, GL_FRONT);
  EXPECT_EQ(SentBy(color), "glMaterialfv(GL_FRONT, GL_DIFFUSE, {1, 2, 3, 4})\n");
  color.Set(GL_EMISSION, 5, 6, 7, 8, GL_BACK);
  EXPECT_EQ(SentBy(color), "glMaterialfv(GL_BACK, GL_EMISSION, {5, 6, 7, 8})\n");
  const OGLMaterialColor ofAColor(GL_AMBIENT, OGLColor(9, 10, 11, 12), GL_BACK);
  EXPECT_EQ(SentBy(ofAColor), "glMaterialfv(GL_BACK, GL_AMBIENT, {9, 10, 11, 12})\n");
  color = ofAColor;
  EXPECT_EQ(SentBy(color), SentBy(ofAColor));
}

}  // namespace
