// WGL and GDI.
#include <cstring>

#include "tests/recorder/recorder.h"

using gl_trace::PixelFormatFlags;
using recorder::Get;
using recorder::Record;

namespace {

void AttachDescriptor(recorder::Call& call, const PIXELFORMATDESCRIPTOR* descriptor) {
  call.bytes.resize(sizeof(*descriptor));
  std::memcpy(call.bytes.data(), descriptor, sizeof(*descriptor));
}

// 0: the device has none yet.
int PixelFormatOf(HDC device) {
  const auto found = Get().pixelFormats.find(device);
  return found == Get().pixelFormats.end() ? 0 : found->second;
}

bool CanBecomeCurrent(HDC device, HGLRC context) {
  const auto found = Get().contexts.find(context);
  if (found == Get().contexts.end() || found->second.pixelFormat != PixelFormatOf(device)) return false;
  return Get().answers.makesCurrent || Get().onceCurrent.contains({device, context});
}

void MakeNoneCurrent() {
  Get().currentDevice = nullptr;
  Get().currentContext = nullptr;
}

}  // namespace

DWORD GetLastError() { return Get().answers.lastError; }

int ChoosePixelFormat(HDC device, const PIXELFORMATDESCRIPTOR* descriptor) {
  AttachDescriptor(Record("ChoosePixelFormat", device, PixelFormatFlags{descriptor->dwFlags}), descriptor);
  return Get().answers.pixelFormat;
}

BOOL SetPixelFormat(HDC device, int format, const PIXELFORMATDESCRIPTOR* descriptor) {
  AttachDescriptor(Record("SetPixelFormat", device, format, PixelFormatFlags{descriptor->dwFlags}), descriptor);
  const int former = PixelFormatOf(device);
  const bool canChange = former == 0 || Get().answers.bitmaps.contains(device);
  if (format == 0 || (format != former && !canChange)) return FALSE;
  Get().pixelFormats[device] = format;
  return TRUE;
}

BOOL SwapBuffers(HDC device) {
  Record("SwapBuffers", device);
  return PixelFormatOf(device) != 0;
}

HGLRC wglCreateContext(HDC device) {
  Record("wglCreateContext", device);
  const int format = PixelFormatOf(device);
  if (format == 0 || !Get().answers.createsContexts) return nullptr;
  auto* const context = Get().NewHandle<HGLRC>();
  Get().contexts[context].pixelFormat = format;
  Get().balance.contexts.insert(context);
  return context;
}

BOOL wglDeleteContext(HGLRC context) {
  Record("wglDeleteContext", context);
  if (!Get().answers.deletesContexts) return FALSE;
  if (Get().contexts.erase(context) == 0) {
    Get().balance.faults.emplace_back("deleted a context not its own");
    return FALSE;
  }
  Get().balance.contexts.erase(context);
  if (Get().currentContext == context) MakeNoneCurrent();
  return TRUE;
}

BOOL wglMakeCurrent(HDC device, HGLRC context) {
  Record("wglMakeCurrent", device, context);
  MakeNoneCurrent();
  if (!context) return TRUE;
  if (!CanBecomeCurrent(device, context)) return FALSE;
  Get().onceCurrent.insert({device, context});
  Get().currentDevice = device;
  Get().currentContext = context;
  return TRUE;
}

HDC wglGetCurrentDC() {
  Record("wglGetCurrentDC");
  return Get().currentDevice;
}

HGLRC wglGetCurrentContext() {
  Record("wglGetCurrentContext");
  return Get().currentContext;
}
