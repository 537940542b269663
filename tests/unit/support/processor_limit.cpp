#include "tests/unit/support/processor_limit.h"

ProcessorLimit& Processors() {
  static ProcessorLimit limit;
  return limit;
}

// NOLINTBEGIN(bugprone-reserved-identifier): the names are the linker's
bool RealHasSsse3() asm("__real__Z8HasSsse3v");
bool RealHasAvx2() asm("__real__Z7HasAvx2v");
bool RealHasAvx512() asm("__real__Z9HasAvx512v");
bool LimitedHasSsse3() asm("__wrap__Z8HasSsse3v");
bool LimitedHasAvx2() asm("__wrap__Z7HasAvx2v");
bool LimitedHasAvx512() asm("__wrap__Z9HasAvx512v");
// NOLINTEND(bugprone-reserved-identifier)

bool LimitedHasSsse3() { return Processors().allowsSsse3 && RealHasSsse3(); }
bool LimitedHasAvx2() { return Processors().allowsAvx2 && RealHasAvx2(); }
bool LimitedHasAvx512() { return Processors().allowsAvx512 && RealHasAvx512(); }
