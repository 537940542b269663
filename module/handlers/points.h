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
