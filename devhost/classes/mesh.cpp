// Mesh: a triangle mesh read from a Wavefront OBJ file.
#include "devhost/classes/point.h"
#include "devhost/classes/tables.h"
#include "devhost/data/files.h"
#include "devhost/data/mesh_triangles.h"
#include "devhost/data/obj_reader.h"
#include "devhost/runtime/text.h"

namespace devhost {
namespace {

// What a module finds behind a Mesh object: the record as it stands, without a TalqAss, with the arrays that it points
// to. The record comes first, so its address is the storage's.
struct MeshStorage {
  TriangleMesh record;
  MeshTriangles triangles;
};

template <typename Number>
void SetNumbers(Variable& target, const std::vector<Number>& numbers) {
  target.Init(TVAR_ARRAY, static_cast<int>(numbers.size()));
  std::vector<Variable>& elements = ArrayOf(target)->elements;
  for (std::size_t i = 0; i < elements.size(); ++i) elements[i] = numbers[i];
}

void SetPoint(Variable& target, const std::array<float, 3>& point) {
  MakePoint(target, static_cast<double>(point[0]), static_cast<double>(point[1]), static_cast<double>(point[2]));
}

void SetFields(Variable& object, const ObjMesh& mesh, const MeshTriangles& triangles) {
  std::vector<int> indices;
  indices.reserve(mesh.corners.size());
  for (const ObjMesh::Corner& corner : mesh.corners) indices.push_back(corner.vertex);
  SetNumbers(DefineField(object, "points"), triangles.points);
  SetNumbers(DefineField(object, "normals"), triangles.normals);
  SetNumbers(DefineField(object, "vertices"), mesh.vertices);
  SetNumbers(DefineField(object, "indices"), indices);
  SetPoint(DefineField(object, "min"), triangles.min);
  SetPoint(DefineField(object, "max"), triangles.max);
}

void Make(VarRegister&, VarRegister* args, int argc, Processor*) {
  const std::string path(TextIn(args[0].GetVar()));
  std::string text;
  if (!ReadFile(path, text)) return;
  ObjMesh mesh;
  std::string fault;
  if (!ParseObj(text, mesh, fault)) {
    Raise(kErrorFile, path + " is not a proper OBJ file: " + fault + ".");
    return;
  }
  auto* storage = new MeshStorage{{}, ExpandMesh(mesh)};
  storage->record = {storage->triangles.points.data(), static_cast<int>(mesh.corners.size() / 3),
                     storage->triangles.normals.data()};
  Variable& self = Self(args, argc);
  ObjectOf(self)->native = storage;
  SetFields(self, mesh, storage->triangles);
}

void Destroy(VarRegister&, VarRegister* args, int argc, Processor*) {
  ObjectPayload* object = ObjectOf(Self(args, argc));
  delete static_cast<MeshStorage*>(object->native);
  object->native = nullptr;
}

void ReadObj(VarRegister& result, VarRegister* args, int, Processor*) {
  Construct(result, "Mesh", {&args[0].GetVar(), 1});
}

}  // namespace

const MethodEntry kMeshMethods[] = {
    {Make, "Mesh::Mesh(refer object String)"},
    {Destroy, "Mesh::~Mesh(void)"},
    {ReadObj, "ReadObj(refer object String)"},
    {nullptr, nullptr},
};

}  // namespace devhost
