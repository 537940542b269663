#include "devhost/gl_trace/format.h"

#include <cmath>
#include <cstdint>
#include <cstdio>

#include "devhost/gl_trace/names.h"
#include "devhost/runtime/text.h"

namespace gl_trace {
namespace {

// The sign of a NaN is the processor's affair.
template <class T>
std::string FloatText(T value) {
  return std::isnan(value) ? "nan" : devhost::ShortestText(value);
}

std::string Hex(std::uintptr_t value) {
  char text[24];
  std::snprintf(text, sizeof text, "0x%llx", static_cast<unsigned long long>(value));
  return text;
}

}  // namespace

std::string Format(int value) { return devhost::Decimal(value); }
std::string Format(unsigned value) { return devhost::Decimal(value); }
std::string Format(float value) { return FloatText(value); }
std::string Format(double value) { return FloatText(value); }

std::string Format(Enum value) {
  const char* name = EnumName(value.value);
  return name ? name : Hex(value.value);
}

std::string Format(Primitive value) {
  const char* name = PrimitiveName(value.value);
  return name ? name : Hex(value.value);
}

std::string Format(ClearMask value) { return MaskNames(kClearMaskNames, value.value); }
std::string Format(PixelFormatFlags value) { return MaskNames(kPixelFormatFlagNames, value.value); }

std::string Format(const void* handle) { return handle ? Hex(reinterpret_cast<std::uintptr_t>(handle)) : "null"; }
std::string Format(const char* text) { return text; }

}  // namespace gl_trace
