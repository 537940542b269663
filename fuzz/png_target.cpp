// Any bytes as a PNG: they are refused with a reason, or give as many pixels as the picture has.
#include <cstdint>
#include <cstdlib>

#include "devhost/data/png.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  devhost::Picture picture;
  std::string fault;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (!devhost::DecodePng(bytes, picture, fault)) {
    if (fault.empty()) std::abort();
    return 0;
  }
  const auto pixels = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
  if (picture.pixels.size() != 3 * pixels) std::abort();
  return 0;
}
