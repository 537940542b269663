// NURBS curves and surfaces through GLU.
#include <string>
#include <vector>

#include "classes/gl.h"
#include "render/topengl.h"
#include "tests/unit/support/drawing.h"

namespace {

using SplinesTest = ModuleTest;

constexpr char kCurve2D[] = "SplineCurve2D";
constexpr char kCurve3D[] = "SplineCurve3D";
constexpr char kSurface[] =
    "SplineSurface(refer object Vector, refer object Vector, refer object Vector, refer object Vector, "
    "refer object Vector)";
constexpr char kSurfaceNormals[] =
    "SplineSurface(refer object Vector, refer object Vector, refer object Vector, refer object Vector, "
    "refer object Vector, refer object Vector)";

// Values that differ from one another: count of them from `first` on.
Floats From(float first, int count) {
  Floats numbers;
  for (int i = 0; i < count; ++i) numbers.push_back(first + static_cast<float>(i));
  return numbers;
}

std::string Brackets(const Floats& numbers) { return gl_trace::Format(std::span<const float>(numbers)); }

// What the renderer begins with, the drawing, in which % is the renderer, and its end.
std::string Nurbs(const std::string& drawing) {
  const std::string handle = NextHandle();
  return Lines({"gluNewNurbsRenderer()", "gluNurbsCallback(" + handle + ", GLU_ERROR)"}) + With(handle, drawing) +
         "gluDeleteNurbsRenderer(" + handle + ")\n";
}

std::string CurveLines(const Floats& knots, const Floats& controls) {
  return Lines({"gluBeginCurve(%)",
                "gluNurbsCurve(%, " + std::to_string(knots.size()) + ", " + Brackets(knots) + ", 3, " +
                    Brackets(controls) + ", 4, GL_MAP1_VERTEX_3)",
                "gluEndCurve(%)"});
}

TEST_F(SplinesTest, CurveInThePlane) {
  Variable renderer = OpenRenderer();
  const Floats knots = {0, 0, 0, 0, 1, 1, 1, 1.5F};
  const std::string expected = Nurbs(CurveLines(knots, {1, 10, 0, 2, 20, 0, 3, 30, 0, 4, 40.5F, 0}));
  EXPECT_TRUE(
      IsUntouched(Call(renderer, kCurve2D, Numbers({1, 2, 3, 4}), Numbers({10, 20, 30, 40.5F}), Numbers(knots))));
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(SplinesTest, CurveInSpace) {
  Variable renderer = OpenRenderer();
  const Floats knots = From(0, 9);
  const std::string expected = Nurbs(CurveLines(knots, {1, 10, 100, 2, 11, 101, 3, 12, 102, 4, 13, 103, 5, 14, 104}));
  Call(renderer, kCurve3D, Numbers(From(1, 5)), Numbers(From(10, 5)), Integers({100, 101, 102, 103, 104}),
       Numbers(knots));
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(SplinesTest, CurveCountsThatDoNotFitRaise8) {
  Variable renderer = OpenRenderer();
  const std::vector<std::vector<int>> refused = {{4, 3, 8},    {4, 5, 8},    {4, 4, 7},    {4, 4, 9},
                                                 {0, 0, 0},    {0, 0, 3},    {4, 8, 4},    {4, 3, 4, 8},
                                                 {4, 4, 3, 8}, {4, 4, 5, 8}, {4, 4, 4, 7}, {4, 4, 4, 9}};
  for (const std::vector<int>& counts : refused) {
    std::vector<Variable> vectors;
    for (const int count : counts) vectors.push_back(Numbers(From(0, count)));
    CallRow(renderer, counts.size() == 3 ? kCurve2D : kCurve3D, vectors);
    ExpectError(8, "");
    EXPECT_EQ(TakeLog(), "");
  }
}

TEST_F(SplinesTest, CurvesOfAnyLengthAreLeftToGlu) {
  Variable renderer = OpenRenderer();
  const std::string three = Nurbs(CurveLines(From(0, 7), {0, 0, 0, 1, 1, 1, 2, 2, 2}));
  Call(renderer, kCurve3D, Numbers(From(0, 3)), Numbers(From(0, 3)), Numbers(From(0, 3)), Numbers(From(0, 7)));
  EXPECT_EQ(TakeLog(), three);
  const std::string none = Nurbs(CurveLines(From(0, 4), {}));
  Call(renderer, kCurve2D, Numbers({}), Numbers({}), Numbers(From(0, 4)));
  EXPECT_EQ(TakeLog(), none);
}

// A surface, of 5 columns and 4 rows where nothing else is said.
struct Surface {
  Floats xs = From(1, 5);
  Floats zs = From(100, 4);
  std::vector<Floats> heights = {From(10, 5), From(20, 5), From(30, 5), From(40, 5)};
  Floats sKnots = From(0, 9);
  Floats tKnots = From(50, 8);

  std::vector<Variable> Arguments(const Variable* normals = nullptr) const {
    std::vector<Variable> rows;
    for (const Floats& row : heights) rows.push_back(Numbers(row));
    std::vector<Variable> arguments{Numbers(xs), Numbers(zs), Vector(rows)};
    if (normals) arguments.push_back(*normals);
    arguments.push_back(Numbers(sKnots));
    arguments.push_back(Numbers(tKnots));
    return arguments;
  }
  std::vector<Variable> Arguments(const Variable& normals) const { return Arguments(&normals); }
  // The script's last row first.
  Floats Controls() const {
    Floats controls;
    for (std::size_t row = heights.size(); row-- > 0;) {
      for (std::size_t i = 0; i < xs.size(); ++i) controls.insert(controls.end(), {xs[i], heights[row][i], zs[row]});
    }
    return controls;
  }
  std::string Line(const Floats& values, const char* map) const {
    const std::size_t rowStride = 3 * xs.size();
    return "gluNurbsSurface(%, " + std::to_string(sKnots.size()) + ", " + Brackets(sKnots) + ", " +
           std::to_string(tKnots.size()) + ", " + Brackets(tKnots) + ", 3, " + std::to_string(rowStride) + ", " +
           Brackets(values) + ", 4, 4, " + map + ")\n";
  }
  std::string Filled() const {
    return std::string(kFilled) + "glEnable(GL_AUTO_NORMAL)\ngluNurbsProperty(%, GLU_DISPLAY_MODE, GLU_FILL)\n" +
           "gluBeginSurface(%)\n" + Line(Controls(), "GL_MAP2_VERTEX_3") + "gluEndSurface(%)\n";
  }
  std::string Filled(const Floats& normals) const {
    return std::string(kFilled) + "glDisable(GL_AUTO_NORMAL)\ngluNurbsProperty(%, GLU_DISPLAY_MODE, GLU_FILL)\n" +
           "gluBeginSurface(%)\n" + Line(normals, "GL_MAP2_NORMAL") + Line(Controls(), "GL_MAP2_VERTEX_3") +
           "gluEndSurface(%)\n";
  }
  std::string Wired(const std::string& mode) const {
    return kOutlined + ("gluNurbsProperty(%, GLU_DISPLAY_MODE, " + mode + ")\ngluBeginSurface(%)\n") +
           Line(Controls(), "GL_MAP2_VERTEX_3") + "gluEndSurface(%)\n";
  }
};

TEST_F(SplinesTest, SurfaceTakesTheLastRowFirst) {
  Variable renderer = OpenRenderer();
  const Surface surface;
  std::string expected = Nurbs(surface.Filled());
  EXPECT_TRUE(IsUntouched(CallRow(renderer, kSurface, surface.Arguments())));
  EXPECT_EQ(TakeLog(), expected);
  const Surface other{.xs = From(1, 4),
                      .zs = From(100, 6),
                      .heights = {From(10, 4), From(20, 4), From(30, 4), From(40, 4), From(50, 4), From(60, 4)},
                      .sKnots = From(0, 8),
                      .tKnots = From(50, 10)};
  expected = Nurbs(other.Filled());
  CallRow(renderer, kSurface, other.Arguments());
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(SplinesTest, NormalsKeepTheirOrderAndComeBeforeThePoints) {
  Variable renderer = OpenRenderer();
  const Surface surface;
  const Floats normals = Counting(20);
  const std::string expected = Nurbs(surface.Filled(normals));
  CallRow(renderer, kSurfaceNormals, surface.Arguments(Numbers(normals)));
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(SplinesTest, NormalsOfAnEarlierSurfaceAreNotKept) {
  Variable renderer = OpenRenderer();
  const Surface surface;
  CallRow(renderer, kSurfaceNormals, surface.Arguments(Numbers(Counting(20))));
  TakeLog();
  const std::string expected = Nurbs(surface.Filled());
  CallRow(renderer, kSurface, surface.Arguments());
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(SplinesTest, NormalsMayHaveAnyShape) {
  Variable renderer = OpenRenderer();
  const Surface surface;
  const Floats normals = Counting(20);
  std::vector<Variable> elements;
  for (std::size_t i = 0; i < normals.size(); i += 3) {
    const float* n = normals.data() + i;
    elements.push_back(i % 2 == 0 ? Point3(n[0], n[1], n[2]) : Numbers({n[0], n[1], n[2], 7}));
  }
  const std::string expected = Nurbs(surface.Filled(normals));
  CallRow(renderer, kSurfaceNormals, surface.Arguments(Vector(elements)));
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(SplinesTest, WiredDrawsPatchesOrPolygonsAndLeavesNormalsAway) {
  Variable renderer = OpenRenderer();
  const Surface surface;
  Call(renderer, "EnableWired", true);
  for (const auto& [outlinePatch, mode] :
       {std::pair(true, "GLU_OUTLINE_PATCH"), std::pair(false, "GLU_OUTLINE_POLYGON")}) {
    Call(renderer, "SetOutlinePatch", outlinePatch);
    std::string expected = Nurbs(surface.Wired(mode));
    CallRow(renderer, kSurface, surface.Arguments());
    EXPECT_EQ(TakeLog(), expected);
    expected = Nurbs(surface.Wired(mode));
    CallRow(renderer, kSurfaceNormals, surface.Arguments(Numbers(Counting(20))));
    EXPECT_EQ(TakeLog(), expected);
  }
}

TEST_F(SplinesTest, PatchOutlinesAreTheDefault) {
  EXPECT_EQ(static_cast<int>(TOpenGL().GetOutlinePatch()), 1);
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableWired", true);
  CallRow(renderer, kSurface, Surface().Arguments());
  EXPECT_THAT(TakeLog(), HasSubstr("GLU_OUTLINE_PATCH"));
}

TEST_F(SplinesTest, SurfaceCountsThatDoNotFitRaise8) {
  Variable renderer = OpenRenderer();
  std::vector<Surface> refused(10);
  refused[0].sKnots.pop_back();
  refused[1].sKnots.push_back(9);
  refused[2].tKnots.pop_back();
  refused[3].tKnots.push_back(9);
  refused[4].heights.pop_back();
  refused[5].heights.push_back(From(0, 5));
  refused[6].heights[1].pop_back();
  refused[7].heights[3].push_back(9);
  refused[8].heights[0].pop_back();
  refused[9].heights[0].push_back(9);
  for (const Surface& surface : refused) {
    CallRow(renderer, kSurface, surface.Arguments());
    ExpectError(8, "");
    CallRow(renderer, kSurfaceNormals, surface.Arguments(Numbers(Counting(20))));
    ExpectError(8, "");
    EXPECT_EQ(TakeLog(), "");
  }
}

TEST_F(SplinesTest, RowsThatDoNotFitRaise8Once) {
  Variable renderer = OpenRenderer();
  Surface surface;
  surface.heights[0].pop_back();
  surface.heights[2].pop_back();
  CallRow(renderer, kSurface, surface.Arguments());
  ExpectError(8, "");
}

TEST_F(SplinesTest, AnotherNumberOfNormalsThanPointsRaises8) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableWired", true);
  for (const bool wired : {true, false}) {
    Call(renderer, "EnableWired", wired);
    for (const int count : {0, 1, 19, 21}) {
      CallRow(renderer, kSurfaceNormals, Surface().Arguments(Numbers(Counting(count))));
      ExpectError(8, "");
      EXPECT_EQ(TakeLog(), "") << count;
    }
  }
}

}  // namespace
