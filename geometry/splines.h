// A cubic NURBS surface, ready for GLU.
#pragma once

#include <span>

// n control points along s, m along t; knots one longer than these by the order, 4.
struct NurbsSurface {
  std::span<float> sKnots;  // n + 4
  std::span<float> tKnots;  // m + 4
  float* controls;          // m rows of n points, x, y, z each
  float* normals;           // likewise, or null: OpenGL computes them
};
