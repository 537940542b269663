// The indexed batches: several lists or meshes, triangle indices, a material each.
#include "geometry/indexed.h"

#include "binding/native.h"
#include "classes/material.h"
#include "geometry/array.h"
#include "geometry/decode.h"
#include "module/handlers/handlers.h"
#include "render/topengl.h"

namespace {

// Element i of a list of Vectors, which may be a reference to one.
Triples DecodeElement(Variable& lists, int i) {
  Variable& element = lists[i];
  return DecodePoints(element.IsPointer() ? *element.GetPointer() : element);
}

// The decoded lists: the arrays and what the renderer sees of them.
struct DecodedLists {
  explicit DecodedLists(int count) : points(count), normals(count), triangles(count) {}

  Array<Triples> points;
  Array<Triples> normals;
  Array<IndexedTriangles> triangles;
};

// False when an array is missing.
bool Decode(DecodedLists& lists, Variable& pointLists, Variable& normalLists) {
  if (!lists.points || !lists.normals || !lists.triangles) return false;
  bool complete = true;
  for (int i = 0; i < lists.points.Count(); ++i) {
    lists.points[i] = DecodeElement(pointLists, i);
    lists.normals[i] = DecodeElement(normalLists, i);
    complete = complete && lists.points[i] && lists.normals[i];
  }
  return complete;
}

// The mesh behind a script object, or null when there is none.
const TriangleMesh* MeshOf(Variable& object) {
  const void* native = object.GetAssID();
  return native && !IsOwnNative(native) ? static_cast<const TriangleMesh*>(native) : nullptr;
}

// Raises error 8 for each list whose counts do not fit.
void CheckLists(const DecodedLists& lists) {
  for (int i = 0; i < lists.points.Count(); ++i) {
    const int points = lists.points[i].Count();
    if (points != lists.normals[i].Count() || points % 3 != 0) TalqError(kCountsDoNotFit);
  }
}

}  // namespace

void TrianglesEx(VarRegister& /*result*/, VarRegister* args, int argc, Processor* processor) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  Variable& pointLists = args[0];
  DecodedLists lists(pointLists.GetDim());
  if (!Decode(lists, pointLists, args[1]) || processor->GetErrorStatus()) return;
  CheckLists(lists);
  if (processor->GetErrorStatus() || !self->CanDraw()) return;
  const Array<int> indices = DecodeIntegers(args[2]);
  if (!indices) return;
  Variable& materials = args[3];
  for (int i = 0; i < lists.triangles.Count(); ++i) {
    lists.triangles[i] = {lists.points[i], lists.normals[i], JoinedTo<OGLMaterial>(materials[i])};
  }
  self->TrianglesEx({lists.triangles.Data(), static_cast<std::size_t>(lists.triangles.Count())},
                    {indices.Data(), static_cast<std::size_t>(indices.Count())});
}

void TrianglesExFB(VarRegister& /*result*/, VarRegister* args, int argc, Processor* processor) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  Variable& meshObjects = args[0];
  Array<const TriangleMesh*> meshes(meshObjects.GetDim());
  Array<const OGLMaterial*> materials(meshes.Count());
  if (!meshes || !materials) return;
  for (int i = 0; i < meshes.Count(); ++i) meshes[i] = MeshOf(meshObjects[i]);
  if (processor->GetErrorStatus() || !self->CanDraw()) return;
  const Array<int> indices = DecodeIntegers(args[1]);
  if (!indices) return;
  Variable& materialObjects = args[2];
  for (int i = 0; i < meshes.Count(); ++i) materials[i] = JoinedTo<OGLMaterial>(materialObjects[i]);
  const auto count = static_cast<std::size_t>(meshes.Count());
  self->TrianglesExFB({meshes.Data(), count}, {indices.Data(), static_cast<std::size_t>(indices.Count())},
                      {materials.Data(), count});
}
