// A memory bitmap with a device context to draw on it. Windows only.
#pragma once

#include <windows.h>

namespace devhost {

class MemoryFrame {
 public:
  // Closed when the system gives none, which GetLastError explains.
  MemoryFrame(int width, int height);
  MemoryFrame(const MemoryFrame&) = delete;
  MemoryFrame& operator=(const MemoryFrame&) = delete;
  ~MemoryFrame() { Close(); }

  void Close();
  // Null when it is closed.
  HDC DeviceContext() const { return device; }
  int Width() const { return width; }
  int Height() const { return height; }
  // The pixel, y counted from the lowest row: blue, green, red and an unused byte, one pixel behind the other, then row
  // behind row. Null outside, and when it is closed. What is drawn is there after GdiFlush.
  const unsigned char* Pixel(int x, int y) const;

 private:
  HDC device;
  int width;
  int height;
  unsigned char* bits = nullptr;
  HBITMAP bitmap;
  HGDIOBJ previousBitmap = nullptr;
};

}  // namespace devhost
