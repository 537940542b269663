// POINT3 objects of the host.
#pragma once

#include "host/talq.h"
#include "render/point.h"

// Makes a new POINT3 from x, y and z in the target.
inline void MakePoint(Variable& target, const OGLPoint& point, Processor* processor) {
  char className[] = "POINT3";
  VarRegister components[3];
  components[0] = point.x;
  components[1] = point.y;
  components[2] = point.z;
  processor->MakeInstance(target, className, components, 3);
}

// The x, y and z of a POINT3.
inline OGLPoint ReadPoint(Variable& point) {
  char x[] = "x";
  char y[] = "y";
  char z[] = "z";
  return {point(x), point(y), point(z), 1.0F};
}

// Three numbers in the registers from `numbers` on.
inline OGLPoint ReadPoint(VarRegister* numbers) { return {numbers[0], numbers[1], numbers[2], 1.0F}; }
