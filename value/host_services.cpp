// Type promotion, memory and the interpreter.
#include <algorithm>
#include <cstring>

#include "value/arithmetic.h"

unsigned short TopType(TVARTYPE a, TVARTYPE b) {
  if (!(a & kNumericTypes) || !(b & kNumericTypes)) return 65535;
  if ((a == TVAR_INT64 || b == TVAR_INT64) && a < TVAR_FLOAT && b < TVAR_FLOAT) return TVAR_INT64;
  return static_cast<unsigned short>(std::max(a, b));
}

void* HMALLOCZ(std::size_t size, std::size_t x, std::size_t y, std::size_t z) {
  void* memory = HMALLOC(size, x, y, z);
  if (memory) std::memset(memory, 0, size);
  return memory;
}

Processor* GetOwner() {
  TVConnect* connector = GetConnector();
  return connector ? connector->GetOwner() : nullptr;
}
