#include "image/swap.h"

#include <cstddef>
#include <utility>

void SwapRedAndBlue(unsigned char* pixels, int width, int height) {
  if (width < 0 || height < 0) return;
  const unsigned char* const end = pixels + 3 * static_cast<std::ptrdiff_t>(width) * height;
  for (; pixels < end; pixels += 3) std::swap(pixels[0], pixels[2]);
}
