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

}  // namespace

DWORD GetLastError() { return Get().answers.lastError; }

int ChoosePixelFormat(HDC device, const PIXELFORMATDESCRIPTOR* descriptor) {
  AttachDescriptor(Record("ChoosePixelFormat", device, PixelFormatFlags{descriptor->dwFlags}), descriptor);
  return Get().answers.pixelFormat;
}

BOOL SetPixelFormat(HDC device, int format, const PIXELFORMATDESCRIPTOR* descriptor) {
  AttachDescriptor(Record("SetPixelFormat", device, format, PixelFormatFlags{descriptor->dwFlags}), descriptor);
  return format != 0;
}

BOOL SwapBuffers(HDC device) {
  Record("SwapBuffers", device);
  return TRUE;
}

HGLRC wglCreateContext(HDC device) {
  Record("wglCreateContext", device);
  if (!Get().answers.createsContexts) return nullptr;
  auto* const context = Get().NewHandle<HGLRC>();
  Get().balance.contexts.insert(context);
  return context;
}

BOOL wglDeleteContext(HGLRC context) {
  Record("wglDeleteContext", context);
  if (Get().balance.contexts.erase(context) == 0) Get().balance.faults.emplace_back("deleted a context not its own");
  if (Get().currentContext == context) {
    Get().currentDevice = nullptr;
    Get().currentContext = nullptr;
  }
  Get().deletedContexts.insert(context);
  Get().selections.erase(context);
  return TRUE;
}

BOOL wglMakeCurrent(HDC device, HGLRC context) {
  Record("wglMakeCurrent", device, context);
  if (Get().deletedContexts.contains(context)) return FALSE;
  if (!Get().answers.makesCurrent && !Get().onceCurrent.contains({device, context})) return FALSE;
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
