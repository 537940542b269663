#include "devhost/probe/probe_format.h"

#include <GL/gl.h>

#include "devhost/runtime/text.h"

namespace devhost {
namespace {

std::string Failed(const char* function) {
  const auto code = static_cast<long long>(GetLastError());
  return std::string("    ") + function + " failed (system error " + Decimal(code) + ")\n";
}

// Who draws: Windows itself, or the maker of the graphics card in part or alone.
const char* RendererKind(DWORD flags) {
  if (!(flags & PFD_GENERIC_FORMAT)) return "accelerated";
  return flags & PFD_GENERIC_ACCELERATED ? "generic, accelerated in part" : "generic, not accelerated";
}

std::string DescribeFormat(HDC device, int index) {
  PIXELFORMATDESCRIPTOR format{};
  if (!DescribePixelFormat(device, index, sizeof format, &format)) return Failed("DescribePixelFormat");
  const auto bits = [](const char* name, BYTE count) { return std::string(", ") + name + " " + Decimal(count); };
  return "    pixel format " + Decimal(index) + ": " + RendererKind(format.dwFlags) + "; bits: colour " +
         Decimal(format.cColorBits) + bits("alpha", format.cAlphaBits) + bits("depth", format.cDepthBits) +
         bits("stencil", format.cStencilBits) + "; " + (format.iPixelType == PFD_TYPE_RGBA ? "RGBA" : "colour index") +
         ", " + (format.dwFlags & PFD_DOUBLEBUFFER ? "double-buffered" : "single-buffered") + "\n";
}

// Needs a current context.
std::string DescribeContext() {
  const auto text = [](GLenum name) {
    const auto* found = reinterpret_cast<const char*>(glGetString(name));
    return std::string(found ? found : "unknown");
  };
  GLint viewport[2] = {};
  GLint texture = 0;
  glGetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport);
  glGetIntegerv(GL_MAX_TEXTURE_SIZE, &texture);
  return "    vendor:   " + text(GL_VENDOR) + "\n    renderer: " + text(GL_RENDERER) +
         "\n    version:  " + text(GL_VERSION) + "\n    at most:  viewport " + Decimal(viewport[0]) + " x " +
         Decimal(viewport[1]) + ", texture " + Decimal(texture) + "\n";
}

}  // namespace

std::string TryFormat(HDC device, const PIXELFORMATDESCRIPTOR& asked) {
  const int index = ChoosePixelFormat(device, &asked);
  if (!index) return Failed("ChoosePixelFormat");
  std::string report = DescribeFormat(device, index);
  if (!SetPixelFormat(device, index, &asked)) return report + Failed("SetPixelFormat");
  const HGLRC context = wglCreateContext(device);
  if (!context) return report + Failed("wglCreateContext");
  if (wglMakeCurrent(device, context)) {
    report += "    can be made current\n" + DescribeContext();
    wglMakeCurrent(nullptr, nullptr);
  } else {
    report += Failed("wglMakeCurrent");
  }
  wglDeleteContext(context);
  return report;
}

}  // namespace devhost
