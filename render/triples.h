// A view of consecutive float triples: (x, y, z) points or normals, or (red, green, blue) colours.
#pragma once

#include <cstddef>

struct TripleSpan {
  const float* values;
  int count;  // of triples

  // The three floats of a triple; the index is not checked.
  const float* operator[](int index) const { return values + std::ptrdiff_t{3} * index; }
};
