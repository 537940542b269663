// The rendering context's life. All of WGL and GDI lives here.
#include <cstdio>

#include "binding/errors.h"
#include "classes/gl.h"
#include "render/topengl.h"

namespace {

constexpr unsigned kWindowFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_SWAP_COPY;
constexpr unsigned kBitmapFlags = PFD_DRAW_TO_BITMAP | PFD_SUPPORT_GDI | PFD_SUPPORT_OPENGL | PFD_SWAP_COPY;

void ChooseAndSetPixelFormat(HDC device, unsigned flags) {
  PIXELFORMATDESCRIPTOR descriptor = {};
  descriptor.nSize = sizeof(descriptor);
  descriptor.nVersion = 1;
  descriptor.dwFlags = flags;
  // Required: the depths stand one field early, in the pixel type and the alpha accumulation bits.
  descriptor.iPixelType = 24;
  descriptor.cAccumAlphaBits = 16;
  // A failure shows when the context is created or made current.
  SetPixelFormat(device, ChoosePixelFormat(device, &descriptor), &descriptor);
}

void RaiseSystemError(unsigned code) {
  char text[40];
  std::snprintf(text, sizeof(text), " System error #%d", static_cast<int>(GetLastError()));
  ModuleError(code, text);
}

}  // namespace

void TOpenGL::Open(HDC__* device, const ClientRect& client) {
  OpenWith(kWindowFlags | (useAccelerator ? PFD_GENERIC_ACCELERATED : PFD_GENERIC_FORMAT) |
               (doubleBuffer ? PFD_DOUBLEBUFFER : 0U),
           device, client);
}

void TOpenGL::OpenBitmap(HDC__* device, const ClientRect& client) { OpenWith(kBitmapFlags, device, client); }

void TOpenGL::OpenWith(unsigned flags, HDC__* device, const ClientRect& client) {
  clientRect = client;
  if (renderContext) Close();
  RememberCurrent(device);
  pixelFormatFlags = flags;
  ChooseAndSetPixelFormat(device, flags);
  renderContext = wglCreateContext(device);
  if (renderContext && wglMakeCurrent(device, renderContext)) {
    ApplyInitialState();
  } else {
    RaiseSystemError(renderContext ? OGL_CANTBIND_DC : OGL_WRONG_DC);
  }
}

void TOpenGL::BindMDC(HDC__* device, const ClientRect& client) {
  clientRect = client;
  if (!renderContext) {
    ModuleError(OGL_NO_DC, nullptr);
    return;
  }
  RememberCurrent(device);
  ChooseAndSetPixelFormat(device, pixelFormatFlags);
  if (wglMakeCurrent(device, renderContext)) {
    ApplyViewport();
    ApplyProjection();
  } else {
    RaiseSystemError(OGL_CANTBIND_DC);
  }
}

void TOpenGL::RememberCurrent(HDC__* device) {
  previousDC = wglGetCurrentDC();
  previousContext = wglGetCurrentContext();
  deviceContext = device;
}

void TOpenGL::FreeMDC() {
  if (!renderContext) return;
  wglMakeCurrent(previousDC, previousContext);
  previousDC = nullptr;
  deviceContext = nullptr;
  previousContext = nullptr;
}

void TOpenGL::Close() {
  if (renderContext) {
    wglMakeCurrent(previousDC, previousContext);
    wglDeleteContext(renderContext);
  }
  deviceContext = nullptr;
  previousDC = nullptr;
  renderContext = nullptr;
  previousContext = nullptr;
}

void TOpenGL::SwapBuffers() const {
  if (deviceContext && doubleBuffer) ::SwapBuffers(deviceContext);
}
