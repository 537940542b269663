// Box and torus.
#include <cmath>
#include <numbers>
#include <string>

#include "tests/unit/support/drawing.h"
#include "tests/unit/support/renderer_states.h"

namespace {

using SolidsTest = ModuleTest;

constexpr char kBox[] = "Box(number, number, number)";
constexpr char kBoxAt[] = "Box(number, number, number, number, number, number)";

// The faces of a box with these half sizes.
std::string BoxFaces(float x, float y, float z) {
  const Floats corners = {
      -x, -y, z,  x,  -y, z,  x,  y,  z,  -x, y,  z,   // front
      -x, -y, -z, -x, y,  -z, x,  y,  -z, x,  -y, -z,  // back
      -x, -y, z,  -x, y,  z,  -x, y,  -z, -x, -y, -z,  // left
      x,  -y, z,  x,  -y, -z, x,  y,  -z, x,  y,  z,   // right
      -x, y,  z,  x,  y,  z,  x,  y,  -z, -x, y,  -z,  // top
      -x, -y, z,  -x, -y, -z, x,  -y, -z, x,  -y, z,   // bottom
  };
  const Floats normals = {0, 0, 1, 0, 0, -1, -1, 0, 0, 1, 0, 0, 0, 1, 0, 0, -1, 0};
  std::string faces;
  for (int face = 0; face < 6; ++face) {
    faces += Normal(normals, face);
    for (int corner = 0; corner < 4; ++corner) faces += Vertex(corners, 4 * face + corner);
  }
  return faces;
}

TEST_F(SolidsTest, BoxTakesItsSizesAlongXZY) {
  Variable renderer = OpenRenderer();
  EXPECT_TRUE(IsUntouched(Call(renderer, kBox, 1, 2, 3)));
  EXPECT_EQ(TakeLog(), Batch("GL_QUADS", BoxFaces(0.5F, 1.5F, 1)));
}

TEST_F(SolidsTest, HalfSizesAreSinglePrecision) {
  Variable renderer = OpenRenderer();
  Call(renderer, kBox, Variable(0.1), Variable(0.7), Variable(-3.3));
  EXPECT_EQ(TakeLog(), Batch("GL_QUADS", BoxFaces(0.1F / 2, -3.3F / 2, 0.7F / 2)));
  Call(renderer, kBox, 0, 0, 0);
  EXPECT_EQ(TakeLog(), Batch("GL_QUADS", BoxFaces(0, 0, 0)));
}

std::string BoxAtLines(const std::string& translation, const std::string& faces, const char* polygonMode = kFilled) {
  return Lines({"glMatrixMode(GL_MODELVIEW)", "glPushMatrix()", translation}) + Batch("GL_QUADS", faces, polygonMode) +
         "glPopMatrix()\n";
}

TEST_F(SolidsTest, BoxAtItsLowestCorner) {
  Variable renderer = OpenRenderer();
  Call(renderer, kBoxAt, 0, 0, 0, 1, 2, 3);
  EXPECT_EQ(TakeLog(), BoxAtLines("glTranslatef(0.5, 1.5, 1)", BoxFaces(0.5F, 1.5F, 1)));
  Call(renderer, kBoxAt, Variable(0.1), -20, 300, Variable(0.3), 2, Variable(0.7));
  EXPECT_EQ(TakeLog(), BoxAtLines(Line("glTranslatef", 0.1F + 0.3F / 2, -20 + 0.7F / 2, 300.0F + 1),
                                  BoxFaces(0.3F / 2, 0.7F / 2, 1)));
}

TEST_F(SolidsTest, WiredDrawsOutlines) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableWired", true);
  Call(renderer, kBox, 2, 2, 2);
  EXPECT_EQ(TakeLog(), Batch("GL_QUADS", BoxFaces(1, 1, 1), kOutlined));
  Call(renderer, kBoxAt, 0, 0, 0, 2, 2, 2);
  EXPECT_EQ(TakeLog(), BoxAtLines("glTranslatef(1, 1, 1)", BoxFaces(1, 1, 1), kOutlined));
  Call(renderer, "Torus", 2, 3, 1, 1);
  EXPECT_TRUE(TakeLog().starts_with(std::string(kOutlined) + "glBegin(GL_QUAD_STRIP)\nglNormal3d"));
}

