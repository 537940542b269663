// TrianglesExFB: triangles picked by index from the meshes of script objects.
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/unit/support/host_calls.h"
#include "tests/unit/support/indexed_lists.h"
#include "tests/unit/support/renderer_states.h"

namespace {

// Two meshes, of two triangles and of one, each with a material.
class IndexedMeshesTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    devhost::Assign(renderer, OpenRenderer());
    for (const float red : {0.25F, 0.5F}) materials.push_back(Material(red));
    meshes.emplace_back(std::make_unique<MeshObject>(Corners(2, 1), Corners(2, -50)));
    meshes.emplace_back(std::make_unique<MeshObject>(Corners(1, 101), Corners(1, -200)));
  }
  void TearDown() override {
    meshes.clear();
    materials.clear();
    renderer.Clear();
    ModuleTest::TearDown();
  }

  std::vector<Variable> Arguments(const std::vector<int>& indices) const {
    return {Vector({meshes[0]->Object(), meshes[1]->Object()}), Integers(indices), Vector(materials)};
  }
  std::string Draw(const std::vector<int>& indices) {
    CallRow(renderer, "TrianglesExFB", Arguments(indices));
    return TakeLog();
  }
  // A run of triangles of one mesh.
  std::string Run(std::size_t mesh, const std::vector<int>& triangles) const {
    std::string body;
    for (const int t : triangles) body += meshes[mesh]->Triangle(t);
    return Applied(materials[mesh]) + Primitive("GL_TRIANGLES", body);
  }
  // OpenGL's own complaint about the end that has no beginning.
  static void ExpectLoneEnd() {
    EXPECT_EQ(recorder::Get().balance.faults, std::vector<std::string>{"glEnd without glBegin"});
    recorder::Get().balance.faults.clear();
  }

  Variable renderer;
  std::vector<Variable> materials;
  std::vector<std::unique_ptr<MeshObject>> meshes;
};

TEST_F(IndexedMeshesTest, IndicesIntoOneMeshAreOneRun) { EXPECT_EQ(Draw({1, 0, 1}), kFilled + Run(0, {1, 0, 1})); }

TEST_F(IndexedMeshesTest, AnotherMeshStartsARunWithItsMaterial) {
  EXPECT_EQ(Draw({1, 2, 2, 0}), kFilled + Run(0, {1}) + Run(1, {0, 0}) + Run(0, {0}));
}

TEST_F(IndexedMeshesTest, WiredDrawsOutlines) {
  Call(renderer, "EnableWired", true);
  EXPECT_EQ(Draw({2}), kOutlined + Run(1, {0}));
}

TEST_F(IndexedMeshesTest, WithoutARunThereIsStillAnEnd) {
  EXPECT_EQ(Draw({}), std::string(kFilled) + "glEnd()\n");
  ExpectLoneEnd();
  CallRow(renderer, "TrianglesExFB", std::vector{Vector({}), Integers({0}), Vector({})});
  EXPECT_EQ(TakeLog(), std::string(kFilled) + "glEnd()\n");
  ExpectLoneEnd();
}

TEST_F(IndexedMeshesTest, IndicesThatNoMeshHoldsAreSkipped) {
  EXPECT_EQ(Draw({-1, 2, 3, -2147483647 - 1, 2147483647, 2}), kFilled + Run(1, {0, 0}));
  EXPECT_EQ(Draw({3, -1}), std::string(kFilled) + "glEnd()\n");
  ExpectLoneEnd();
}

TEST_F(IndexedMeshesTest, ObjectsWithoutAMeshAreWalkedOver) {
  CallRow(renderer, "TrianglesExFB",
          std::vector{Vector({Point3(1, 2, 3), meshes[1]->Object()}), Integers({0}), Vector(materials)});
  EXPECT_EQ(TakeLog(), kFilled + Run(1, {0}));
}

TEST_F(IndexedMeshesTest, MeshesWithoutATriangleAreWalkedOver) {
  const MeshObject empty({}, {});
  CallRow(renderer, "TrianglesExFB",
          std::vector{Vector({empty.Object(), meshes[1]->Object()}), Integers({0}), Vector(materials)});
  EXPECT_EQ(TakeLog(), kFilled + Run(1, {0}));
}

TEST_F(IndexedMeshesTest, ARecordWithoutArraysHasNoTriangles) {
  TriangleMesh& record = *static_cast<TriangleMesh*>(Variable(meshes[0]->Object()).GetAssID());
  for (float* TriangleMesh::* const array : {&TriangleMesh::vertices, &TriangleMesh::normals}) {
    float* const kept = std::exchange(record.*array, nullptr);
    EXPECT_EQ(Draw({0}), kFilled + Run(1, {0}));
    record.*array = kept;
  }
  record.triangleCount = -1;
  EXPECT_EQ(Draw({0}), kFilled + Run(1, {0}));
}

