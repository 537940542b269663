// The order in which triangles and strips are drawn.
#include <array>
#include <string>

#include "classes/material.h"
#include "render/face_normal.h"
#include "tests/unit/support/drawing.h"

namespace {

using TrianglesTest = ModuleTest;

constexpr char kPoints[] = "Triangles(refer object Vector)";
constexpr char kPointsNormals[] = "Triangles(refer object Vector, refer object Vector)";
constexpr char kStrip[] = "TriangleStrip(refer object Vector)";
constexpr char kStripNormals[] = "TriangleStrip(refer object Vector, refer object Vector)";

// Points in general position, whose coordinates' products are not exact in single precision.
const Floats kMesh = {0.1F, 0.7F,  -1.3F, 2.9F, 0.33F, 0.77F, -1.1F, 5.3F,  0.2F,
                      1.9F, -0.3F, 4.1F,  0.6F, 3.3F,  -2.7F, 7.1F,  -0.9F, 1.7F};

std::string Face(const Floats& points, int face) {
  return Vertex(points, 3 * face) + Vertex(points, 3 * face + 1) + Vertex(points, 3 * face + 2);
}

// The cross product (P2 - P1) x (P0 - P1) of the corners from point k on, in single precision.
std::array<float, 3> Cross(const Floats& points, int k) {
  std::array<float, 3> a{};
  std::array<float, 3> b{};
  for (std::size_t axis = 0; axis < 3; ++axis) {
    const std::size_t first = 3 * static_cast<std::size_t>(k) + axis;
    a[axis] = points[first + 6] - points[first + 3];
    b[axis] = points[first] - points[first + 3];
  }
  std::array<float, 3> normal{};
  for (std::size_t axis = 0; axis < 3; ++axis) {
    const std::size_t next = (axis + 1) % 3;
    const std::size_t last = (axis + 2) % 3;
    const float plus = a[next] * b[last];
    const float minus = a[last] * b[next];
    normal[axis] = plus - minus;
  }
  return normal;
}

std::string FaceNormal(const Floats& points, int k, float sign = 1) {
  const auto [x, y, z] = Cross(points, k);
  return Line("glNormal3f", sign * x, sign * y, sign * z) + "\n";
}

// A lit colour is sent as the material that is made from it.
std::string Material(float red, float green, float blue) {
  return LogOf([=] { OGLMaterial(red, green, blue, 1).Apply(); });
}

TEST_F(TrianglesTest, FaceNormalPointsToTheViewerOfCounterClockwiseCorners) {
  const Floats points = {0, 0, 0, 1, 0, 0, 0, 1, 0};
  const TripleSpan span{points.data(), 3};
  EXPECT_EQ(Floats({FaceNormalX(span, 0), FaceNormalY(span, 0), FaceNormalZ(span, 0)}), Floats({0, 0, 1}));
}

TEST_F(TrianglesTest, FaceNormalIsNotNormalisedAndStartsAtPointK) {
  const Floats points = {9, 9, 9, 0, 0, 0, 0, 0, 5, 0, -3, 0};
  const TripleSpan span{points.data(), 4};
  EXPECT_EQ(Floats({FaceNormalX(span, 1), FaceNormalY(span, 1), FaceNormalZ(span, 1)}), Floats({15, 0, 0}));
}

TEST_F(TrianglesTest, PointsAloneGetTheirFaceNormals) {
  Variable renderer = OpenRenderer();
  Call(renderer, kPoints, Numbers(kMesh));
  EXPECT_EQ(TakeLog(),
            Batch("GL_TRIANGLES", FaceNormal(kMesh, 0) + Face(kMesh, 0) + FaceNormal(kMesh, 3) + Face(kMesh, 1)));
}

TEST_F(TrianglesTest, AsManyNormalsAsPointsAreOneAVertex) {
  Variable renderer = OpenRenderer();
  const Floats normals = Counting(6);
  Call(renderer, kPointsNormals, Numbers(kMesh), Numbers(normals));
  std::string body;
  for (int i = 0; i < 6; ++i) body += Normal(normals, i) + Vertex(kMesh, i);
  EXPECT_EQ(TakeLog(), Batch("GL_TRIANGLES", body));
}

TEST_F(TrianglesTest, AThirdAsManyNormalsAreOneAFace) {
  Variable renderer = OpenRenderer();
  const Floats normals = Counting(2);
  Call(renderer, kPointsNormals, Numbers(kMesh), Numbers(normals));
  EXPECT_EQ(TakeLog(),
            Batch("GL_TRIANGLES", Normal(normals, 0) + Face(kMesh, 0) + Normal(normals, 1) + Face(kMesh, 1)));
}

TEST_F(TrianglesTest, ColorsOfVerticesComeBeforeTheirNormals) {
  Variable renderer = OpenRenderer();
  const Floats normals = Counting(6);
  const Floats colors(kMesh.rbegin(), kMesh.rend());
  Call(renderer, "ColorTriangles", Numbers(kMesh), Numbers(normals), Numbers(colors));
  std::string body;
  for (int i = 0; i < 6; ++i) body += Color(colors, i) + Normal(normals, i) + Vertex(kMesh, i);
  EXPECT_EQ(TakeLog(), Batch("GL_TRIANGLES", body));
}

TEST_F(TrianglesTest, AFaceTakesTheColorOfItsOwnNumber) {
  Variable renderer = OpenRenderer();
  const Floats normals = Counting(2);
  const Floats colors(kMesh.rbegin(), kMesh.rend());
  Call(renderer, "ColorTriangles", Numbers(kMesh), Numbers(normals), Numbers(colors));
  EXPECT_EQ(TakeLog(), Batch("GL_TRIANGLES", Color(colors, 0) + Normal(normals, 0) + Face(kMesh, 0) + Color(colors, 1) +
                                                 Normal(normals, 1) + Face(kMesh, 1)));
}

TEST_F(TrianglesTest, PackedColorsColorTheVertices) {
  Variable renderer = OpenRenderer();
  const Floats points = Counting(3);
  Call(renderer, "ColorTriangles", Numbers(points), Numbers({0, 0, 1}), Integers({0xFF, 0xFF00, 0xFF0000}));
  EXPECT_EQ(TakeLog(), Batch("GL_TRIANGLES", "glColor3f(1, 0, 0)\nglNormal3f(0, 0, 1)\n" + Face(points, 0)));
}

TEST_F(TrianglesTest, LitColorsBecomeMaterials) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableLight", true);
  TakeLog();
  const Floats points = Counting(3);
  const Floats colors = {0.1F, 0.2F, 0.3F, 0.4F, 0.5F, 0.6F, 0.7F, 0.8F, 0.9F};
  Call(renderer, "ColorTriangles", Numbers(points), Numbers(points), Numbers(colors));
  EXPECT_EQ(TakeLog(), Batch("GL_TRIANGLES", Material(0.1F, 0.2F, 0.3F) + Normal(points, 0) + Vertex(points, 0) +
                                                 Material(0.4F, 0.5F, 0.6F) + Normal(points, 1) + Vertex(points, 1) +
                                                 Material(0.7F, 0.8F, 0.9F) + Normal(points, 2) + Vertex(points, 2)));
  Call(renderer, "ColorTriangles", Numbers(points), Numbers({0, 0, 1}), Numbers(colors));
  EXPECT_EQ(TakeLog(), Batch("GL_TRIANGLES", Material(0.1F, 0.2F, 0.3F) + "glNormal3f(0, 0, 1)\n" + Face(points, 0)));
}

