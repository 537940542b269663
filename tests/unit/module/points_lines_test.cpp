// The order in which points and lines are drawn.
#include <string>
#include <vector>

#include "tests/unit/support/drawing.h"

namespace {

using PointsLinesTest = ModuleTest;

const Floats kPoints = {0.1F, 0.7F, -1.3F, 2.9F, 0.33F, 0.77F, -1.1F, 5.3F, 0.2F, 1.9F, -0.3F, 4.1F};
const Floats kColors = {1, 0, 0, 0.25F, 0.5F, 0.75F, 2, -1, 0, 0, 0, 1};

constexpr char kNoPointSmoothing[] = "glDisable(GL_POINT_SMOOTH)\n";
constexpr char kNoLineSmoothing[] = "glDisable(GL_LINE_SMOOTH)\n";

TEST_F(PointsLinesTest, Points) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetPoints", Numbers(kPoints));
  EXPECT_EQ(TakeLog(), kNoPointSmoothing + Primitive("GL_POINTS", Vertices(kPoints)));
}

TEST_F(PointsLinesTest, LineStrip) {
  Variable renderer = OpenRenderer();
  Call(renderer, "LineStrip", Numbers(kPoints));
  EXPECT_EQ(TakeLog(), kNoLineSmoothing + Primitive("GL_LINE_STRIP", Vertices(kPoints)));
}

TEST_F(PointsLinesTest, Lines) {
  Variable renderer = OpenRenderer();
  Call(renderer, "Lines", Numbers(kPoints));
  EXPECT_EQ(TakeLog(), kNoLineSmoothing + Primitive("GL_LINES", Vertices(kPoints)));
}

TEST_F(PointsLinesTest, ColorsComeBeforeTheirPoints) {
  Variable renderer = OpenRenderer();
  Call(renderer, "ColorLines", Numbers(kPoints), Numbers(kColors));
  std::string body;
  for (int i = 0; i < 4; ++i) body += Color(kColors, i) + Vertex(kPoints, i);
  EXPECT_EQ(TakeLog(), kNoLineSmoothing + Primitive("GL_LINES", body));
}

TEST_F(PointsLinesTest, LitLinesKeepPlainColors) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableLight", true);
  TakeLog();
  Call(renderer, "ColorLines", Numbers({1, 2, 3, 4, 5, 6}), Integers({0xFF, 0xFF0000}));
  EXPECT_EQ(TakeLog(), kNoLineSmoothing + Primitive("GL_LINES",
                                                    "glColor3f(1, 0, 0)\nglVertex3f(1, 2, 3)\n"
                                                    "glColor3f(0, 0, 1)\nglVertex3f(4, 5, 6)\n"));
}

TEST_F(PointsLinesTest, NoPointsAreAnEmptyPair) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetPoints", Numbers({}));
  EXPECT_EQ(TakeLog(), kNoPointSmoothing + Primitive("GL_POINTS", ""));
  Call(renderer, "LineStrip", Numbers({}));
  EXPECT_EQ(TakeLog(), kNoLineSmoothing + Primitive("GL_LINE_STRIP", ""));
  Call(renderer, "Lines", Numbers({1, 2}));
  EXPECT_EQ(TakeLog(), kNoLineSmoothing + Primitive("GL_LINES", ""));
  Call(renderer, "ColorLines", Numbers({}), Numbers({}));
  EXPECT_EQ(TakeLog(), kNoLineSmoothing + Primitive("GL_LINES", ""));
}

TEST_F(PointsLinesTest, LinesWithAnotherNumberOfColorsAreLeftOutSilently) {
  Variable renderer = OpenRenderer();
  const Variable points = Numbers(kPoints);
  for (const Floats& colors : {Floats{}, Floats{1, 0, 0}, Floats{1, 0, 0, 0, 1, 0, 0, 0, 1}, Counting(5)}) {
    Call(renderer, "ColorLines", points, Numbers(colors));
    EXPECT_EQ(TakeLog(), "") << colors.size();
    EXPECT_EQ(devhost::RaisedCount(), 0);
  }
  Call(renderer, "ColorLines", points, Numbers({0, 1, 2, 3}));
  EXPECT_EQ(CountVertices(TakeLog()), 4);
}

TEST_F(PointsLinesTest, EachKindFollowsItsOwnSmoothingSwitch) {
  Variable renderer = OpenRenderer();
  const Variable points = Numbers({1, 2, 3});
  Call(renderer, "EnableSmoothPoint", true);
  TakeLog();
  Call(renderer, "SetPoints", points);
  EXPECT_TRUE(TakeLog().starts_with("glEnable(GL_POINT_SMOOTH)\nglBegin"));
  Call(renderer, "Lines", points);
  EXPECT_TRUE(TakeLog().starts_with("glDisable(GL_LINE_SMOOTH)\nglBegin"));
  Call(renderer, "EnableSmoothPoint", false);
  Call(renderer, "EnableSmoothLine", true);
  TakeLog();
  Call(renderer, "SetPoints", points);
  EXPECT_TRUE(TakeLog().starts_with("glDisable(GL_POINT_SMOOTH)\nglBegin"));
  for (const char* row : {"Lines", "LineStrip"}) {
    Call(renderer, row, points);
    EXPECT_TRUE(TakeLog().starts_with("glEnable(GL_LINE_SMOOTH)\nglBegin")) << row;
  }
  Call(renderer, "ColorLines", points, points);
  EXPECT_TRUE(TakeLog().starts_with("glEnable(GL_LINE_SMOOTH)\nglBegin"));
}

TEST_F(PointsLinesTest, WiredLeavesThemAlone) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableWired", true);
  const Variable points = Numbers({1, 2, 3});
  Call(renderer, "SetPoints", points);
  Call(renderer, "LineStrip", points);
  Call(renderer, "Lines", points);
  Call(renderer, "ColorLines", points, points);
  EXPECT_THAT(TakeLog(), Not(HasSubstr("glPolygonMode")));
}

}  // namespace
