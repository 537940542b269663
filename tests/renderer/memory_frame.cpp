#include "tests/renderer/memory_frame.h"

#include <windows.h>

#include <cstdio>

#include "devhost/data/frame_bitmap.h"

MemoryFrame::MemoryFrame(int width, int height)
    : width(width), height(height), device(CreateCompatibleDC(nullptr)), bitmap(nullptr) {
  void* bits = nullptr;
  bitmap = CreateFrameBitmap(device, width, height, bits);
  SelectObject(device, bitmap);
}

MemoryFrame::~MemoryFrame() {
  DeleteDC(device);
  DeleteObject(bitmap);
}

bool MemoryFrame::Open(TOpenGL& renderer) const {
  renderer.OpenBitmap(device, {0, 0, width, height});
  return renderer.IsOpen() && renderer.IsBind();
}

bool MemoryFrame::Save(const TOpenGL& renderer, const char* path) const {
  char header[40];
  const int headerBytes = std::snprintf(header, sizeof header, "P6 %d %d 255\n", width, height);
  std::vector<unsigned char> file(header, header + headerBytes);
  const std::size_t row = std::size_t{3} * static_cast<std::size_t>(width);
  std::vector<unsigned char> pixels(row * static_cast<std::size_t>(height));
  renderer.GetDIBits(0, 0, width, height, pixels.data());
  // The lowest row and blue come first in the frame, last in the file.
  for (std::size_t start = pixels.size(); start > 0; start -= row) {
    for (std::size_t i = start - row; i < start; i += 3) {
      file.insert(file.end(), {pixels[i + 2], pixels[i + 1], pixels[i]});
    }
  }
  return SaveBytes(path, file);
}

bool SaveBytes(const char* path, std::span<const unsigned char> bytes) {
  std::FILE* file = std::fopen(path, "wb");
  if (!file) return false;
  const bool isWritten = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  return std::fclose(file) == 0 && isWritten;
}
