// TrianglesEx: triangles picked by index from several lists.
#include <string>
#include <vector>

#include "tests/unit/support/handler_registers.h"
#include "tests/unit/support/host_calls.h"
#include "tests/unit/support/host_trace.h"
#include "tests/unit/support/indexed_lists.h"
#include "tests/unit/support/renderer_states.h"

namespace {

// Two lists, of two triangles and of one, each with a material.
class IndexedTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    devhost::Assign(renderer, OpenRenderer());
    for (const float red : {0.25F, 0.5F}) materials.push_back(Material(red));
  }
  void TearDown() override {
    materials.clear();
    renderer.Clear();
    ModuleTest::TearDown();
  }

  std::vector<Variable> Arguments(const std::vector<int>& indices) const {
    return {Vector({Numbers(points[0]), Numbers(points[1])}), Vector({Numbers(normals[0]), Numbers(normals[1])}),
            Integers(indices), Vector(materials)};
  }
  std::string Draw(const std::vector<int>& indices) {
    CallRow(renderer, "TrianglesEx", Arguments(indices));
    return TakeLog();
  }
  // A run of triangles of one list.
  std::string Run(std::size_t list, const std::vector<int>& triangles) const {
    std::string body;
    for (const int t : triangles) body += TriangleLines(points[list], normals[list], t);
    return Applied(materials[list]) + Primitive("GL_TRIANGLES", body);
  }

  const Floats points[2] = {Corners(2, 1), Corners(1, 101)};
  const Floats normals[2] = {Corners(2, -50), Corners(1, -200)};
  Variable renderer;
  std::vector<Variable> materials;
};

TEST_F(IndexedTest, IndicesIntoOneListAreOneRun) { EXPECT_EQ(Draw({0, 1, 0}), kFilled + Run(0, {0, 1, 0})); }

TEST_F(IndexedTest, IndicesCountOnThroughTheLists) { EXPECT_EQ(Draw({2}), kFilled + Run(1, {0})); }

TEST_F(IndexedTest, AnotherListStartsARunWithItsMaterial) {
  EXPECT_EQ(Draw({1, 2, 2, 0}), kFilled + Run(0, {1}) + Run(1, {0, 0}) + Run(0, {0}));
}

TEST_F(IndexedTest, OnlyTheMaterialsOfRunsAreTouched) {
  std::vector<Variable> arguments = Arguments({1, 0});
  devhost::Assign(arguments[3], Vector({materials[0]}));
  Host() = {};
  CallRow(renderer, "TrianglesEx", arguments);
  EXPECT_EQ(Host().outsideElements, 0);
  EXPECT_EQ(TakeLog(), kFilled + Run(0, {1, 0}));
}

TEST_F(IndexedTest, AMaterialIsFetchedBetweenItsRunAndTheOneBefore) {
  std::vector<Variable> arguments = Arguments({0, 2});
  devhost::Assign(arguments[3], Vector({Unjoined("OglMaterial"), Unjoined("OglMaterial")}));
  HandlerRegisters registers(arguments, renderer);
  VarRegister result;
  {
    const HostTrace trace;
    registers.Call(RowOf("TOpenGL", "TrianglesEx")->handler, result);
  }
  const std::string log = TakeLog();
  EXPECT_THAT(log, HasSubstr("GL_FILL)\nGetAssID()\nglBegin(GL_TRIANGLES)\n"));
  EXPECT_THAT(log, HasSubstr("glEnd()\nGetAssID()\nglBegin(GL_TRIANGLES)\n"));
}

// An index that is no number sets the script's error when the walk comes to it.
TEST_F(IndexedTest, IndicesAreReadAsTheWalkGoes) {
  std::vector<Variable> arguments = Arguments({1, 2});
  devhost::Assign(arguments[2][1], Text("two"));
  CallRow(renderer, "TrianglesEx", arguments);
  ExpectError(devhost::kErrorConversion, "");
  const std::string log = TakeLog();
  EXPECT_TRUE(log.starts_with(kFilled + Applied(materials[0]) + "glBegin(GL_TRIANGLES)\n" +
                              TriangleLines(points[0], normals[0], 1)))
      << log;
}

TEST_F(IndexedTest, WiredDrawsOutlines) {
  Call(renderer, "EnableWired", true);
  EXPECT_EQ(Draw({0}), kOutlined + Run(0, {0}));
}

TEST_F(IndexedTest, WithoutIndicesOnlyThePolygonModeIsSet) { EXPECT_EQ(Draw({}), kFilled); }

TEST_F(IndexedTest, IndicesThatNoListHoldsAreSkipped) {
  EXPECT_EQ(Draw({-1, 0, 3, -2147483647 - 1, 2147483647, 1}), kFilled + Run(0, {0, 1}));
  EXPECT_EQ(Draw({3, -1}), kFilled);
}

TEST_F(IndexedTest, MaterialsWithoutANativeObjectAreSkipped) {
  devhost::Assign(materials[0], Unjoined("OglMaterial"));
  const std::string list0 = Primitive("GL_TRIANGLES", TriangleLines(points[0], normals[0], 0));
  EXPECT_EQ(Draw({2, 0}), kFilled + Run(1, {0}) + list0);
  std::vector<Variable> arguments = Arguments({0});
  devhost::Assign(arguments[3], Vector({}));
  CallRow(renderer, "TrianglesEx", arguments);
  EXPECT_EQ(TakeLog(), kFilled + list0);
}

