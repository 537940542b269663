// The corners of GLU's solids, which GLU hands to OpenGL by itself.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "devhost/gl_trace/watch.h"

namespace devhost::check {

// Each corner of the rings and sectors of gluSphere, gluCylinder, gluDisk or gluPartialDisk; none of other calls.
std::vector<std::array<double, 3>> CornersOf(const gl_trace::Call& call);

// Why the solid cannot be seen, "2 slices make no body"; "" when it can.
std::string WhyNoSolid(const gl_trace::Call& call);

}  // namespace devhost::check
