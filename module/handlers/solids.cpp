#include "module/handlers/handlers.h"
#include "module/handlers/points.h"

namespace {

// Slices and stacks of the forms that do not give them.
constexpr int kDefaultSlices = 10;

}  // namespace

void script::Sphere(const TOpenGL& self, ScriptCall& call) {
  if (call.Count() < 2 || call.Count() > 5) return;
  const OGLPoint center = ReadPoint(call, call.Count() > 3);
  const float radius = call.NextNumber();
  const bool hasSlices = call.Count() == 3 || call.Count() == 5;
  self.Sphere(center, radius, hasSlices ? call.NextInt() : kDefaultSlices);
}

void script::Cylinder(const TOpenGL& self, ScriptCall& call) {
  const float baseRadius = call.NextNumber();
  const float topRadius = call.NextNumber();
  const float height = call.NextNumber();
  if (call.Count() == 5) {
    const int slices = call.NextInt();
    const int stacks = call.NextInt();
    self.Cylinder(baseRadius, topRadius, height, slices, stacks);
  } else {
    self.Cylinder(baseRadius, topRadius, height, kDefaultSlices, kDefaultSlices);
  }
}

void script::Box(const TOpenGL& self, ScriptCall& call) {
  const OGLPoint first = ReadNumbers(call);
  if (call.Count() == 3) {
    self.Box(first.x, first.y, first.z);
  } else {
    const OGLPoint sizes = ReadNumbers(call);
    self.BoxAt(first, sizes.x, sizes.y, sizes.z);
  }
}