TEST_F(TrianglesTest, LitMaterialIsScaledWithWhiteSpecular) {
  const std::string log = Material(1, 0, 0.5F);
  EXPECT_TRUE(log.starts_with(Lines({"glMaterialfv(GL_FRONT, GL_AMBIENT, {0.4, 0, 0.2, 1})",
                                     "glMaterialfv(GL_FRONT, GL_DIFFUSE, {0.9, 0, 0.45, 1})",
                                     "glMaterialfv(GL_FRONT, GL_SPECULAR, {1, 1, 1, 1})"})))
      << log;
  EXPECT_TRUE(log.ends_with("glMaterialf(GL_FRONT, GL_SHININESS, 60)\nglMaterialf(GL_BACK, GL_SHININESS, 120)\n"));
}

TEST_F(TrianglesTest, StripWithNormals) {
  Variable renderer = OpenRenderer();
  const Floats normals = Counting(4);
  const Floats points(kMesh.begin(), kMesh.begin() + 12);
  Call(renderer, kStripNormals, Numbers(points), Numbers(normals));
  std::string body;
  for (int i = 0; i < 4; ++i) body += Normal(normals, i) + Vertex(points, i);
  EXPECT_EQ(TakeLog(), Batch("GL_TRIANGLE_STRIP", body));
}

TEST_F(TrianglesTest, StripTurnsEverySecondNormal) {
  Variable renderer = OpenRenderer();
  Call(renderer, kStrip, Numbers(kMesh));
  const std::string first = FaceNormal(kMesh, 0);
  EXPECT_EQ(TakeLog(),
            Batch("GL_TRIANGLE_STRIP", first + Vertex(kMesh, 0) + first + Vertex(kMesh, 1) + first + Vertex(kMesh, 2) +
                                           FaceNormal(kMesh, 1, -1) + Vertex(kMesh, 3) + FaceNormal(kMesh, 2) +
                                           Vertex(kMesh, 4) + FaceNormal(kMesh, 3, -1) + Vertex(kMesh, 5)));
}

TEST_F(TrianglesTest, FlatStripKeepsItsSide) {
  Variable renderer = OpenRenderer();
  Call(renderer, kStrip, Numbers({0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0, 0, 2, 0}));
  const std::string log = TakeLog();
  int facing = 0;
  for (std::size_t at = log.find("glNormal3f"); at != std::string::npos; at = log.find("glNormal3f", at + 1)) {
    facing += log.substr(at, log.find('\n', at) - at).ends_with(", 1)") ? 1 : 0;
  }
  EXPECT_EQ(facing, 5) << log;
}

TEST_F(TrianglesTest, WiredDrawsOutlines) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableWired", true);
  const Floats points = Counting(3);
  const Variable vector = Numbers(points);
  for (const char* row : {kPoints, kStrip}) {
    Call(renderer, row, vector);
    EXPECT_TRUE(TakeLog().starts_with(std::string(kOutlined) + "glBegin")) << row;
  }
  for (const char* row : {kPointsNormals, kStripNormals}) {
    Call(renderer, row, vector, vector);
    EXPECT_TRUE(TakeLog().starts_with(std::string(kOutlined) + "glBegin")) << row;
  }
  Call(renderer, "ColorTriangles", vector, vector, vector);
  EXPECT_TRUE(TakeLog().starts_with(std::string(kOutlined) + "glBegin"));
}

}  // namespace
