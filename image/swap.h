// Red, green, blue to blue, green, red and back.
#pragma once

// Swaps the first and third byte of every pixel of width x height tightly packed pixels of three bytes; nothing when
// a size is negative.
void SwapRedAndBlue(unsigned char* pixels, int width, int height);
