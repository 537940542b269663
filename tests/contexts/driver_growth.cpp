// Prints by how many bytes a process grows while the driver alone creates contexts on a memory bitmap, makes them
// current and deletes them, after 200 rounds of warming up. As in scripts, the quarter of the rounds that lost least
// stands for all (tests/scripts/parts/growth.talq). usage: driver_growth ROUNDS
#include <windows.h>
// psapi.h belongs behind windows.h.
#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "devhost/data/frame_bitmap.h"

namespace {

constexpr int kWarmUp = 200;

long long PrivateBytes() {
  PROCESS_MEMORY_COUNTERS counters{};
  K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return static_cast<long long>(counters.PagefileUsage);
}

HDC NewBitmapDevice() {
  HDC device = CreateCompatibleDC(nullptr);
  void* bits = nullptr;
  SelectObject(device, CreateFrameBitmap(device, 16, 16, bits));
  return device;
}

void OpenAndClose(HDC device, int rounds) {
  PIXELFORMATDESCRIPTOR descriptor{};
  descriptor.nSize = sizeof descriptor;
  descriptor.nVersion = 1;
  descriptor.dwFlags = PFD_DRAW_TO_BITMAP | PFD_SUPPORT_GDI | PFD_SUPPORT_OPENGL;
  descriptor.cColorBits = 24;
  for (int i = 0; i < rounds; ++i) {
    SetPixelFormat(device, ChoosePixelFormat(device, &descriptor), &descriptor);
    HGLRC context = wglCreateContext(device);
    wglMakeCurrent(device, context);
    wglMakeCurrent(nullptr, nullptr);
    wglDeleteContext(context);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  HDC device = NewBitmapDevice();
  OpenAndClose(device, kWarmUp);
  long long least = std::numeric_limits<long long>::max();
  for (int part = 0; part < 4; ++part) {
    const long long before = PrivateBytes();
    OpenAndClose(device, std::atoi(argv[1]) / 4);
    least = std::min(least, PrivateBytes() - before);
  }
  std::printf("%lld\n", 4 * least);
  return 0;
}
