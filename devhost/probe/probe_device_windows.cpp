#include "devhost/probe/probe_device.h"

#include "devhost/data/frame_bitmap.h"

namespace devhost {

void ProbeDevice::OpenBitmap(WORD bits) {
  void* memory = nullptr;
  device = CreateCompatibleDC(nullptr);
  bitmap = CreateFrameBitmap(device, kProbeSide, kProbeSide, memory, bits);
  previousBitmap = SelectObject(device, bitmap);
}

void ProbeDevice::OpenWindow() {
  WNDCLASSW description{};
  description.style = CS_OWNDC;
  description.lpfnWndProc = DefWindowProcW;
  description.hInstance = GetModuleHandleW(nullptr);
  description.lpszClassName = L"TalqProbe";
  RegisterClassW(&description);  // fails harmlessly when it is registered already
  window = CreateWindowW(description.lpszClassName, L"", WS_POPUP | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, kProbeSide,
                         kProbeSide, nullptr, nullptr, description.hInstance, nullptr);
  if (window) device = GetDC(window);
}

ProbeDevice::~ProbeDevice() {
  if (window) {
    ReleaseDC(window, device);
    DestroyWindow(window);
    return;
  }
  if (previousBitmap) SelectObject(device, previousBitmap);
  if (bitmap) DeleteObject(bitmap);
  if (device) DeleteDC(device);
}

}  // namespace devhost