TEST_F(IndexedTest, EmptyListsAreWalkedOver) {
  CallRow(renderer, "TrianglesEx",
          std::vector{Vector({Numbers({}), Numbers(points[1])}), Vector({Numbers({}), Numbers(normals[1])}),
                      Integers({0}), Vector(materials)});
  EXPECT_EQ(TakeLog(), kFilled + Run(1, {0}));
}

TEST_F(IndexedTest, ListsMayBeReferences) {
  Variable list = Numbers(points[0]);
  Variable normalList = Numbers(normals[0]);
  CallRow(renderer, "TrianglesEx",
          std::vector{Vector({Reference(list)}), Vector({Reference(normalList)}), Integers({1}), Vector(materials)});
  EXPECT_EQ(TakeLog(), kFilled + Run(0, {1}));
  // Not only the first.
  Variable second = Numbers(points[1]);
  Variable secondNormals = Numbers(normals[1]);
  CallRow(renderer, "TrianglesEx",
          std::vector{Vector({Numbers({}), Reference(second)}), Vector({Numbers({}), Reference(secondNormals)}),
                      Integers({0}), Vector(materials)});
  EXPECT_EQ(TakeLog(), kFilled + Run(1, {0}));
}

TEST_F(IndexedTest, ListsMayHaveAnyShape) {
  const Floats& p = points[1];
  CallRow(renderer, "TrianglesEx",
          std::vector{
              Vector({Vector({Point3(p[0], p[1], p[2]), Numbers({p[3], p[4], p[5], 9}), Point3(p[6], p[7], p[8])})}),
              Vector({Numbers(normals[1])}), Integers({0}), Vector({materials[1]})});
  EXPECT_EQ(TakeLog(), kFilled + Run(1, {0}));
}

// Draws lists with these numbers of points and normals, and returns how many errors that raised.
int ErrorsOf(Variable& renderer, const std::vector<std::pair<int, int>>& counts) {
  std::vector<Variable> pointLists;
  std::vector<Variable> normalLists;
  for (const auto& [pointCount, normalCount] : counts) {
    pointLists.push_back(Numbers(Counting(pointCount)));
    normalLists.push_back(Numbers(Counting(normalCount)));
  }
  CallRow(renderer, "TrianglesEx", std::vector{Vector(pointLists), Vector(normalLists), Integers({0}), Vector({})});
  const devhost::Error* error = devhost::PendingError();
  if (error) EXPECT_EQ(error->code, 8);
  const int raised = devhost::RaisedCount();
  devhost::ClearError();
  return raised;
}

TEST_F(IndexedTest, EachListWhoseCountsDoNotFitRaises8) {
  EXPECT_EQ(ErrorsOf(renderer, {{3, 3}, {3, 6}}), 1);
  EXPECT_EQ(ErrorsOf(renderer, {{4, 4}, {3, 3}}), 1);
  EXPECT_EQ(ErrorsOf(renderer, {{4, 4}, {3, 3}, {6, 3}, {3, 1}}), 3);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(ErrorsOf(renderer, {{3, 3}, {0, 0}}), 0);
  EXPECT_EQ(CountVertices(TakeLog()), 3);
}

TEST_F(IndexedTest, FewerNormalListsThanPointListsRaise8) {
  std::vector<Variable> arguments = Arguments({0});
  devhost::Assign(arguments[1], Vector({Numbers(normals[0])}));
  CallRow(renderer, "TrianglesEx", arguments);
  ExpectError(8, "");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(IndexedTest, ABadElementDrawsNothingAndAddsNoError) {
  for (const std::size_t bad : {0U, 1U}) {
    std::vector<Variable> arguments = Arguments({0});
    devhost::Assign(arguments[bad][1][4], Text("four"));
    CallRow(renderer, "TrianglesEx", arguments);
    ExpectError(devhost::kErrorConversion, "");
    EXPECT_EQ(TakeLog(), "");
  }
}

TEST_F(IndexedTest, WithoutMemoryNothingIsDrawnNorRaised) {
  // Two arrays of the lists, two Vectors a list.
  for (int n = 1; n <= 6; ++n) {
    const FailingAllocation failure(n);
    EXPECT_EQ(Draw({0, 2}), "") << n;
    EXPECT_TRUE(failure.Happened());
    EXPECT_EQ(devhost::RaisedCount(), 0);
  }
  const FailingAllocation seventh(7);
  EXPECT_NE(Draw({0}), "");
  EXPECT_FALSE(seventh.Happened());
}

TEST_F(IndexedTest, NothingIsDrawnNorReadUnlessOpenAndBound) {
  for (Variable& undrawable : UndrawableRenderers()) {
    std::vector<Variable> arguments = Arguments({0});
    devhost::Assign(arguments[2][0], Text("no index"));
    CallRow(undrawable, "TrianglesEx", arguments);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(devhost::RaisedCount(), 0);
  }
}

TEST_F(IndexedTest, CountsAreCheckedOnAClosedRendererToo) {
  Variable closed = NewRenderer();
  EXPECT_EQ(ErrorsOf(closed, {{4, 4}}), 1);
}

TEST_F(IndexedTest, WithoutItsNativeObject) {
  Variable unjoined = Unjoined("TOpenGL");
  const std::vector<Variable> arguments = Arguments({0});
  const FailingAllocation first(1);
  CallRow(unjoined, "TrianglesEx", arguments);
  ExpectNoNative("TOpenGL");
  EXPECT_FALSE(first.Happened());  // nothing is decoded
}

}  // namespace
