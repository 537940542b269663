// How arguments of OpenGL calls read, in the trace and in the unit tests. Numbers read back bit for bit.
#pragma once

#include <windows.h>

#include <GL/gl.h>
#include <GL/glu.h>
#include <span>
#include <string>

namespace gl_trace {

// Marks of arguments that are not plain numbers.
struct Enum {
  GLenum value;
};
struct Primitive {
  GLenum value;
};
struct ClearMask {
  GLbitfield value;
};
struct PixelFormatFlags {
  DWORD value;
};

std::string Format(int value);
std::string Format(unsigned value);
std::string Format(float value);
std::string Format(double value);
std::string Format(Enum value);
std::string Format(Primitive value);
std::string Format(ClearMask value);
std::string Format(PixelFormatFlags value);
std::string Format(const void* handle);
std::string Format(const char* text);

template <class T>
std::string Format(std::span<const T> values) {
  std::string text = "{";
  for (const T& value : values) text += (text.size() > 1 ? ", " : "") + Format(value);
  return text + "}";
}

}  // namespace gl_trace
