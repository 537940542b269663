// What the processor can do beyond the baseline of x86-64, asked once.
#pragma once

// What the processor says of itself, as Intel's manual has it: register c of cpuid's leaf 1 and b of leaf 7; and which
// registers the system saves when it switches threads, as xgetbv tells, 0 where it does not say.
struct ProcessorReport {
  unsigned leaf1c;
  unsigned leaf7b;
  unsigned savedState;
};

// The report that these words make. xgetbv, which reads the saved state, is there only where leaf 1 says so.
ProcessorReport MakeReport(unsigned leaf1c, unsigned leaf7b, unsigned (*readSavedState)());

// Whether a processor with this report can do it; as below.
bool ReportsSsse3(const ProcessorReport& report);
bool ReportsAvx2(const ProcessorReport& report);
bool ReportsAvx512(const ProcessorReport& report);

// SSSE3: bytes are shuffled within a vector.
bool HasSsse3();
// AVX2, and AVX-512 with its byte instructions: vectors of 32 and 64 bytes. True only where the system saves them too.
bool HasAvx2();
bool HasAvx512();

// Compiles one function for such a processor. Microsoft's compiler has no such attribute; there every processor takes
// the baseline, except for SSSE3, whose intrinsics it accepts anywhere.
#if defined(__clang__) || defined(__GNUC__)
#define FOR_SSSE3 __attribute__((target("ssse3")))
#define FOR_AVX2 __attribute__((target("avx2")))
#define FOR_AVX512 __attribute__((target("avx512f,avx512bw,avx512vl,avx512dq")))
#else
#define FOR_SSSE3
#define FOR_AVX2
#define FOR_AVX512
#endif
