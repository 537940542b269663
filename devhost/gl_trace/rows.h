// The functions of OpenGL, GLU, WGL and GDI whose calls can be traced.
#pragma once

#include <span>

namespace gl_trace {

struct Row {
  const char* name;
  void* (*replace)(void* itself);  // takes the function itself, gives what stands in for it
};

extern const std::span<const Row> kRows;

}  // namespace gl_trace
