// The indexed batches: several lists or meshes, triangle indices, a material each.
#include "classes/material.h"
#include "geometry/decode.h"
#include "module/handlers/batches.h"
#include "module/handlers/handlers.h"

namespace {

// Draws the triangles that the indices pick, in runs of one list each; a run begins with its list's material, which is
// fetched then. Indices that no list holds are skipped. Returns whether a run is open at the end.
template <class Lists>
bool DrawRuns(const TOpenGL& renderer, const Lists& lists, Variable& indices, Variable& materials) {
  renderer.BeginTriangleRuns();
  const int none = lists.Count();
  int current = none;
  const int count = indices.GetDim();
  for (int i = 0; i < count; ++i) {
    int triangle = indices[i];
    int list = 0;
    while (list < lists.Count() && triangle >= lists.Triangles(list)) triangle -= lists.Triangles(list++);
    if (triangle < 0 || list == none) continue;
    if (list != current) {
      if (current != none) renderer.EndTriangleRun();
      renderer.BeginTriangleRun(JoinedTo<OGLMaterial>(materials[list]));
      current = list;
    }
    const TriangleCorners corners = lists.At(list, triangle);
    renderer.Triangle(corners.points, corners.normals);
  }
  return current != none;
}

}  // namespace

void script::TrianglesEx(const TOpenGL& self, ScriptCall& call) {
  Variable& pointLists = call.NextValue();
  Variable& normalLists = call.NextValue();
  Variable& indices = call.NextValue();
  Variable& materials = call.NextValue();
  const PointLists lists(pointLists, normalLists);
  if (!lists || call.HasError()) return;
  for (int list = 0; list < lists.Count(); ++list) CheckCounts(lists.Fits(list));
  if (call.HasError() || !self.CanDraw()) return;
  if (DrawRuns(self, lists, indices, materials)) self.EndTriangleRun();
}

void script::TrianglesExFB(const TOpenGL& self, ScriptCall& call) {
  Variable& objects = call.NextValue();
  Variable& indices = call.NextValue();
  Variable& materials = call.NextValue();
  const Meshes meshes(objects);
  if (!meshes || call.HasError() || !self.CanDraw()) return;
  DrawRuns(self, meshes, indices, materials);
  // Required: even without a run.
  self.EndTriangleRun();
}
