// A cubic NURBS surface, ready for GLU.
#pragma once

#include <span>

// Cubic in every direction: as many more knots than control points.
inline constexpr int kSplineOrder = 4;

// n control points along s, m along t; knots longer than these by the order.
struct NurbsSurface {
  std::span<float> sKnots;  // n + 4
  std::span<float> tKnots;  // m + 4
  float* controls;          // m rows of n points, x, y, z each
  float* normals;           // likewise, or null: OpenGL computes them
};
