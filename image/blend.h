// Blending of bytes.
#pragma once

#include <cstddef>

// Each of `count` bytes becomes what was there times the factor, as a float, plus the other byte times 1 - factor, as a
// double: cut off towards zero, the low eight bits. What no 64-bit integer can hold gives 0.
void Blend(unsigned char* bytes, const unsigned char* others, std::size_t count, float factor);

// The ways in which it is done: for any factor; and, with the same results, for factors from 0 to 1, on every processor
// and on those with AVX2 and AVX-512.
void BlendByFormula(unsigned char* bytes, const unsigned char* others, std::size_t count, float factor);
void BlendFixed(unsigned char* bytes, const unsigned char* others, std::size_t count, float factor);
void BlendFixedAvx2(unsigned char* bytes, const unsigned char* others, std::size_t count, float factor);
void BlendFixedAvx512(unsigned char* bytes, const unsigned char* others, std::size_t count, float factor);
