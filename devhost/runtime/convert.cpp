// Values read as C++ numbers and texts. A value of the wrong kind raises kErrorConversion and gives 0.
#include <cmath>
#include <limits>

#include "devhost/runtime/number.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"

namespace devhost {
namespace {

template <typename Integer>
Integer Saturated(double value) {
  constexpr Integer kLow = std::numeric_limits<Integer>::min();
  constexpr Integer kHigh = std::numeric_limits<Integer>::max();
  if (std::isnan(value)) return 0;
  if (value <= static_cast<double>(kLow)) return kLow;
  if (value >= static_cast<double>(kHigh)) return kHigh;
  return static_cast<Integer>(value);
}

bool IsInteger(const Variable& number) { return (number.type & kIntegerTypes) != 0; }

// Whether the value is a number; raises when it is not.
bool RequireNumber(const Variable& value) {
  if (IsNumeric(value)) return true;
  Raise(kErrorConversion, "A number is needed here, not " + KindOf(value) + ".");
  return false;
}

}  // namespace

double DoubleOf(const Variable& number) {
  switch (number.type) {
    case TVAR_INT64:
      return static_cast<double>(number.slot.int64);
    case TVAR_BYTE:
      return number.slot.byte;
    case TVAR_INT32:
      return number.slot.int32;
    case TVAR_FLOAT:
      return static_cast<double>(number.slot.float32);
    default:
      return number.slot.float64;
  }
}

long long Int64Of(const Variable& number) {
  switch (number.type) {
    case TVAR_INT64:
      return number.slot.int64;
    case TVAR_BYTE:
      return number.slot.byte;
    case TVAR_INT32:
      return number.slot.int32;
    default:
      return Saturated<long long>(DoubleOf(number));
  }
}

int Int32Of(const Variable& number) {
  return IsInteger(number) ? static_cast<int>(Int64Of(number)) : Saturated<int>(DoubleOf(number));
}

TVARTYPE PromotedType(TVARTYPE a, TVARTYPE b) {
  // The 64-bit integer's tag is the lowest, though the type is the widest integer.
  if ((a == TVAR_INT64 || b == TVAR_INT64) && a < TVAR_FLOAT && b < TVAR_FLOAT) return TVAR_INT64;
  return a > b ? a : b;
}

}  // namespace devhost

Variable::operator int() { return devhost::RequireNumber(*this) ? devhost::Int32Of(*this) : 0; }

Variable::operator unsigned long() {
  return devhost::RequireNumber(*this) ? static_cast<unsigned long>(devhost::Int64Of(*this)) : 0;
}

Variable::operator float() {
  if (type == TVAR_FLOAT) return slot.float32;
  return devhost::RequireNumber(*this) ? static_cast<float>(devhost::DoubleOf(*this)) : 0.0f;
}

Variable::operator double() { return devhost::RequireNumber(*this) ? devhost::DoubleOf(*this) : 0.0; }

Variable::operator unsigned char*() {
  if (const devhost::BytesPayload* bytes = devhost::BytesOf(*this)) return bytes->record.bytes;
  devhost::Raise(devhost::kErrorConversion, "A String is needed here, not " + devhost::KindOf(*this) + ".");
  return nullptr;
}
