// Turns a script's Vector into consecutive float triples.
//
// A Vector is read in the shape that its element 0 has: flat numbers (x0, y0, z0, x1, ...; one or two trailing numbers
// are ignored), or rows, each an object with named members or a Vector of at least three numbers. Nothing is raised
// here: the host notes a bad element as the script's error status, which callers test before they draw.
#pragma once

#include <memory>

#include "host/talq.h"
#include "render/triples.h"

// Owns the decoded triples; false when they could not be allocated.
class Triples {
 public:
  // No triples.
  Triples() = default;
  // Room for count triples without a value yet, and one spare float, which is required and never used.
  explicit Triples(int count);

  explicit operator bool() const { return values != nullptr; }
  operator TripleSpan() const { return {values.get(), count}; }
  int Count() const { return count; }
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
