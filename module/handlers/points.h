// Points in scripts: three numbers, or POINT3 objects of the host.
#pragma once

#include "binding/call.h"
#include "render/point.h"

// The x, y and z of a POINT3.
inline OGLPoint ReadPoint(Variable& point) {
  return {point(HostText("x")), point(HostText("y")), point(HostText("z")), 1.0F};
}

// The next three arguments, as numbers.
inline OGLPoint ReadNumbers(ScriptCall& call) {
  const float x = call.NextNumber();
  const float y = call.NextNumber();
  const float z = call.NextNumber();
  return {x, y, z, 1.0F};
}

// The next arguments: three numbers, or a POINT3.
inline OGLPoint ReadPoint(ScriptCall& call, bool isNumbers) {
  if (isNumbers) return ReadNumbers(call);
  return ReadPoint(call.NextValue());
}

// Makes a new POINT3 from x, y and z in the target. The three registers are what its constructor gets.
inline void MakePoint(Variable& target, const OGLPoint& point, VarRegister (&components)[3], Processor* processor) {
  components[0] = point.x;
  components[1] = point.y;
  components[2] = point.z;
  processor->MakeInstance(target, HostText("POINT3"), components, 3);
}
