#include "image/processor.h"

#if defined(__clang__) || defined(__GNUC__)
#include <cpuid.h>
#else
#include <intrin.h>
#endif

namespace {

struct Registers {
  unsigned a = 0;
  unsigned b = 0;
  unsigned c = 0;
  unsigned d = 0;
};

#if defined(__clang__) || defined(__GNUC__)
// All zeros for a leaf that the processor does not know.
Registers CpuId(unsigned leaf) {
  Registers registers;
  __get_cpuid_count(leaf, 0, &registers.a, &registers.b, &registers.c, &registers.d);
  return registers;
}
unsigned SavedState() {
  unsigned low = 0;   // NOLINT(misc-const-correctness): written by the instruction
  unsigned high = 0;  // NOLINT(misc-const-correctness)
  __asm__("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
  return low;
}
#else
// All zeros for a leaf that the processor does not know.
Registers CpuId(int leaf) {
  int highest[4];
  __cpuid(highest, 0);
  if (leaf > highest[0]) return {};
  int values[4];
  __cpuidex(values, leaf, 0);
  return {static_cast<unsigned>(values[0]), static_cast<unsigned>(values[1]), static_cast<unsigned>(values[2]),
          static_cast<unsigned>(values[3])};
}
unsigned SavedState() { return static_cast<unsigned>(_xgetbv(0)); }
#endif

constexpr unsigned kSsse3 = 1U << 9;                                     // of leaf 1, register c
constexpr unsigned kOsxsave = 1U << 27;                                  // of leaf 1, register c
constexpr unsigned kAvx2 = 1U << 5;                                      // of leaf 7, register b
constexpr unsigned kAvx512 = 1U << 16 | 1U << 17 | 1U << 30 | 1U << 31;  // F, DQ, BW and VL, of leaf 7, register b
constexpr unsigned kYmmState = 0x06;
constexpr unsigned kZmmState = 0xE6;

const ProcessorReport& Report() {
  static const ProcessorReport report = MakeReport(CpuId(1).c, CpuId(7).b, SavedState);
  return report;
}

bool HasAll(unsigned bits, unsigned wanted) { return (bits & wanted) == wanted; }

}  // namespace

ProcessorReport MakeReport(unsigned leaf1c, unsigned leaf7b, unsigned (*readSavedState)()) {
  return {leaf1c, leaf7b, (leaf1c & kOsxsave) != 0 ? readSavedState() : 0};
}

bool ReportsSsse3(const ProcessorReport& report) { return HasAll(report.leaf1c, kSsse3); }
bool ReportsAvx2(const ProcessorReport& report) {
  return HasAll(report.leaf7b, kAvx2) && HasAll(report.savedState, kYmmState);
}
bool ReportsAvx512(const ProcessorReport& report) {
  return HasAll(report.leaf7b, kAvx512) && HasAll(report.savedState, kZmmState);
}

bool HasSsse3() { return ReportsSsse3(Report()); }
bool HasAvx2() { return ReportsAvx2(Report()); }
bool HasAvx512() { return ReportsAvx512(Report()); }
