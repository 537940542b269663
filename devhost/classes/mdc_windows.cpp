// MDC: a device context on a memory bitmap or on a window of its own. Only Windows has them.
#include <windows.h>

#include <memory>

#include "devhost/classes/tables.h"
#include "devhost/data/frame_bitmap.h"
#include "devhost/runtime/text.h"

namespace devhost {
namespace {

constexpr int kMaxSide = 16384;
constexpr const char* kWindowClass = "TalqWindow";

// Open while it has a device context.
class Device : public TalqAss {
 public:
  ~Device() override { Close(); }
  bool OpenBitmap(int newWidth, int newHeight);
  bool OpenWindow(int newWidth, int newHeight, const char* title);
  void Close();
  // The bitmap's pixel, y counted from the lowest row: blue, green, red and an unused byte; null outside the bitmap.
  const unsigned char* Pixel(int x, int y) const;

  HDC dc = nullptr;
  int width = 0;
  int height = 0;
  bool closeAsked = false;  // by the window's user

 private:
  HWND window = nullptr;
  HBITMAP bitmap = nullptr;
  HGDIOBJ previousBitmap = nullptr;
  unsigned char* bits = nullptr;
};

LRESULT CALLBACK HandleMessage(HWND window, UINT message, WPARAM wide, LPARAM param) {
  if (message == WM_CLOSE) {
    // The script closes the window; a renderer may still be bound to its device context.
    if (auto* device = reinterpret_cast<Device*>(GetWindowLongPtrA(window, GWLP_USERDATA))) device->closeAsked = true;
    return 0;
  }
  return DefWindowProcA(window, message, wide, param);
}

void RegisterWindowClass() {
  WNDCLASSA description{};
  description.style = CS_OWNDC;
  description.lpfnWndProc = HandleMessage;
  description.hInstance = GetModuleHandleA(nullptr);
  description.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  description.lpszClassName = kWindowClass;
  RegisterClassA(&description);  // fails harmlessly when it is registered already
}

bool Device::OpenBitmap(int newWidth, int newHeight) {
  void* memory = nullptr;
  dc = CreateCompatibleDC(nullptr);
  bitmap = CreateFrameBitmap(dc, newWidth, newHeight, memory);
  if (!dc || !bitmap) {
    Close();
    return false;
  }
  bits = static_cast<unsigned char*>(memory);
  previousBitmap = SelectObject(dc, bitmap);
  width = newWidth;
  height = newHeight;
  return true;
}

bool Device::OpenWindow(int newWidth, int newHeight, const char* title) {
  RegisterWindowClass();
  constexpr DWORD kStyle = WS_OVERLAPPEDWINDOW & ~static_cast<DWORD>(WS_THICKFRAME | WS_MAXIMIZEBOX);
  RECT frame{0, 0, newWidth, newHeight};
  AdjustWindowRect(&frame, kStyle, FALSE);
  window = CreateWindowA(kWindowClass, title, kStyle, CW_USEDEFAULT, CW_USEDEFAULT, frame.right - frame.left,
                         frame.bottom - frame.top, nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
  if (!window) return false;
  SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  dc = GetDC(window);
  ShowWindow(window, SW_SHOWNORMAL);
  RECT client{};
  GetClientRect(window, &client);
  width = client.right;
  height = client.bottom;
  return true;
}

void Device::Close() {
  if (previousBitmap) SelectObject(dc, previousBitmap);
  if (bitmap) DeleteObject(bitmap);
  if (window) {
    ReleaseDC(window, dc);
    DestroyWindow(window);
  } else if (dc) {
    DeleteDC(dc);
  }
  dc = nullptr;
  window = nullptr;
  bitmap = nullptr;
  previousBitmap = nullptr;
  bits = nullptr;
}

const unsigned char* Device::Pixel(int x, int y) const {
  if (!bits || x < 0 || y < 0 || x >= width || y >= height) return nullptr;
  return bits + (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) * 4;
}

Device* This(VarRegister* args, int argc) { return NativeSelf<Device>(args, argc, "MDC"); }

// A new device joined to the script object, if it is open.
void JoinOpened(VarRegister* args, int argc, Processor* processor, std::unique_ptr<Device> device, bool opened) {
  if (!opened) {
    Raise(kErrorConversion,
          "The system gave no device context (system error " + Decimal(static_cast<long long>(GetLastError())) + ").");
    return;
  }
  device.release()->Join(args[argc - 1], processor);
}

bool CheckSize(int width, int height) {
  if (width > 0 && height > 0 && width <= kMaxSide && height <= kMaxSide) return true;
  Raise(kErrorConversion, "An MDC of " + Decimal(width) + " x " + Decimal(height) + " pixels cannot be made.");
  return false;
}

void MakeBitmap(VarRegister&, VarRegister* args, int argc, Processor* processor) {
  if (!CheckSize(args[0], args[1])) return;
  auto device = std::make_unique<Device>();
  const bool opened = device->OpenBitmap(args[0], args[1]);
  JoinOpened(args, argc, processor, std::move(device), opened);
}

void MakeWindow(VarRegister&, VarRegister* args, int argc, Processor* processor) {
  if (!CheckSize(args[0], args[1])) return;
  auto device = std::make_unique<Device>();
  const std::string title(TextIn(args[2].GetVar()));
  const bool opened = device->OpenWindow(args[0], args[1], title.c_str());
  JoinOpened(args, argc, processor, std::move(device), opened);
}

void GetId(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (const Device* device = This(args, argc)) result.GetVar() = reinterpret_cast<long long>(device->dc);
}

void GetClientRectangle(VarRegister& result, VarRegister* args, int argc, Processor*) {
  const Device* device = This(args, argc);
  if (!device) return;
  Variable edges[4] = {Variable(0), Variable(0), Variable(device->width), Variable(device->height)};
  Construct(result, "RECT", edges);
}

void GetWidth(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (const Device* device = This(args, argc)) result = device->width;
}

void GetHeight(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (const Device* device = This(args, argc)) result = device->height;
}

void Close(VarRegister&, VarRegister* args, int argc, Processor*) {
  if (Device* device = This(args, argc)) device->Close();
}

void IsOpen(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (const Device* device = This(args, argc)) result.SetBool(device->dc && !device->closeAsked);
}

// Lets the windows of the program answer their user.
void Pump(VarRegister&, VarRegister*, int, Processor*) {
  for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

// The bitmap's bytes, packed as in an MBmp: blue, green, red, the lowest row first.
void GetBits(VarRegister& result, VarRegister* args, int argc, Processor*) {
  const Device* device = This(args, argc);
  if (!device) return;
  if (!device->Pixel(0, 0)) {
    Raise(kErrorConversion, "The MDC is not an open memory bitmap.");
    return;
  }
  GdiFlush();  // drawing that still waits belongs into the bits
  Variable& packed = result;
  packed.Init(TVAR_BYTES, device->width * device->height * 3);
  unsigned char* to = packed;
  for (int i = 0; to && i < device->width * device->height; ++i, to += 3) {
    const unsigned char* from = device->Pixel(0, 0) + static_cast<std::size_t>(i) * 4;
    to[0] = from[0];
    to[1] = from[1];
    to[2] = from[2];
  }
}

// Packed as in ColorRef; y counts from the lowest row.
void GetPixelColor(VarRegister& result, VarRegister* args, int argc, Processor*) {
  const Device* device = This(args, argc);
  if (!device) return;
  GdiFlush();
  const unsigned char* pixel = device->Pixel(args[0], args[1]);
  if (pixel) {
    result = pixel[0] << 16 | pixel[1] << 8 | pixel[2];
  } else {
    Raise(kErrorConversion, "The pixel lies outside the memory bitmap of the MDC.");
  }
}

}  // namespace

const MethodEntry kDeviceMethods[] = {
    {MakeBitmap, "MDC::MDC(int, int)"},
    {MakeWindow, "MDC::MDC(int, int, refer object String)"},
    {DestroyNative<Device>, "MDC::~MDC(void)"},
    {GetId, "MDC::GetID(void)"},
    {GetClientRectangle, "MDC::GetClientRect(void)"},
    {GetWidth, "MDC::GetWidth(void)"},
    {GetHeight, "MDC::GetHeight(void)"},
    {Close, "MDC::Close(void)"},
    {IsOpen, "MDC::IsOpen(void)"},
    {Pump, "MDC::Pump(void)"},
    {GetBits, "MDC::GetDIBits(void)"},
    {GetPixelColor, "MDC::GetPixel(int, int)"},
    {nullptr, nullptr},
};

}  // namespace devhost
