// Triangles picked by index from several lists or meshes.
#include "geometry/indexed.h"

#include <algorithm>
#include <cstddef>

#include "classes/material.h"
#include "geometry/emit.h"
#include "render/topengl.h"

namespace {

// A triangle of a list: its corners' points and normals.
struct Triangle {
  const float* points;
  const float* normals;
};

void EmitTriangle(Triangle triangle) {
  for (int i = 0; i < 9; i += 3) {
    EmitNormal(triangle.normals + i);
    EmitVertex(triangle.points + i);
  }
}

// The lists of either batch as one: how many triangles each has, where they lie, which material it takes.
struct Lists {
  std::span<const IndexedTriangles> lists;

  std::size_t Size() const { return lists.size(); }
  int TriangleCount(std::size_t list) const { return lists[list].points.count / 3; }
  const OGLMaterial* Material(std::size_t list) const { return lists[list].material; }
  Triangle At(std::size_t list, int triangle) const {
    return {lists[list].points[3 * triangle], lists[list].normals[3 * triangle]};
  }
};

struct Meshes {
  std::span<const TriangleMesh* const> meshes;
  std::span<const OGLMaterial* const> materials;

  std::size_t Size() const { return meshes.size(); }
  int TriangleCount(std::size_t mesh) const { return meshes[mesh] ? std::max(meshes[mesh]->triangleCount, 0) : 0; }
  const OGLMaterial* Material(std::size_t mesh) const { return materials[mesh]; }
  Triangle At(std::size_t mesh, int triangle) const {
    const std::ptrdiff_t offset = std::ptrdiff_t{9} * triangle;
    return {meshes[mesh]->vertices + offset, meshes[mesh]->normals + offset};
  }
};

// Draws the triangles in runs of one list each. Returns whether a run is open at the end.
template <class Source>
bool EmitRuns(const Source& source, std::span<const int> indices) {
  std::size_t current = source.Size();
  for (int triangle : indices) {
    std::size_t list = 0;
    while (list < source.Size() && triangle >= source.TriangleCount(list)) triangle -= source.TriangleCount(list++);
    if (triangle < 0 || list == source.Size()) continue;
    if (list != current) {
      if (current != source.Size()) glEnd();
      if (const OGLMaterial* material = source.Material(list)) material->Apply();
      current = list;
      glBegin(GL_TRIANGLES);
    }
    EmitTriangle(source.At(list, triangle));
  }
  return current != source.Size();
}

}  // namespace

void TOpenGL::TrianglesEx(std::span<const IndexedTriangles> lists, std::span<const int> indices) const {
  if (!CanDraw()) return;
  ApplyPolygonMode();
  if (EmitRuns(Lists{lists}, indices)) glEnd();
}

void TOpenGL::TrianglesExFB(std::span<const TriangleMesh* const> meshes, std::span<const int> indices,
                            std::span<const OGLMaterial* const> materials) const {
  if (!CanDraw()) return;
  ApplyPolygonMode();
  EmitRuns(Meshes{meshes, materials}, indices);
  // Required: even without a run.
  glEnd();
}
