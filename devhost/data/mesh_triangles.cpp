#include "devhost/data/mesh_triangles.h"

#include <algorithm>
#include <cmath>

namespace devhost {
namespace {

using Triple = std::array<float, 3>;

Triple TripleAt(const std::vector<float>& numbers, int index) {
  const float* numbersAt = numbers.data() + static_cast<std::size_t>(index) * 3;
  return {numbersAt[0], numbersAt[1], numbersAt[2]};
}

// Perpendicular to the triangle, counter-clockwise seen from its tip, and twice as long as the triangle is large.
Triple AreaNormal(const Triple& a, const Triple& b, const Triple& c) {
  const Triple u = {b[0] - a[0], b[1] - a[1], b[2] - a[2]};
  const Triple v = {c[0] - a[0], c[1] - a[1], c[2] - a[2]};
  return {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
}

void Normalize(float* triple) {
  const float length = std::sqrt(triple[0] * triple[0] + triple[1] * triple[1] + triple[2] * triple[2]);
  if (!(length > 0)) return;
  for (int i = 0; i < 3; ++i) triple[i] /= length;
}

std::vector<float> VertexNormals(const ObjMesh& mesh) {
  std::vector<float> normals(mesh.vertices.size());
  for (std::size_t i = 0; i + 2 < mesh.corners.size(); i += 3) {
    const ObjMesh::Corner* corners = &mesh.corners[i];
    const Triple normal =
        AreaNormal(TripleAt(mesh.vertices, corners[0].vertex), TripleAt(mesh.vertices, corners[1].vertex),
                   TripleAt(mesh.vertices, corners[2].vertex));
    for (int corner = 0; corner < 3; ++corner) {
      float* sum = normals.data() + static_cast<std::size_t>(corners[corner].vertex) * 3;
      for (int axis = 0; axis < 3; ++axis) sum[axis] += normal[static_cast<std::size_t>(axis)];
    }
  }
  for (std::size_t i = 0; i < normals.size(); i += 3) Normalize(normals.data() + i);
  return normals;
}

void FindBounds(const std::vector<float>& vertices, Triple& min, Triple& max) {
  if (vertices.empty()) return;
  min = max = TripleAt(vertices, 0);
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    min[i % 3] = std::min(min[i % 3], vertices[i]);
    max[i % 3] = std::max(max[i % 3], vertices[i]);
  }
}

}  // namespace

MeshTriangles ExpandMesh(const ObjMesh& mesh) {
  MeshTriangles triangles;
  triangles.points.reserve(mesh.corners.size() * 3);
  triangles.normals.reserve(mesh.corners.size() * 3);
  const std::vector<float> vertexNormals = VertexNormals(mesh);
  for (const ObjMesh::Corner& corner : mesh.corners) {
    const Triple point = TripleAt(mesh.vertices, corner.vertex);
    const Triple normal =
        corner.normal < 0 ? TripleAt(vertexNormals, corner.vertex) : TripleAt(mesh.normals, corner.normal);
    triangles.points.insert(triangles.points.end(), point.begin(), point.end());
    triangles.normals.insert(triangles.normals.end(), normal.begin(), normal.end());
  }
  FindBounds(mesh.vertices, triangles.min, triangles.max);
  return triangles;
}

}  // namespace devhost
