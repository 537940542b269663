#include "devhost/data/png.h"

#include <climits>
#include <cstring>
#include <memory>

#if defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Weverything"
// For some broken PNGs the library hands null to memcpy, with the size 0.
#pragma clang attribute push(__attribute__((no_sanitize("nonnull-attribute"))), apply_to = function)
#endif
// The analyzer is to look at this project, not into the library.
#ifndef __clang_analyzer__
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_WRITE_IMPLEMENTATION
#endif
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#define STBI_NO_SIMD
#define STBI_NO_THREAD_LOCALS
#define STBI_MAX_DIMENSIONS 16384
#include <stb_image.h>
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb_image_write.h>
#if defined(__clang__)
#pragma clang attribute pop
#pragma clang diagnostic pop
#endif

namespace devhost {
namespace {

constexpr int kChannels = 3;
constexpr std::string_view kPngMark = "\x89PNG\r\n\x1a\n";
static_assert(STBI_MAX_DIMENSIONS == kMaxPictureSide);

struct StbDeleter {
  void operator()(unsigned char* pixels) const { stbi_image_free(pixels); }
};

// Copies pixels with the order of the rows and of the channels reversed, which turns either layout into the other.
void CopyReversed(unsigned char* target, const unsigned char* source, int width, int height) {
  const std::size_t stride = static_cast<std::size_t>(width) * kChannels;
  for (int row = 0; row < height; ++row) {
    const unsigned char* from = source + static_cast<std::size_t>(height - 1 - row) * stride;
    unsigned char* to = target + static_cast<std::size_t>(row) * stride;
    for (std::size_t i = 0; i < stride; i += kChannels) {
      to[i] = from[i + 2];
      to[i + 1] = from[i + 1];
      to[i + 2] = from[i];
    }
  }
}

void AppendBytes(void* context, void* data, int size) {
  static_cast<std::string*>(context)->append(static_cast<const char*>(data), static_cast<std::size_t>(size));
}

}  // namespace

bool DecodePng(std::string_view bytes, Picture& picture, std::string& fault) {
  if (!bytes.starts_with(kPngMark) || bytes.size() > INT_MAX) {
    fault = "it is not a PNG file";
    return false;
  }
  const std::unique_ptr<unsigned char, StbDeleter> pixels(
      stbi_load_from_memory(reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<int>(bytes.size()),
                            &picture.width, &picture.height, nullptr, kChannels));
  if (!pixels) {
    fault = std::string("the PNG is broken or too large (") + stbi_failure_reason() + ")";
    return false;
  }
  picture.pixels.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height) * kChannels);
  CopyReversed(picture.pixels.data(), pixels.get(), picture.width, picture.height);
  return true;
}

std::string EncodePng(int width, int height, const unsigned char* pixels) {
  std::vector<unsigned char> topDown(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kChannels);
  CopyReversed(topDown.data(), pixels, width, height);
  std::string file;
  if (!stbi_write_png_to_func(AppendBytes, &file, width, height, kChannels, topDown.data(), width * kChannels)) {
    file.clear();
  }
  return file;
}

}  // namespace devhost
