// The normal of a triangle of a packed point array.
#pragma once

#include "render/triples.h"

// Its three coordinates, of the corners P0, P1, P2 from point k on: (P2 - P1) x (P0 - P1), not normalised. It points to
// where they are seen counter-clockwise.
inline float FaceNormalX(TripleSpan points, int k) {
  const float* p0 = points[k];
  const float* p1 = p0 + 3;
  const float* p2 = p0 + 6;
  return (p2[1] - p1[1]) * (p0[2] - p1[2]) - (p2[2] - p1[2]) * (p0[1] - p1[1]);
}

inline float FaceNormalY(TripleSpan points, int k) {
  const float* p0 = points[k];
  const float* p1 = p0 + 3;
  const float* p2 = p0 + 6;
  return (p2[2] - p1[2]) * (p0[0] - p1[0]) - (p2[0] - p1[0]) * (p0[2] - p1[2]);
}

inline float FaceNormalZ(TripleSpan points, int k) {
  const float* p0 = points[k];
  const float* p1 = p0 + 3;
  const float* p2 = p0 + 6;
  return (p2[0] - p1[0]) * (p0[1] - p1[1]) - (p2[1] - p1[1]) * (p0[0] - p1[0]);
}
