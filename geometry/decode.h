// Turns scripts' Vectors into plain arrays.
//
// Consecutive float triples are read in the shape that element 0 of the Vector has: flat numbers (x0, y0, z0, x1, ...;
// one or two trailing numbers are ignored), or rows, each an object with named members or a Vector of at least three
// numbers. Nothing is raised here: the host notes a bad element as the script's error status, which callers test before
// they draw.
#pragma once

#include <memory>

#include "geometry/array.h"
#include "host/talq.h"
#include "render/triples.h"

// Owns the decoded triples; false when they could not be allocated.
class Triples {
 public:
  // No triples.
  Triples() = default;
  // Room for so many triples without a value yet, and one spare float, which is required and never used.
  explicit Triples(int wanted);

  explicit operator bool() const { return values != nullptr; }
  operator TripleSpan() const { return {values.get(), count}; }
  int Count() const { return count; }
  // The three floats of a triple; the index is not checked.
  const float* operator[](int index) const { return values.get() + std::ptrdiff_t{3} * index; }
  // 3 * Count() floats; null when there are none.
  float* Values() { return values.get(); }

 private:
  std::unique_ptr<float[]> values;
  int count = 0;
};

// Points or normals; the members of objects are "x", "y", "z".
Triples DecodePoints(Variable& vector);

// Colours for expectedCount points, components from 0 to 1; the members of objects are "Red", "Green", "Blue". Numbers,
// when there are exactly as many as points, are packed 0x00BBGGRR colours. How many colours there are is not checked.
Triples DecodeColors(Variable& vector, int expectedCount);

// The elements as integers, one for each; no array when memory is out.
Array<int> DecodeIntegers(Variable& vector);

// Reads as many elements as the array has.
void DecodeNumbers(Array<float>& numbers, Variable& vector);

// Writes a control point for each triple: (xs[i], ys[i], zs[i]), or without zs (xs[i], ys[i], 0).
void DecodeControls(Triples& controls, Variable& xs, Variable& ys, Variable* zs);

// Writes n control points of one row: (xs[i], ys[i], z), 3 * n floats.
void PackRow(float z, Variable& xs, Variable& ys, float* to, int n);

// ---- What the indexed batches pick their triangles from.

// A triangle: nine numbers of its corners, nine of their normals.
struct TriangleCorners {
  const float* points;
  const float* normals;
};

// A Vector of point Vectors and one of normal Vectors.
class PointLists {
 public:
  PointLists(Variable& pointLists, Variable& normalLists);

  // False when an array is missing.
  explicit operator bool() const { return isComplete; }
  int Count() const { return points.Count(); }
  // Whether a list has as many normals as points, three for each triangle.
  bool Fits(int list) const { return points[list].Count() == normals[list].Count() && points[list].Count() % 3 == 0; }
  // How many triangles a list has that fits, and one of them; indices are not checked.
  int Triangles(int list) const { return points[list].Count() / 3; }
  TriangleCorners At(int list, int triangle) const { return {points[list][3 * triangle], normals[list][3 * triangle]}; }

 private:
  Array<Triples> points;
  Array<Triples> normals;
  bool isComplete;
};

// A Vector of script objects with mesh records. One without a record has no triangles, nor has a record without arrays.
class Meshes {
 public:
  explicit Meshes(Variable& objects);

  // False when the array is missing.
  explicit operator bool() const { return static_cast<bool>(meshes); }
  int Count() const { return meshes.Count(); }
  // How many triangles a mesh has, and one of them; indices are not checked.
  int Triangles(int mesh) const;
  TriangleCorners At(int mesh, int triangle) const;

 private:
  Array<const TriangleMesh*> meshes;
};
