// What the tests of the indexed batches draw.
#pragma once

#include <string>
#include <vector>

#include "classes/material.h"
#include "devhost/runtime/payload.h"
#include "render/topengl.h"
#include "tests/unit/support/drawing.h"

// The coordinates of `triangles` triangles, counted from `first`.
inline Floats Corners(int triangles, float first) {
  Floats numbers = Counting(3 * triangles);
  for (float& number : numbers) number += first - 1;
  return numbers;
}

// Triangle t of a list as it is drawn.
inline std::string TriangleLines(const Floats& points, const Floats& normals, int t) {
  std::string lines;
  for (int i = 3 * t; i < 3 * t + 3; ++i) lines += Normal(normals, i) + Vertex(points, i);
  return lines;
}

// A reference to a value, which must outlive it.
inline Variable Reference(Variable& target) {
  Variable reference;
  reference.type = devhost::kReferenceType;
  reference.slot.pointer = &target;
  return reference;
}

// An OglMaterial that its red tells from others.
inline Variable Material(float red) {
  return New("OglMaterial(number, number, number, number)", red, 0.0F, 0.0F, 1.0F);
}

// What a material sends when it is applied.
inline std::string Applied(const Variable& material) {
  return LogOf([&] { NativeOf<OGLMaterial>(material)->Apply(); });
}

// A script object whose native object is a mesh record as it stands.
class MeshObject {
 public:
  MeshObject(Floats vertexNumbers, Floats normalNumbers)
      : vertices(std::move(vertexNumbers)), normals(std::move(normalNumbers)) {
    mesh = {vertices.data(), static_cast<int>(vertices.size()) / 9, normals.data()};
    devhost::ObjectOf(object)->native = &mesh;
  }
  MeshObject(const MeshObject&) = delete;
  MeshObject& operator=(const MeshObject&) = delete;
  ~MeshObject() { devhost::ObjectOf(object)->native = nullptr; }

  const Variable& Object() const { return object; }
  std::string Triangle(int t) const { return TriangleLines(vertices, normals, t); }

 private:
  Floats vertices;
  Floats normals;
  TriangleMesh mesh{};
  Variable object = NewObject("POINT3");
};
