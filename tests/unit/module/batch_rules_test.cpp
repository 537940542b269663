// When the batches are drawn, and when not.
#include <string>
#include <vector>

#include "tests/unit/support/drawing.h"
#include "tests/unit/support/renderer_states.h"

namespace {

using BatchRulesTest = ModuleTest;

constexpr char kTriangles[] = "Triangles(refer object Vector)";
constexpr char kTrianglesNormals[] = "Triangles(refer object Vector, refer object Vector)";
constexpr char kStrip[] = "TriangleStrip(refer object Vector)";
constexpr char kStripNormals[] = "TriangleStrip(refer object Vector, refer object Vector)";

// A row with the numbers of triples in each of its Vectors.
struct Case {
  const char* row;
  std::vector<int> counts;

  std::vector<Variable> Vectors() const {
    std::vector<Variable> vectors;
    for (const int count : counts) vectors.push_back(Numbers(Counting(count)));
    return vectors;
  }
};

std::string Name(const Case& batch) {
  std::string name = batch.row;
  for (const int count : batch.counts) name += " " + std::to_string(count);
  return name;
}

const Case kDrawn[] = {
    {"SetPoints", {1}},
    {"SetPoints", {7}},
    {"LineStrip", {1}},
    {"LineStrip", {5}},
    {"Lines", {2}},
    {"Lines", {3}},
    {"ColorLines", {4, 4}},
    {"ColorLines", {3, 3}},
    {kTriangles, {3}},
    {kTriangles, {6}},
    {kTrianglesNormals, {3, 3}},
    {kTrianglesNormals, {3, 1}},
    {kTrianglesNormals, {6, 2}},
    {kTrianglesNormals, {6, 6}},
    {"ColorTriangles", {3, 3, 3}},
    {"ColorTriangles", {6, 2, 6}},
    {kStrip, {3}},
    {kStrip, {4}},
    {kStrip, {5}},
    {kStripNormals, {3, 3}},
    {kStripNormals, {5, 5}},
    {"QuadStrip", {4, 4}},
    {"QuadStrip", {5, 5}},
    {"QuadStrip", {6, 6}},
    {"Quads", {4, 4}},
    {"Quads", {8, 8}},
    {"Polygon", {4, 4}},
    {"Polygon", {8, 8}},
    {"ColorQuads", {4, 4, 4}},
    {"ColorQuads", {8, 8, 8}},
    {"ColorPolygon", {4, 4, 4}},
    {"ColorPolygon", {8, 8, 8}},
};

const Case kRefused[] = {
    {kTriangles, {0}},
    {kTriangles, {2}},
    {kTriangles, {4}},
    {kTrianglesNormals, {6, 3}},
    {kTrianglesNormals, {6, 0}},
    {kTrianglesNormals, {0, 0}},
    {kTrianglesNormals, {4, 4}},
    {kTrianglesNormals, {4, 1}},
    {kTrianglesNormals, {3, 6}},
    {"ColorTriangles", {3, 3, 4}},
    {"ColorTriangles", {3, 3, 2}},
    {"ColorTriangles", {6, 2, 3}},
    {"ColorTriangles", {6, 3, 6}},
    {"ColorTriangles", {4, 4, 4}},
    {"ColorTriangles", {0, 0, 0}},
    {kStrip, {2}},
    {kStrip, {0}},
    {kStripNormals, {2, 2}},
    {kStripNormals, {4, 3}},
    {kStripNormals, {3, 4}},
    {"QuadStrip", {2, 2}},
    {"QuadStrip", {3, 3}},
    {"QuadStrip", {0, 0}},
    {"QuadStrip", {4, 5}},
    {"QuadStrip", {6, 4}},
    {"Quads", {0, 0}},
    {"Quads", {3, 3}},
    {"Quads", {6, 6}},
    {"Quads", {4, 1}},
    {"Quads", {4, 8}},
    {"Polygon", {0, 0}},
    {"Polygon", {3, 3}},
    {"Polygon", {5, 5}},
    {"Polygon", {4, 1}},
    {"Polygon", {8, 4}},
    {"ColorQuads", {0, 0, 0}},
    {"ColorQuads", {5, 5, 5}},
    {"ColorQuads", {4, 4, 1}},
    {"ColorQuads", {4, 1, 4}},
    {"ColorQuads", {4, 8, 8}},
    {"ColorPolygon", {0, 0, 0}},
    {"ColorPolygon", {6, 6, 6}},
    {"ColorPolygon", {4, 4, 8}},
    {"ColorPolygon", {4, 8, 4}},
    {"ColorPolygon", {8, 4, 4}},
};

TEST_F(BatchRulesTest, CountsThatFitAreDrawn) {
  Variable renderer = OpenRenderer();
  for (const Case& batch : kDrawn) {
    EXPECT_TRUE(IsUntouched(CallRow(renderer, batch.row, batch.Vectors())));
    EXPECT_EQ(CountVertices(TakeLog()), batch.counts[0]) << Name(batch);
    EXPECT_EQ(devhost::RaisedCount(), 0) << Name(batch);
  }
}

TEST_F(BatchRulesTest, CountsThatDoNotFitRaise8AndDrawNothing) {
  Variable renderer = OpenRenderer();
  for (const Case& batch : kRefused) {
    SCOPED_TRACE(Name(batch));
    CallRow(renderer, batch.row, batch.Vectors());
    ExpectError(8, "");
    EXPECT_EQ(TakeLog(), "");
  }
}

TEST_F(BatchRulesTest, CountsAreCheckedOnAClosedRendererToo) {
  Variable renderer = NewRenderer();
  for (const Case& batch : kRefused) {
    SCOPED_TRACE(Name(batch));
    CallRow(renderer, batch.row, batch.Vectors());
    ExpectError(8, "");
  }
}

TEST_F(BatchRulesTest, NothingIsDrawnUnlessOpenAndBound) {
  for (Variable& renderer : UndrawableRenderers()) {
    for (const Case& batch : kDrawn) {
      CallRow(renderer, batch.row, batch.Vectors());
      EXPECT_EQ(TakeLog(), "") << Name(batch);
    }
  }
  EXPECT_EQ(devhost::RaisedCount(), 0);
}

TEST_F(BatchRulesTest, WithoutItsNativeObjectARendererDecodesNothing) {
  Variable renderer = Unjoined("TOpenGL");
  for (const Case& batch : kDrawn) {
    SCOPED_TRACE(Name(batch));
    const FailingAllocation first(1);
    CallRow(renderer, batch.row, batch.Vectors());
    ExpectNoNative("TOpenGL");
    EXPECT_FALSE(first.Happened());
  }
}

TEST_F(BatchRulesTest, ABadElementInAnyVectorDrawsNothingAndAddsNoError) {
  Variable renderer = OpenRenderer();
  for (const Case& batch : kDrawn) {
    for (std::size_t bad = 0; bad < batch.counts.size(); ++bad) {
      SCOPED_TRACE(Name(batch) + ", bad " + std::to_string(bad));
      std::vector<Variable> vectors = batch.Vectors();
      devhost::Assign(vectors[bad][2], Text("three"));
      CallRow(renderer, batch.row, vectors);
      ExpectError(devhost::kErrorConversion, "");
      EXPECT_EQ(TakeLog(), "");
    }
  }
}

TEST_F(BatchRulesTest, ABadElementHidesCountsThatDoNotFit) {
  Variable renderer = OpenRenderer();
  CallRow(renderer, kTriangles, std::vector{Vector({Variable(1.0F), Variable(2.0F), Text("three"), Variable(4.0F)})});
  ExpectError(devhost::kErrorConversion, "");
}

TEST_F(BatchRulesTest, AnErrorThatIsPendingAlreadyDrawsNothing) {
  Variable renderer = OpenRenderer();
  for (const Case& batch : kDrawn) {
    devhost::Raise(99, "before");
    CallRow(renderer, batch.row, batch.Vectors());
    ExpectError(99, "before");
    EXPECT_EQ(TakeLog(), "") << Name(batch);
  }
}

TEST_F(BatchRulesTest, WithoutMemoryForAVectorNothingIsDrawnNorRaised) {
  Variable renderer = OpenRenderer();
  for (const Case& batch : kDrawn) {
    for (int n = 1; n <= static_cast<int>(batch.counts.size()); ++n) {
      const std::vector<Variable> vectors = batch.Vectors();
      const FailingAllocation failure(n);
      CallRow(renderer, batch.row, vectors);
      EXPECT_TRUE(failure.Happened());
      EXPECT_EQ(TakeLog(), "") << Name(batch) << ", allocation " << n;
      EXPECT_EQ(devhost::RaisedCount(), 0);
    }
  }
}

TEST_F(BatchRulesTest, WithoutMemoryForALitColorsComponentTheOthersAreSent) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableLight", true);
  TakeLog();
  const Case batch{"ColorTriangles", {3, 1, 3}};
  const std::vector<Variable> vectors = batch.Vectors();
  const FailingAllocation failure(4);  // after the three Vectors: the front's ambient colour
  CallRow(renderer, batch.row, vectors);
  EXPECT_TRUE(failure.Happened());
  const std::string log = TakeLog();
  EXPECT_THAT(log, Not(HasSubstr("GL_FRONT, GL_AMBIENT")));
  EXPECT_THAT(log, HasSubstr("GL_BACK, GL_AMBIENT"));
  EXPECT_EQ(CountVertices(log), 3);
}

}  // namespace