TEST_F(IndexedMeshesTest, OnlyTheMaterialsOfRunsAreTouched) {
  std::vector<Variable> arguments = Arguments({1, 0});
  devhost::Assign(arguments[2], Vector({materials[0]}));
  Host() = {};
  CallRow(renderer, "TrianglesExFB", arguments);
  EXPECT_EQ(Host().outsideElements, 0);
  EXPECT_EQ(TakeLog(), kFilled + Run(0, {1, 0}));
}

TEST_F(IndexedMeshesTest, MaterialsWithoutANativeObjectAreSkipped) {
  devhost::Assign(materials[1], Unjoined("OglMaterial"));
  EXPECT_EQ(Draw({2}), kFilled + Primitive("GL_TRIANGLES", meshes[1]->Triangle(0)));
  std::vector<Variable> arguments = Arguments({0});
  devhost::Assign(arguments[2], Vector({}));
  CallRow(renderer, "TrianglesExFB", arguments);
  EXPECT_EQ(TakeLog(), kFilled + Primitive("GL_TRIANGLES", meshes[0]->Triangle(0)));
}

TEST_F(IndexedMeshesTest, DrawsTheMeshOfAFile) {
  const std::string path = testing::TempDir() + "indexed_meshes_test.obj";
  std::ofstream(path) << "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 5\nf 1 2 3\nf 2 4 3\n";
  Variable mesh = NewObject("Mesh", {Text(path)});
  std::remove(path.c_str());
  char points[] = "points";
  char normals[] = "normals";
  const std::string triangle = TriangleLines(NumbersOf(mesh(points)), NumbersOf(mesh(normals)), 1);
  CallRow(renderer, "TrianglesExFB", std::vector{Vector({mesh}), Integers({1}), Vector(materials)});
  EXPECT_EQ(TakeLog(), kFilled + Applied(materials[0]) + Primitive("GL_TRIANGLES", triangle));
}

TEST_F(IndexedMeshesTest, AnErrorThatIsPendingAlreadyDrawsNothing) {
  devhost::Raise(99, "before");
  EXPECT_EQ(Draw({0}), "");
  ExpectError(99, "before");
}

TEST_F(IndexedMeshesTest, WithoutMemoryNothingIsDrawnNorRaised) {
  {
    const FailingAllocation failure(1);
    EXPECT_EQ(Draw({0, 2}), "");
    EXPECT_TRUE(failure.Happened());
    EXPECT_EQ(devhost::RaisedCount(), 0);
  }
  const FailingAllocation second(2);
  EXPECT_NE(Draw({0}), "");
  EXPECT_FALSE(second.Happened());
}

TEST_F(IndexedMeshesTest, NothingIsDrawnNorReadUnlessOpenAndBound) {
  for (Variable& undrawable : UndrawableRenderers()) {
    std::vector<Variable> arguments = Arguments({0});
    devhost::Assign(arguments[1][0], Text("no index"));
    CallRow(undrawable, "TrianglesExFB", arguments);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(devhost::RaisedCount(), 0);
  }
}

TEST_F(IndexedMeshesTest, WithoutItsNativeObject) {
  Variable unjoined = Unjoined("TOpenGL");
  const std::vector<Variable> arguments = Arguments({0});
  const FailingAllocation first(1);
  CallRow(unjoined, "TrianglesExFB", arguments);
  ExpectNoNative("TOpenGL");
  EXPECT_FALSE(first.Happened());  // nothing is decoded
}

TEST_F(IndexedMeshesTest, ObjectsOfTheModuleAreNoMeshes) {
  for (const Variable& object : {NewColor(1, 2, 3, 4), NewRenderer(), Material(0.5F)}) {
    CallRow(renderer, "TrianglesExFB",
            std::vector{Vector({object, meshes[1]->Object()}), Integers({0}), Vector(materials)});
    EXPECT_EQ(TakeLog(), kFilled + Run(1, {0}));
  }
}

TEST_F(IndexedMeshesTest, ObjectsOfOtherClassesAreNoMaterials) {
  for (const Variable& object : {NewColor(1, 2, 3, 4), NewRenderer(), meshes[0]->Object()}) {
    std::vector<Variable> arguments = Arguments({0});
    devhost::Assign(arguments[2], Vector({object}));
    CallRow(renderer, "TrianglesExFB", arguments);
    EXPECT_EQ(TakeLog(), kFilled + Primitive("GL_TRIANGLES", meshes[0]->Triangle(0)));
  }
}

}  // namespace
