// Red, green, blue to blue, green, red and back.
#pragma once

#include <cstddef>

// Swaps the first and third byte of every pixel of width x height tightly packed pixels of three bytes; nothing when
// a size is negative.
void SwapRedAndBlue(unsigned char* pixels, int width, int height);

// The two ways in which it is done, for `count` pixels: one for every processor, one for those with SSSE3.
void SwapPixels(unsigned char* pixels, std::size_t count);
void SwapPixelsSsse3(unsigned char* pixels, std::size_t count);
