#include "devhost/probe/probe_device_windows.h"

namespace devhost {

void ProbeDevice::OpenBitmap(WORD bits) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = kProbeSide;
  info.bmiHeader.biHeight = kProbeSide;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = bits;
  info.bmiHeader.biCompression = BI_RGB;
  void* memory = nullptr;
  device = CreateCompatibleDC(nullptr);
  bitmap = CreateDIBSection(device, &info, DIB_RGB_COLORS, &memory, nullptr, 0);
  previousBitmap = SelectObject(device, bitmap);
}

void ProbeDevice::OpenWindow() {
  WNDCLASSW description{};
  description.style = CS_OWNDC;
  description.lpfnWndProc = DefWindowProcW;
  description.hInstance = GetModuleHandleW(nullptr);
  description.lpszClassName = L"TalqProbe";
  RegisterClassW(&description);  // fails harmlessly when it is registered already
  window = CreateWindowW(description.lpszClassName, L"", WS_POPUP, 0, 0, kProbeSide, kProbeSide, nullptr, nullptr,
                         description.hInstance, nullptr);
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
