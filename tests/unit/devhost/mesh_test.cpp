#include <cmath>
#include <cstdio>

#include "devhost/data/files.h"
#include "devhost/data/mesh_triangles.h"
#include "devhost/data/obj_reader.h"
#include "tests/unit/support/devhost_fixture.h"

namespace {

using devhost::ExpandMesh;
using devhost::ObjMesh;
using devhost::ParseObj;
using devhost::TextOf;

ObjMesh Parsed(std::string_view text) {
  ObjMesh mesh;
  std::string fault;
  EXPECT_TRUE(ParseObj(text, mesh, fault)) << fault;
  return mesh;
}

std::string FaultOf(std::string_view text) {
  ObjMesh mesh;
  std::string fault;
  EXPECT_FALSE(ParseObj(text, mesh, fault)) << text;
  return fault;
}

std::vector<int> VertexIndices(const ObjMesh& mesh) {
  std::vector<int> indices;
  indices.reserve(mesh.corners.size());
  for (const ObjMesh::Corner& corner : mesh.corners) indices.push_back(corner.vertex);
  return indices;
}

constexpr std::string_view kSquare = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n";

std::string OnSquare(std::string_view lines) { return std::string(kSquare) + std::string(lines); }

TEST(DevhostObjTest, ReadsVerticesAndFaces) {
  const ObjMesh mesh = Parsed("# a comment\r\nv 1 -2.5 3e2 # more\r\n\tv  0 0 0\nv 0 1 0 1.0\n\nf 1 2 3");
  EXPECT_EQ(mesh.vertices, (std::vector<float>{1, -2.5f, 300, 0, 0, 0, 0, 1, 0}));
  EXPECT_EQ(VertexIndices(mesh), (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(mesh.corners[0].normal, -1);
}

TEST(DevhostObjTest, ReadsEveryFormOfCorner) {
  const ObjMesh mesh = Parsed(OnSquare("vt 0 0\nvn 0 0 1\nvn 1 0 0\nf 1 2/1 3//2\nf 1/1/1 2/1/2 3//1\n"));
  EXPECT_EQ(mesh.corners[0].normal, -1);
  EXPECT_EQ(mesh.corners[1].normal, -1);
  EXPECT_EQ(mesh.corners[2].normal, 1);
  EXPECT_EQ(mesh.corners[4].normal, 1);
}

TEST(DevhostObjTest, CountsNegativeIndicesBackwards) {
  EXPECT_EQ(VertexIndices(Parsed(OnSquare("f -4 -3 -1\n"))), (std::vector<int>{0, 1, 3}));
}

TEST(DevhostObjTest, FansPolygons) {
  EXPECT_EQ(VertexIndices(Parsed(OnSquare("f 1 2 3 4\n"))), (std::vector<int>{0, 1, 2, 0, 2, 3}));
}

TEST(DevhostObjTest, SkipsGroupsAndMaterials) {
  EXPECT_EQ(Parsed("o thing\ng part\ns off\nusemtl red\nmtllib x.mtl\n").corners.size(), 0u);
  EXPECT_EQ(Parsed("").vertices.size(), 0u);
}

TEST(DevhostObjTest, TellsTheLineOfAFault) {
  EXPECT_EQ(FaultOf("v 1 2\n"), "line 1: three numbers are needed");
  EXPECT_EQ(FaultOf("v 1 2 x\n"), "line 1: three numbers are needed");
  EXPECT_EQ(FaultOf("v 1 2 nan\n"), "line 1: three numbers are needed");
  EXPECT_EQ(FaultOf("v 1 2 1e99\n"), "line 1: three numbers are needed");
  EXPECT_EQ(FaultOf("v 1 2 0x3\n"), "line 1: three numbers are needed");
  EXPECT_EQ(FaultOf("v 1 2 3 y\n"), "line 1: \"y\" is not a number");
  EXPECT_EQ(FaultOf("v 1 2 " + std::string(100, '1')), "line 1: three numbers are needed");
  EXPECT_EQ(FaultOf("vn 1\n"), "line 1: three numbers are needed");
  EXPECT_EQ(FaultOf("\nbogus\n"), "line 2: \"bogus\" is not known");
  EXPECT_EQ(FaultOf(OnSquare("f 1 2\n")), "line 5: a face needs three corners");
  EXPECT_EQ(FaultOf(OnSquare("f 1 2 5\n")), "line 5: \"5\" is not a corner of this mesh");
  EXPECT_EQ(FaultOf(OnSquare("f 1 2 0\n")), "line 5: \"0\" is not a corner of this mesh");
  EXPECT_EQ(FaultOf(OnSquare("f 1 2 -5\n")), "line 5: \"-5\" is not a corner of this mesh");
  EXPECT_EQ(FaultOf(OnSquare("f 1 2 99999999999\n")), "line 5: \"99999999999\" is not a corner of this mesh");
  EXPECT_EQ(FaultOf(OnSquare("f 1 2 3x\n")), "line 5: \"3x\" is not a corner of this mesh");
  EXPECT_EQ(FaultOf(OnSquare("f 1 2 3/\n")), "line 5: \"3/\" is not a corner of this mesh");
  EXPECT_EQ(FaultOf(OnSquare("f 1 2 3//1\n")), "line 5: \"3//1\" is not a corner of this mesh");
  EXPECT_EQ(FaultOf(OnSquare("vt 0 0\nf 1 2 3/1/\n")), "line 6: \"3/1/\" is not a corner of this mesh");
  EXPECT_EQ(FaultOf(OnSquare("vt 0 0\nf 1 2 3/1-1\n")), "line 6: \"3/1-1\" is not a corner of this mesh");
}

TEST(DevhostObjTest, VertexNormalsAreWeightedByArea) {
  // Two faces meet at the first vertex: one of area 2 facing z, one of area 0.5 facing x.
  const auto triangles = ExpandMesh(Parsed("v 0 0 0\nv 2 0 0\nv 0 2 0\nv 0 1 0\nv 0 0 1\nf 1 2 3\nf 1 4 5\n"));
  const float length = std::sqrt(4.0f * 4.0f + 1.0f);
  EXPECT_FLOAT_EQ(triangles.normals[0], 1 / length);
  EXPECT_FLOAT_EQ(triangles.normals[1], 0);
  EXPECT_FLOAT_EQ(triangles.normals[2], 4 / length);
  EXPECT_FLOAT_EQ(triangles.normals[5], 1);
}

TEST(DevhostObjTest, NormalsOfTheFileAreTaken) {
  const auto triangles = ExpandMesh(Parsed(OnSquare("vn 0 5 0\nf 1//1 2//1 3\n")));
  EXPECT_EQ(triangles.points, (std::vector<float>{0, 0, 0, 1, 0, 0, 1, 1, 0}));
  EXPECT_EQ(triangles.normals, (std::vector<float>{0, 5, 0, 0, 5, 0, 0, 0, 1}));
}

TEST(DevhostObjTest, AFaceWithoutAreaHasNoNormal) {
  const auto triangles = ExpandMesh(Parsed("v 1 1 1\nf 1 1 1\n"));
  EXPECT_EQ(triangles.normals, std::vector<float>(9, 0.0f));
}

using DevhostMeshTest = DevhostTest;

TEST_F(DevhostMeshTest, AMeshIsReadyToDraw) {
  const std::string path = testing::TempDir() + "devhost_mesh.obj";
  ASSERT_TRUE(devhost::WriteFile(path, OnSquare("v -1 0 2\nf 1 2 3 4\n")));
  Variable mesh = CallPlain("ReadObj", {Text(path)});
  std::remove(path.c_str());
  EXPECT_EQ(devhost::KindOf(mesh), "Mesh");
  EXPECT_EQ(mesh(Name("points")).GetDim(), 18);
  EXPECT_EQ(mesh(Name("normals")).GetDim(), 18);
  EXPECT_EQ(mesh(Name("vertices")).GetDim(), 15);
  EXPECT_EQ(TextOf(mesh(Name("indices"))), "[0, 1, 2, 0, 2, 3]");
  EXPECT_EQ(TextOf(mesh(Name("min"))), "POINT3(-1, 0, 0)");
  EXPECT_EQ(TextOf(mesh(Name("max"))), "POINT3(1, 1, 2)");
  EXPECT_EQ(mesh(Name("points"))[0].GetType(), TVAR_FLOAT);
  EXPECT_EQ(TextOf(mesh),
            "Mesh(Vector of 18, Vector of 18, Vector of 15, Vector of 6, POINT3(-1, 0, 0), "
            "POINT3(1, 1, 2))");
}

TEST_F(DevhostMeshTest, AModuleFindsTheTrianglesBehindIt) {
  struct Record {
    float* vertices;
    int triangleCount;
    float* normals;
  };
  const std::string path = testing::TempDir() + "devhost_record.obj";
  ASSERT_TRUE(devhost::WriteFile(path, OnSquare("f 1 2 3 4\n")));
  Variable mesh = NewObject("Mesh", {Text(path)});
  std::remove(path.c_str());
  const auto* record = static_cast<Record*>(mesh.GetAssID());
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->triangleCount, 2);
  EXPECT_EQ(record->vertices[3], 1.0f);
  EXPECT_EQ(record->normals[2], 1.0f);
}

TEST_F(DevhostMeshTest, BrokenFilesAreNamed) {
  const std::string path = testing::TempDir() + "devhost_broken.obj";
  ASSERT_TRUE(devhost::WriteFile(path, "v 1 2 3\nf 1 2 3\n"));
  CallPlain("ReadObj", {Text(path)});
  EXPECT_EQ(TakeError(), "23 " + path + " is not a proper OBJ file: line 2: \"2\" is not a corner of this mesh.");
  std::remove(path.c_str());
}

}  // namespace
