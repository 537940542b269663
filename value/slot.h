// Typed access to a value's slot.
#pragma once

#include "host/talq.h"

// The slot read as a T, whatever the type tag says.
template <class T>
T SlotOf(const Variable& value);
template <>
inline long long SlotOf<long long>(const Variable& value) {
  return value.slot.int64;
}
template <>
inline unsigned char SlotOf<unsigned char>(const Variable& value) {
  return value.slot.byte;
}
template <>
inline int SlotOf<int>(const Variable& value) {
  return value.slot.int32;
}
template <>
inline float SlotOf<float>(const Variable& value) {
  return value.slot.float32;
}
template <>
inline double SlotOf<double>(const Variable& value) {
  return value.slot.float64;
}

// Writes the number into the slot and leaves the type tag alone.
inline void SetSlot(Variable& value, long long number) { value.slot.int64 = number; }
inline void SetSlot(Variable& value, unsigned char number) { value.slot.byte = number; }
inline void SetSlot(Variable& value, int number) { value.slot.int32 = number; }
inline void SetSlot(Variable& value, float number) { value.slot.float32 = number; }
inline void SetSlot(Variable& value, double number) { value.slot.float64 = number; }
