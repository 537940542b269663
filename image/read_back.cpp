// The frame, read back as the bytes of a 24-bit device-independent bitmap.
#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "classes/gl.h"
#include "image/blend.h"
#include "image/padded_row.h"
#include "image/swap.h"
#include "render/arithmetic.h"
#include "render/topengl.h"

namespace {

struct Free {
  void operator()(unsigned char* bytes) const { std::free(bytes); }
};
using Scratch = std::unique_ptr<unsigned char, Free>;

// Reads RGB pixels into memory of their own, rows padded; what it does not write is zero. Null when memory
// is out or a size is negative.
Scratch ReadPixels(int x, int y, int width, int height) {
  if (width < 0 || height < 0) return nullptr;
  const std::size_t row = PaddedRow(std::size_t{3} * static_cast<std::size_t>(width));
  const std::size_t rows = static_cast<std::size_t>(height);
  Scratch pixels(
      static_cast<unsigned char*>(std::calloc(std::max<std::size_t>(rows, 1), std::max<std::size_t>(row, 1))));
  if (!pixels) return nullptr;
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glReadPixels(x, y, width, height, GL_RGB, GL_UNSIGNED_BYTE, pixels.get());
  return pixels;
}

}  // namespace

void TOpenGL::GetDIBits(float x, float y, int width, int height, unsigned char* pixels) const {
  if (width < 0 || height < 0) return;
  const std::size_t rowBytes = std::size_t{3} * static_cast<std::size_t>(width);
  const std::size_t bytes = rowBytes * static_cast<std::size_t>(height);
  // The caller's length is an int, which has wrapped for larger frames.
  if (bytes > INT_MAX) return;
  if (rowBytes % 4 == 0 || bytes == 0) {
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glReadPixels(Truncate(x), Truncate(y), width, height, GL_RGB, GL_UNSIGNED_BYTE, pixels);
  } else {
    // OpenGL would write padded rows past the end; of those the first bytes are taken as they lie.
    const Scratch padded = ReadPixels(Truncate(x), Truncate(y), width, height);
    if (!padded) return;
    std::memcpy(pixels, padded.get(), bytes);
  }
  SwapRedAndBlue(pixels, width, height);
}

bool TOpenGL::GetDIBitsMixture(float x, float y, int width, int height, std::span<unsigned char> pixels,
                               float factor) const {
  if (!CanDraw()) return false;
  GLint viewportNow[4] = {};
  glGetIntegerv(GL_VIEWPORT, viewportNow);
  const int frameWidth = viewportNow[2];
  const int frameHeight = viewportNow[3];
  const Scratch frame = ReadPixels(Truncate(x), Truncate(y), frameWidth, frameHeight);
  if (!frame) return false;
  const int columns = std::max(std::min(width, frameWidth), 0);
  const auto rowBytes = std::size_t{3} * static_cast<std::size_t>(columns);
  const int rows = std::min(height, frameHeight);
  const std::size_t frameRow = std::size_t{3} * static_cast<std::size_t>(frameWidth);
  for (int row = 0; row < rows; ++row) {
    const std::size_t start = std::size_t{3} * static_cast<std::size_t>(width) * static_cast<std::size_t>(row);
    if (start >= pixels.size()) break;
    const std::size_t inside = std::min(rowBytes, pixels.size() - start);
    unsigned char* const frameBytes = frame.get() + frameRow * static_cast<std::size_t>(frameHeight - 1 - row);
    SwapRedAndBlue(frameBytes, columns, 1);
    Blend(pixels.data() + start, frameBytes, inside, factor);
  }
  return true;
}
