#include "render/topengl.h"

#include <cstddef>

#include "classes/gl.h"

struct RendererLayout {
  static_assert(sizeof(TOpenGL) == 2400);
  static_assert(offsetof(TOpenGL, doubleBuffer) == 24 && offsetof(TOpenGL, clearColor) == 40);
  static_assert(offsetof(TOpenGL, viewerEye) == 80 && offsetof(TOpenGL, viewerUp) == 112);
  static_assert(offsetof(TOpenGL, lights) == 128 && offsetof(TOpenGL, fog) == 176);
  static_assert(offsetof(TOpenGL, clipping) == 224 && offsetof(TOpenGL, viewport) == 248);
  static_assert(offsetof(TOpenGL, smoothShade) == 264 && offsetof(TOpenGL, blend) == 276);
  static_assert(offsetof(TOpenGL, renderContext) == 280 && offsetof(TOpenGL, previousContext) == 304);
  static_assert(offsetof(TOpenGL, fogEnabled) == 312 && offsetof(TOpenGL, clientRect) == 320);
  static_assert(offsetof(TOpenGL, selectBuffer) == 336 && offsetof(TOpenGL, nameDepth) == 2384);
  static_assert(offsetof(TOpenGL, useAccelerator) == 2388 && offsetof(TOpenGL, pixelFormatFlags) == 2392);
};

TOpenGL::TOpenGL() = default;

TOpenGL::~TOpenGL() {
  TakeBackSelectBuffer();
  if (!renderContext) return;
  Close();
  TakeBackSelectBuffer();
}
