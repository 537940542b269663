#include "image/blend.h"

#include "image/processor.h"

#ifdef __clang__
#define INLINE_INTO_EACH [[gnu::always_inline]]
#else
#define INLINE_INTO_EACH
#endif

namespace {

// Towards zero, the low eight bits. What no 64-bit integer can hold gives 0, as x86's own conversion has it.
unsigned char LowByte(double value) {
  const bool fits = value >= -9223372036854775808.0 && value < 9223372036854775808.0;
  return fits ? static_cast<unsigned char>(static_cast<long long>(value)) : 0;
}

// With a factor from 0 to 1, 1 - factor is a whole number of 24-bit fractions, so that what a product of the factor has
// beyond them never carries into the sum's integer part: the sum can be made of 8.24-bit fixed-point numbers. It stays
// below 256. The loop is written for the compiler to make vectors of.
INLINE_INTO_EACH inline void BlendFractions(unsigned char* __restrict bytes, const unsigned char* __restrict others,
                                            std::size_t count, float factor) {
  constexpr float kOne = 1 << 24;
  const float scaledFactor = factor * kOne;
  const auto rest = static_cast<unsigned>((1.0F - factor) * kOne);
  for (std::size_t i = 0; i < count; ++i) {
    const auto kept = static_cast<unsigned>(static_cast<float>(bytes[i]) * scaledFactor);
    bytes[i] = static_cast<unsigned char>((kept + others[i] * rest) >> 24);
  }
}

}  // namespace

void BlendByFormula(unsigned char* bytes, const unsigned char* others, std::size_t count, float factor) {
  const double rest = 1.0F - factor;
  for (std::size_t i = 0; i < count; ++i) {
    const double kept = static_cast<float>(bytes[i]) * factor;
    bytes[i] = LowByte(kept + others[i] * rest);
  }
}

void BlendFixed(unsigned char* bytes, const unsigned char* others, std::size_t count, float factor) {
  BlendFractions(bytes, others, count, factor);
}

FOR_AVX2 void BlendFixedAvx2(unsigned char* bytes, const unsigned char* others, std::size_t count, float factor) {
  BlendFractions(bytes, others, count, factor);
}

FOR_AVX512 void BlendFixedAvx512(unsigned char* bytes, const unsigned char* others, std::size_t count, float factor) {
  BlendFractions(bytes, others, count, factor);
}

void Blend(unsigned char* bytes, const unsigned char* others, std::size_t count, float factor) {
  const bool isFraction = factor >= 0.0F && factor <= 1.0F;  // not when it is no number
  if (!isFraction) {
    BlendByFormula(bytes, others, count, factor);
  } else if (HasAvx512()) {
    BlendFixedAvx512(bytes, others, count, factor);
  } else if (HasAvx2()) {
    BlendFixedAvx2(bytes, others, count, factor);
  } else {
    BlendFixed(bytes, others, count, factor);
  }
}