// The strips of a torus, in double precision from the angles on.
std::string TorusStrips(double ring, int segments, double tube, int sides) {
  const double twoPi = 2.0 * std::numbers::pi;
  std::string strips;
  for (int i = 0; i < sides; ++i) {
    std::string body;
    for (int j = 0; j <= segments; ++j) {
      const double u = j % segments * twoPi / segments;
      for (int k = 1; k >= 0; --k) {
        const double v = ((i + k) % sides + 0.5) * twoPi / sides;
        body += Line("glNormal3d", std::cos(u) * std::cos(v), std::sin(u) * std::cos(v), std::sin(v)) + "\n";
        body += Line("glVertex3d", (ring + tube * std::cos(v)) * std::cos(u), (ring + tube * std::cos(v)) * std::sin(u),
                     tube * std::sin(v)) +
                "\n";
      }
    }
    strips += Primitive("GL_QUAD_STRIP", body);
  }
  return strips;
}

TEST_F(SolidsTest, Torus) {
  Variable renderer = OpenRenderer();
  for (const auto& [segments, sides] :
       {std::pair(5, 7), std::pair(1, 1), std::pair(32, 3), std::pair(3, 40), std::pair(23, 11)}) {
    EXPECT_TRUE(IsUntouched(Call(renderer, "Torus", Variable(2.3), segments, Variable(0.7), sides)));
    const double ring = static_cast<double>(2.3F);
    const double tube = static_cast<double>(0.7F);
    EXPECT_EQ(TakeLog(), kFilled + TorusStrips(ring, segments, tube, sides)) << segments << " x " << sides;
  }
}

TEST_F(SolidsTest, TubeIsTurnedByHalfAStep) {
  Variable renderer = OpenRenderer();
  Call(renderer, "Torus", 10, 4, 1, 4);
  // Four sides stand on a side, not on an edge: the first strip joins 135 and 45 degrees.
  double x = 0;
  double y = 0;
  double z = 0;
  for (const recorder::Call& call : recorder::Get().calls) {
    if (call.name != "glVertex3d") continue;
    x = std::stod(call.arguments[0]);
    y = std::stod(call.arguments[1]);
    z = std::stod(call.arguments[2]);
    EXPECT_NEAR(std::abs(std::hypot(x, y) - 10), std::sqrt(0.5), 1e-12);
    EXPECT_NEAR(std::abs(z), std::sqrt(0.5), 1e-12);
  }
  EXPECT_EQ(CountVertices(TakeLog()), 4 * 2 * 5);
}

TEST_F(SolidsTest, TorusWithoutSegmentsOrSidesDrawsNoVertex) {
  Variable renderer = OpenRenderer();
  for (const auto& [segments, sides] :
       {std::pair(0, 5), std::pair(5, 0), std::pair(0, 0), std::pair(-3, 5), std::pair(5, -3)}) {
    Call(renderer, "Torus", 2, segments, 1, sides);
    EXPECT_EQ(CountVertices(TakeLog()), 0) << segments << " x " << sides;
    EXPECT_EQ(devhost::RaisedCount(), 0);
  }
}

TEST_F(SolidsTest, TorusWithoutSidesComputesNothing) {
  Variable renderer = OpenRenderer();
  for (const int sides : {0, -1}) {
    const FailingAllocation failure(1);
    Call(renderer, "Torus", 2.0F, 2147483647, 1.0F, sides);
    EXPECT_FALSE(failure.Happened()) << sides;
    EXPECT_EQ(TakeLog(), kFilled);
  }
}

TEST_F(SolidsTest, NothingIsDrawnUnlessOpenAndBound) {
  for (Variable& renderer : UndrawableRenderers()) {
    Call(renderer, kBox, 1, 2, 3);
    Call(renderer, kBoxAt, 0, 0, 0, 1, 2, 3);
    Call(renderer, "Torus", 2, 3, 1, 4);
    EXPECT_EQ(TakeLog(), "");
  }
  EXPECT_EQ(devhost::RaisedCount(), 0);
}

TEST_F(SolidsTest, AnErrorThatIsPendingDoesNotKeepThemFromDrawing) {
  Variable renderer = OpenRenderer();
  devhost::Raise(99, "before");
  Call(renderer, kBox, 2, 2, 2);
  EXPECT_EQ(TakeLog(), Batch("GL_QUADS", BoxFaces(1, 1, 1)));
  Call(renderer, "Torus", 2, 3, 1, 1);
  EXPECT_EQ(CountVertices(TakeLog()), 8);
  ExpectError(99, "before");
}

}  // namespace
