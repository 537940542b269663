// The devices on which a pixel format is tried. Windows only.
#pragma once

#include <windows.h>

namespace devhost {

constexpr int kProbeSide = 64;  // pixels

// A memory bitmap or a window, for as long as the object lives. Device() is null when the system gives none.
class ProbeDevice {
 public:
  ProbeDevice() = default;
  ProbeDevice(const ProbeDevice&) = delete;
  ProbeDevice& operator=(const ProbeDevice&) = delete;
  ~ProbeDevice();

  // With 24 or 32 bits a pixel.
  void OpenBitmap(WORD bits);
  // Hidden, and of a class whose windows keep their device contexts.
  void OpenWindow();
  HDC Device() const { return device; }

 private:
  HDC device = nullptr;
  HBITMAP bitmap = nullptr;
  HGDIOBJ previousBitmap = nullptr;
  HWND window = nullptr;
};

}  // namespace devhost
