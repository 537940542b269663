// Wine has one OpenGL driver for bitmaps and one for windows, and both make their contexts current in the same Mesa.
// The one for windows remembers which context it made current last, and does nothing when asked for that one again,
// also when the other driver has put its own in place meanwhile: calls would go on drawing on the bitmap. So a context
// of the one kind is taken away before one of the other kind comes, which both drivers notice.
#include "devhost/runtime/opengl_drivers.h"

#include <windows.h>

#include "devhost/runtime/imports.h"
#include "devhost/runtime/wine.h"

namespace devhost {
namespace {

using MakeCurrent = BOOL(WINAPI*)(HDC, HGLRC);
MakeCurrent makeCurrent = nullptr;  // the function itself

bool IsBitmap(HDC device) { return GetObjectType(device) == OBJ_MEMDC; }

// As wglMakeCurrent of Windows, after whose failure no context is current.
BOOL WINAPI MakeCurrentApart(HDC device, HGLRC context) {
  const HDC oldDevice = wglGetCurrentDC();
  if (!context || !oldDevice || IsBitmap(device) == IsBitmap(oldDevice)) return makeCurrent(device, context);
  makeCurrent(nullptr, nullptr);
  return makeCurrent(device, context);
}

}  // namespace

void KeepOpenGlDriversApart(HINSTANCE__* module) {
  if (!RunsInWine()) return;
  for (const Import& import : ImportsOf(module)) {
    if (import.function != "wglMakeCurrent") continue;
    makeCurrent = reinterpret_cast<MakeCurrent>(*import.address);
    Redirect(import, reinterpret_cast<void*>(MakeCurrentApart));
  }
}

}  // namespace devhost
