// MDC: a device context on a memory bitmap or on a window of its own. Only Windows has them. What a window's user does
// is asked for in mdc_input_windows.cpp.
#include "devhost/classes/mdc.h"
#include "devhost/runtime/text.h"
#include "devhost/runtime/wine.h"

namespace devhost {
namespace {

constexpr int kMaxSide = 16384;

HDC ContextOf(const Device& device) {
  return device.window ? device.window->DeviceContext() : device.bitmap->DeviceContext();
}

int WidthOf(const Device& device) { return device.window ? device.window->Moment().width : device.bitmap->Width(); }

int HeightOf(const Device& device) { return device.window ? device.window->Moment().height : device.bitmap->Height(); }

bool CheckSize(int width, int height) {
  if (width > 0 && height > 0 && width <= kMaxSide && height <= kMaxSide) return true;
  Raise(kErrorConversion, "An MDC of " + Decimal(width) + " x " + Decimal(height) + " pixels cannot be made.",
        "both sides go from 1 to " + Decimal(kMaxSide) + " pixels");
  return false;
}

void RaiseNothingGiven(const char* what, DWORD systemError, const char* hint = "") {
  const std::string number = Decimal(static_cast<long long>(systemError));
  Raise(kErrorConversion, std::string("The system gave no ") + what + " (system error " + number + ").", hint);
}

void MakeBitmap(VarRegister&, VarRegister* args, int argc, Processor* processor) {
  if (!CheckSize(args[0], args[1])) return;
  auto device = std::make_unique<Device>();
  device->bitmap = std::make_unique<MemoryFrame>(args[0], args[1]);
  if (device->bitmap->DeviceContext()) {
    JoinNative(args, argc, processor, std::move(device));
  } else {
    RaiseNothingGiven("device context", GetLastError());
  }
}

void OpenWindow(VarRegister* args, int argc, Processor* processor, bool isDoubleBuffered) {
  if (!CheckSize(args[0], args[1])) return;
  auto device = std::make_unique<Device>();
  device->window = Window::Open(args[0], args[1], TextIn(args[2].GetVar()), isDoubleBuffered);
  if (device->window) {
    JoinNative(args, argc, processor, std::move(device));
  } else {
    const DWORD systemError = GetLastError();
    // Wine opens windows on a display alone, which ./run gives a script when it is asked for.
    RaiseNothingGiven("window", systemError, RunsInWine() ? "scripts with windows run with ./run --window" : "");
  }
}

void MakeWindow(VarRegister&, VarRegister* args, int argc, Processor* processor) {
  OpenWindow(args, argc, processor, false);
}

void MakeBufferedWindow(VarRegister&, VarRegister* args, int argc, Processor* processor) {
  OpenWindow(args, argc, processor, args[3].IsTrue() != 0);
}

void GetId(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (const Device* device = DeviceOf(args, argc)) result.GetVar() = reinterpret_cast<long long>(ContextOf(*device));
}

void GetClientRectangle(VarRegister& result, VarRegister* args, int argc, Processor*) {
  const Device* device = DeviceOf(args, argc);
  if (!device) return;
  Variable edges[4] = {Variable(0), Variable(0), Variable(WidthOf(*device)), Variable(HeightOf(*device))};
  Construct(result, "RECT", edges);
}

void GetWidth(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (const Device* device = DeviceOf(args, argc)) result = WidthOf(*device);
}

void GetHeight(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (const Device* device = DeviceOf(args, argc)) result = HeightOf(*device);
}

void Close(VarRegister&, VarRegister* args, int argc, Processor*) {
  const Device* device = DeviceOf(args, argc);
  if (!device) return;
  if (device->window) {
    device->window->Close();
  } else {
    device->bitmap->Close();
  }
}

void IsOpen(VarRegister& result, VarRegister* args, int argc, Processor*) {
  const Device* device = DeviceOf(args, argc);
  if (!device) return;
  result.SetBool(device->window ? device->window->IsOpen() : device->bitmap->DeviceContext() != nullptr);
}

// The open memory bitmap of the call, with all drawing in its memory; null with an error raised when it has none.
const MemoryFrame* OpenBitmap(VarRegister* args, int argc) {
  const Device* device = DeviceOf(args, argc);
  if (!device) return nullptr;
  if (device->bitmap && device->bitmap->DeviceContext()) {
    GdiFlush();
    return device->bitmap.get();
  }
  Raise(kErrorConversion, device->window
                              ? "The MDC is a window: read the frame with gl->GetDIBits(x, y, width, height)."
                              : "The MDC's memory bitmap is closed.");
  return nullptr;
}

// The bitmap's bytes, packed as in an MBmp: blue, green, red, the lowest row first.
void GetBits(VarRegister& result, VarRegister* args, int argc, Processor*) {
  const MemoryFrame* bitmap = OpenBitmap(args, argc);
  if (!bitmap) return;
  const int pixels = bitmap->Width() * bitmap->Height();
  Variable& packed = result;
  packed.Init(TVAR_BYTES, pixels * 3);
  unsigned char* to = packed;
  const unsigned char* from = bitmap->Pixel(0, 0);
  for (int i = 0; to && i < pixels; ++i, to += 3, from += 4) {
    to[0] = from[0];
    to[1] = from[1];
    to[2] = from[2];
  }
}

// Packed as in ColorRef; y counts from the lowest row.
void GetPixelColor(VarRegister& result, VarRegister* args, int argc, Processor*) {
  const MemoryFrame* bitmap = OpenBitmap(args, argc);
  if (!bitmap) return;
  if (const unsigned char* pixel = bitmap->Pixel(args[0], args[1])) {
    result = pixel[0] << 16 | pixel[1] << 8 | pixel[2];
  } else {
    Raise(kErrorConversion, "The pixel lies outside the memory bitmap of the MDC.");
  }
}

}  // namespace

const MethodEntry kDeviceMethods[] = {
    {MakeBitmap, "MDC::MDC(int, int)"},
    {MakeWindow, "MDC::MDC(int, int, refer object String)"},
    {MakeBufferedWindow, "MDC::MDC(int, int, refer object String, boolean)"},
    {DestroyNative<Device>, "MDC::~MDC(void)"},
    {GetId, "MDC::GetID(void)"},
    {GetClientRectangle, "MDC::GetClientRect(void)"},
    {GetWidth, "MDC::GetWidth(void)"},
    {GetHeight, "MDC::GetHeight(void)"},
    {Close, "MDC::Close(void)"},
    {IsOpen, "MDC::IsOpen(void)"},
    {GetBits, "MDC::GetDIBits(void)"},
    {GetPixelColor, "MDC::GetPixel(int, int)"},
    {nullptr, nullptr},
};

}  // namespace devhost
