#include "tests/recorder/format.h"

#include <charconv>
#include <cmath>
#include <cstdint>

#include "tests/recorder/names.h"

namespace recorder {
namespace {

template <class T, class... Base>
std::string Digits(T value, Base... base) {
  char buffer[40];
  return {buffer, std::to_chars(std::begin(buffer), std::end(buffer), value, base...).ptr};
}

std::string Hex(std::uintptr_t value) { return "0x" + Digits(value, 16); }

}  // namespace

std::string Format(int value) { return Digits(value); }
std::string Format(unsigned value) { return Digits(value); }
// The sign of a NaN is the processor's affair.
std::string Format(float value) { return std::isnan(value) ? "nan" : Digits(value); }
std::string Format(double value) { return std::isnan(value) ? "nan" : Digits(value); }

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

}  // namespace recorder
