// The memory bitmaps that frames are drawn on, on Windows.
#pragma once

#include <windows.h>

// A bitmap of 24 or 32 bits a pixel with its lowest row first, as OpenGL counts rows, for a device compatible with the
// screen. `bits` is its memory. Null when there is none.
inline HBITMAP CreateFrameBitmap(HDC device, int width, int height, void*& bits, WORD bitsPerPixel = 32) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = bitsPerPixel;
  info.bmiHeader.biCompression = BI_RGB;
  return CreateDIBSection(device, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
}
