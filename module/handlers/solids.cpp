#include "binding/native.h"
#include "module/handlers/handlers.h"
#include "module/handlers/points.h"
#include "render/topengl.h"

namespace {

// Slices and stacks of the forms that do not give them.
constexpr int kDefaultSlices = 10;

}  // namespace

void Sphere(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self || argc < 3 || argc > 6) return;
  const bool numbers = argc > 4;
  const OGLPoint center = numbers ? ReadPoint(args) : ReadPoint(args[0]);
  VarRegister* rest = args + (numbers ? 3 : 1);
  const float radius = rest[0];
  const bool hasSlices = argc == 4 || argc == 6;
  self->Sphere(center, radius, hasSlices ? static_cast<int>(rest[1]) : kDefaultSlices);
}

void Cylinder(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const float sizes[] = {args[0], args[1], args[2]};
  int steps[] = {kDefaultSlices, kDefaultSlices};
  if (argc == 6) {
    steps[0] = args[3];
    steps[1] = args[4];
  }
  self->Cylinder(sizes[0], sizes[1], sizes[2], steps[0], steps[1]);
}

void Box(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const OGLPoint first = ReadPoint(args);
  if (argc == 4) {
    self->Box(first.x, first.y, first.z);
  } else {
    const float sizes[] = {args[3], args[4], args[5]};
    self->BoxAt(first, sizes[0], sizes[1], sizes[2]);
  }
}
