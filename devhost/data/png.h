// PNG pictures in memory.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace devhost {

// Pixels of three bytes, blue, green, red; rows tightly packed, the lowest row first.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<unsigned char> pixels;
};

inline constexpr int kMaxPictureSide = 16384;

// Decodes a PNG; transparency is dropped. False with the fault in words when the bytes are no proper PNG, or the
// picture is wider or higher than kMaxPictureSide.
bool DecodePng(std::string_view bytes, Picture& picture, std::string& fault);

// The PNG file of width x height pixels laid out as in Picture; empty when it cannot be made.
std::string EncodePng(int width, int height, const unsigned char* pixels);

}  // namespace devhost
