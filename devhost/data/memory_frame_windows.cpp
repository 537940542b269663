#include "devhost/data/memory_frame.h"

#include <cstddef>

#include "devhost/data/frame_bitmap.h"

namespace devhost {

MemoryFrame::MemoryFrame(int frameWidth, int frameHeight)
    : device(CreateCompatibleDC(nullptr)), width(frameWidth), height(frameHeight) {
  void* memory = nullptr;
  bitmap = CreateFrameBitmap(device, width, height, memory);
  if (!device || !bitmap) {
    const DWORD error = GetLastError();
    Close();
    SetLastError(error);
    return;
  }
  bits = static_cast<unsigned char*>(memory);
  previousBitmap = SelectObject(device, bitmap);
}

void MemoryFrame::Close() {
  if (previousBitmap) SelectObject(device, previousBitmap);
  if (bitmap) DeleteObject(bitmap);
  if (device) DeleteDC(device);
  device = nullptr;
  bits = nullptr;
  bitmap = nullptr;
  previousBitmap = nullptr;
}

const unsigned char* MemoryFrame::Pixel(int x, int y) const {
  if (!bits || x < 0 || y < 0 || x >= width || y >= height) return nullptr;
  return bits + (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) * 4;
}

}  // namespace devhost
