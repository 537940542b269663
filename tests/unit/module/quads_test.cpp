// The order in which quads and polygons are drawn.
#include <string>
#include <vector>

#include "tests/unit/support/drawing.h"

namespace {

using QuadsTest = ModuleTest;

constexpr int kCount = 8;

struct Kind {
  const char* row;
  const char* mode;
};
const Kind kPlain[] = {{"QuadStrip", "GL_QUAD_STRIP"}, {"Quads", "GL_QUADS"}, {"Polygon", "GL_POLYGON"}};
const Kind kColored[] = {{"ColorQuads", "GL_QUADS"}, {"ColorPolygon", "GL_POLYGON"}};

Floats Points() { return Counting(kCount); }
Floats Scaled(float factor) {
  Floats numbers = Counting(kCount);
  for (float& number : numbers) number *= factor;
  return numbers;
}

std::string ColoredBody(const Floats& normals, const Floats& colors) {
  std::string body;
  for (int i = 0; i < kCount; ++i) body += Normal(normals, i) + Color(colors, i) + Vertex(Points(), i);
  return body;
}

TEST_F(QuadsTest, NormalsComeBeforeTheirPoints) {
  Variable renderer = OpenRenderer();
  const Floats normals = Scaled(-0.1F);
  std::string body;
  for (int i = 0; i < kCount; ++i) body += Normal(normals, i) + Vertex(Points(), i);
  for (const Kind& kind : kPlain) {
    Call(renderer, kind.row, Numbers(Points()), Numbers(normals));
    EXPECT_EQ(TakeLog(), Batch(kind.mode, body)) << kind.row;
  }
}

TEST_F(QuadsTest, ColorsComeBetweenNormalsAndPoints) {
  Variable renderer = OpenRenderer();
  const Floats normals = Scaled(-0.1F);
  const Floats colors = Scaled(0.01F);
  for (const Kind& kind : kColored) {
    Call(renderer, kind.row, Numbers(Points()), Numbers(normals), Numbers(colors));
    EXPECT_EQ(TakeLog(), Batch(kind.mode, ColoredBody(normals, colors))) << kind.row;
  }
}

TEST_F(QuadsTest, LitQuadsKeepPlainColors) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableLight", true);
  TakeLog();
  const Floats colors = Scaled(0.01F);
  for (const Kind& kind : kColored) {
    Call(renderer, kind.row, Numbers(Points()), Numbers(Points()), Numbers(colors));
    EXPECT_EQ(TakeLog(), Batch(kind.mode, ColoredBody(Points(), colors))) << kind.row;
  }
}

TEST_F(QuadsTest, WiredDrawsOutlines) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableWired", true);
  const Variable vector = Numbers(Points());
  for (const Kind& kind : kPlain) {
    Call(renderer, kind.row, vector, vector);
    EXPECT_TRUE(TakeLog().starts_with(std::string(kOutlined) + "glBegin")) << kind.row;
  }
  for (const Kind& kind : kColored) {
    Call(renderer, kind.row, vector, vector, vector);
    EXPECT_TRUE(TakeLog().starts_with(std::string(kOutlined) + "glBegin")) << kind.row;
  }
}

}  // namespace
