// The loops over pixels that exist in several ways, one a kind of processor: all give the same bytes.
#include <cmath>
#include <limits>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "image/blend.h"
#include "image/processor.h"
#include "image/swap.h"
#include "tests/unit/support/processor_limit.h"

namespace {

using Bytes = std::vector<unsigned char>;

Bytes Pattern(std::size_t count, unsigned seed) {
  Bytes bytes;
  for (std::size_t i = 0; i < count; ++i) {
    seed = seed * 1664525U + 1013904223U;
    bytes.push_back(static_cast<unsigned char>(seed >> 24));
  }
  return bytes;
}

// Lengths around every block size, with bytes behind the pixels that stay as they are.
TEST(PixelLoopsTest, SwapOfEveryLength) {
  for (std::size_t pixels = 0; pixels <= 200; ++pixels) {
    const Bytes before = Pattern(3 * pixels + 5, static_cast<unsigned>(pixels));
    Bytes expected = before;
    for (std::size_t i = 0; i < pixels; ++i) {
      expected[3 * i] = before[3 * i + 2];
      expected[3 * i + 2] = before[3 * i];
    }
    Bytes plain = before;
    SwapPixels(plain.data(), pixels);
    EXPECT_EQ(plain, expected) << pixels;
    if (!HasSsse3()) continue;
    Bytes vectors = before;
    SwapPixelsSsse3(vectors.data(), pixels);
    EXPECT_EQ(vectors, expected) << pixels;
  }
}

using BlendLoop = void (*)(unsigned char*, const unsigned char*, std::size_t, float);

std::vector<BlendLoop> FixedLoops() {
  std::vector<BlendLoop> loops = {BlendFixed};
  if (HasAvx2()) loops.push_back(BlendFixedAvx2);
  if (HasAvx512()) loops.push_back(BlendFixedAvx512);
  return loops;
}

TEST(PixelLoopsTest, BlendOfEveryLength) {
  for (std::size_t count = 0; count <= 200; ++count) {
    const Bytes before = Pattern(count + 5, static_cast<unsigned>(count));
    const Bytes others = Pattern(count + 5, static_cast<unsigned>(count) + 1000);
    Bytes expected = before;
    BlendByFormula(expected.data(), others.data(), count, 0.3F);
    for (const BlendLoop loop : FixedLoops()) {
      Bytes blended = before;
      loop(blended.data(), others.data(), count, 0.3F);
      EXPECT_EQ(blended, expected) << count;
    }
  }
}

// Factors around those where a product has bits that a 24-bit fraction does not hold, and random ones of every size.
std::vector<float> Fractions() {
  std::vector<float> factors = {0.0F, -0.0F, 1.0F, 0.1F, 1.0F / 3.0F, 0.9F, std::numeric_limits<float>::denorm_min()};
  for (int exponent = 0; exponent >= -50; --exponent) {
    const float power = std::ldexp(1.0F, exponent);
    factors.push_back(power);
    factors.push_back(std::nextafter(power, 0.0F));
    if (exponent < 0) factors.push_back(std::nextafter(power, 1.0F));
  }
  unsigned seed = 1;
  for (int i = 0; i < 100; ++i) {
    seed = seed * 1664525U + 1013904223U;
    const float fraction = static_cast<float>(seed >> 8) / 16777216.0F;
    factors.push_back(i % 2 == 0 ? fraction : std::ldexp(fraction, -static_cast<int>(seed & 31)));
  }
  return factors;
}

TEST(PixelLoopsTest, BlendOfEveryPairOfBytes) {
  Bytes before(65536);
  Bytes others(65536);
  for (std::size_t i = 0; i < 65536; ++i) {
    before[i] = static_cast<unsigned char>(i >> 8);
    others[i] = static_cast<unsigned char>(i);
  }
  for (const float factor : Fractions()) {
    Bytes expected = before;
    BlendByFormula(expected.data(), others.data(), expected.size(), factor);
    for (const BlendLoop loop : FixedLoops()) {
      Bytes blended = before;
      loop(blended.data(), others.data(), blended.size(), factor);
      EXPECT_TRUE(blended == expected) << factor;
    }
  }
}

TEST(PixelLoopsTest, WhatNo64BitIntegerHoldsIsZero) {
  for (const float factor : {0x1p62F, 0x1p63F, -0x1p63F, 0x1p80F, -0x1p80F}) {
    unsigned char byte = 1;
    const unsigned char other = 0;
    BlendByFormula(&byte, &other, 1, factor);
    EXPECT_EQ(byte, 0) << factor;
  }
}

// Each kind of processor takes a way of its own.
TEST(PixelLoopsTest, EveryProcessorDoesTheSame) {
  const Bytes before = Pattern(300, 1);
  const Bytes others = Pattern(300, 2);
  Bytes blended = before;
  BlendByFormula(blended.data(), others.data(), blended.size(), 0.3F);
  Bytes swapped = before;
  SwapPixels(swapped.data(), 100);
  for (const ProcessorLimit limit :
       {ProcessorLimit{}, ProcessorLimit{.allowsAvx512 = false},
        ProcessorLimit{.allowsSsse3 = false, .allowsAvx2 = false, .allowsAvx512 = false}}) {
    Processors() = limit;
    Bytes bytes = before;
    Blend(bytes.data(), others.data(), bytes.size(), 0.3F);
    EXPECT_EQ(bytes, blended);
    bytes = before;
    SwapRedAndBlue(bytes.data(), 10, 10);
    EXPECT_EQ(bytes, swapped);
  }
  Processors() = {};
}

// Needs every one of these bits of a report, and no other.
void ExpectNeeds(bool (*reports)(const ProcessorReport&), const ProcessorReport& needed) {
  EXPECT_TRUE(reports(needed));
  for (unsigned ProcessorReport::* const word :
       {&ProcessorReport::leaf1c, &ProcessorReport::leaf7b, &ProcessorReport::savedState}) {
    for (unsigned bit = 1; bit != 0; bit <<= 1) {
      ProcessorReport all = {~0U, ~0U, ~0U};
      all.*word &= ~bit;
      EXPECT_EQ(reports(all), (needed.*word & bit) == 0) << std::hex << bit;
    }
  }
}

TEST(PixelLoopsTest, ProcessorHasToReportEveryPartOfWhatALoopNeeds) {
  ExpectNeeds(ReportsSsse3, {1U << 9, 0, 0});
  ExpectNeeds(ReportsAvx2, {0, 1U << 5, 1U << 1 | 1U << 2});
  ExpectNeeds(ReportsAvx512,
              {0, 1U << 16 | 1U << 17 | 1U << 30 | 1U << 31, 1U << 1 | 1U << 2 | 1U << 5 | 1U << 6 | 1U << 7});
}

// A processor without xgetbv would stop the program at it.
TEST(PixelLoopsTest, SavedStateIsReadOnlyWhereTheProcessorCan) {
  static int reads = 0;
  const auto read = [] { return static_cast<unsigned>(++reads); };
  constexpr unsigned kOsxsave = 1U << 27;
  const ProcessorReport without = MakeReport(~kOsxsave, 8, read);
  EXPECT_EQ(reads, 0);
  EXPECT_EQ(std::tuple(without.leaf1c, without.leaf7b, without.savedState), std::tuple(~kOsxsave, 8U, 0U));
  EXPECT_EQ(MakeReport(kOsxsave, 8, read).savedState, 1U);
}

// The compiler's library asks the processor by itself.
TEST(PixelLoopsTest, ProcessorIsWhatTheCompilersLibraryTakesItFor) {
  EXPECT_EQ(HasSsse3(), __builtin_cpu_supports("ssse3") != 0);
  EXPECT_EQ(HasAvx2(), __builtin_cpu_supports("avx2") != 0);
  EXPECT_EQ(HasAvx512(), __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
                             __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl"));
}

}  // namespace
