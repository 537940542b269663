// The data of the indexed triangle batches.
#pragma once

#include "render/triples.h"

class OGLMaterial;

// One list of TrianglesEx: three points and three normals a triangle, and the material of the list, or null.
struct IndexedTriangles {
  TripleSpan points;
  TripleSpan normals;
  const OGLMaterial* material;
};

// The mesh behind a script object that TrianglesExFB draws: 9 floats a triangle, one normal a corner.
// To be confirmed against the real host: the members and their order.
struct TriangleMesh {
  float* vertices;
  int triangleCount;
  float* normals;
};
static_assert(sizeof(TriangleMesh) == 24);
