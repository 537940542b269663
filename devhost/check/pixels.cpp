#include "devhost/check/pixels.h"

#include <cstddef>
#include <cstring>

namespace devhost::check {

bool IsOneColor(const unsigned char* pixels, int width, int height, int rowBytes) {
  for (int y = 0; y < height; ++y) {
    const unsigned char* row = pixels + static_cast<std::ptrdiff_t>(y) * rowBytes;
    for (int x = 0; x < width; ++x) {
      if (std::memcmp(row + static_cast<std::ptrdiff_t>(x) * 3, pixels, 3) != 0) return false;
    }
  }
  return true;
}

}  // namespace devhost::check
