// Names of the constants that the module passes.
#pragma once

#include <span>
#include <string>

namespace gl_trace {

struct ConstantName {
  unsigned value;
  const char* name;
};

extern const std::span<const ConstantName> kClearMaskNames;
extern const std::span<const ConstantName> kPixelFormatFlagNames;

// Null for a value without a name. Primitives have a table of their own: their values are small numbers.
const char* EnumName(unsigned value);
const char* PrimitiveName(unsigned value);
// "GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT"; unnamed bits as a number, "0" for none.
std::string MaskNames(std::span<const ConstantName> names, unsigned mask);

}  // namespace gl_trace
