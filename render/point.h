// Points, rectangles and frusta: the plain values in which the renderer keeps its view.
#pragma once

// A homogeneous point or direction; w is 1 for points.
struct OGLPoint {
  // The origin.
  OGLPoint() = default;
  OGLPoint(float newX, float newY, float newZ, float newW) : x(newX), y(newY), z(newZ), w(newW) {}

  void Set(float newX, float newY, float newZ, float newW) { *this = OGLPoint(newX, newY, newZ, newW); }
  // Scales x, y, z to length 1 and sets w to 1. A zero direction becomes (1, 0, 0).
  void Normalize();

  float x = 0.0F;
  float y = 0.0F;
  float z = 0.0F;
  float w = 1.0F;
};

// A rectangle, all zeros at first. Its sizes are negative where the sides are the other way round. Required: given as
// left, top, right, bottom, stored as left, right, top, bottom.
struct OGLRect {
  OGLRect() = default;
  OGLRect(float newLeft, float newTop, float newRight, float newBottom)
      : left(newLeft), right(newRight), top(newTop), bottom(newBottom) {}

  void Set(float newLeft, float newTop, float newRight, float newBottom) {
    *this = OGLRect(newLeft, newTop, newRight, newBottom);
  }
  float Width() const { return right - left; }
  float Height() const { return bottom - top; }

  float left = 0.0F;
  float right = 0.0F;
  float top = 0.0F;
  float bottom = 0.0F;
};

// A viewing frustum: its rectangle on the near plane, and the distances of the near and far planes from the eye. Given
// in the order in which it is stored: left, right, top, bottom, near, far.
struct OGLFrustum : OGLRect {
  OGLFrustum(float newLeft, float newRight, float newTop, float newBottom, float newNear, float newFar)
      : OGLRect(newLeft, newTop, newRight, newBottom), zNear(newNear), zFar(newFar) {}

  void Set(float newLeft, float newRight, float newTop, float newBottom, float newNear, float newFar) {
    *this = OGLFrustum(newLeft, newRight, newTop, newBottom, newNear, newFar);
  }
  // Negative, as near lies before far.
  float Depth() const { return zNear - zFar; }

  float zNear;
  float zFar;
};

static_assert(sizeof(OGLPoint) == 16 && sizeof(OGLRect) == 16 && sizeof(OGLFrustum) == 24);
