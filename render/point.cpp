#include "render/point.h"

#include <cmath>

void OGLPoint::Normalize() {
  w = 1.0F;
  const float length = sqrtf(x * x + y * y + z * z);
  if (length == 0.0F) {
    Set(1.0F, 0.0F, 0.0F, 1.0F);
    return;
  }
  x /= length;
  y /= length;
  z /= length;
}
