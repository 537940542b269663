// The corners of GLU's solids, which GLU hands to OpenGL by itself.
#pragma once

#include <functional>

#include "devhost/gl_trace/watch.h"

namespace devhost::check {

using CornerFunction = std::function<void(double x, double y, double z)>;

// Hands over each corner once for the rings and sectors of gluSphere, gluCylinder, gluDisk or gluPartialDisk, none for
// other calls.
void ForEachCorner(const gl_trace::Call& call, const CornerFunction& corner);

// Why the solid cannot be seen, "2 slices make no body"; "" when it can.
std::string WhyNoSolid(const gl_trace::Call& call);

}  // namespace devhost::check
