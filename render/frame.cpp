// What happens to the frame as a whole: the state at its opening, clearing, flushing.
#include "classes/gl.h"
#include "render/topengl.h"

// What opening applies, in this order. Smoothing of lines and points is not part of it: only its hints are.
void TOpenGL::ApplyInitialState() const {
  ApplyViewport();
  ApplyViewer();
  ApplyShading();
  glFrontFace(GL_CCW);
  glDisable(GL_CULL_FACE);
  glDepthFunc(GL_LEQUAL);
  glEnable(GL_DEPTH_TEST);
  glEnable(GL_NORMALIZE);
  // Required: the hints ask for the fastest way.
  glHint(GL_POLYGON_SMOOTH_HINT, GL_FASTEST);
  glHint(GL_LINE_SMOOTH_HINT, GL_FASTEST);
  if (lightEnabled) {
    EnableLighting();
    lights.Apply();
  }
  if (fogEnabled) SetFogRange(clipping.zNear, clipping.zFar);
  ApplyProjection();
  glClearColor(clearColor.red, clearColor.green, clearColor.blue, clearColor.alpha);
  glClear(GL_DEPTH_BUFFER_BIT);
  ApplyBlend();
}

void TOpenGL::Clear() const {
  if (!CanDraw()) return;
  glClearColor(clearColor.red, clearColor.green, clearColor.blue, clearColor.alpha);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void TOpenGL::Flush() const {
  glFlush();
  glFinish();
}

void TOpenGL::SetClearColor(const OGLColor& color) {
  clearColor = color;
  if (renderContext) glClearColor(color.red, color.green, color.blue, color.alpha);
}

const char* TOpenGL::GetVersion(int text) const {
  constexpr GLenum kNames[kVersionTexts] = {GL_VENDOR, GL_RENDERER, GL_VERSION, GL_EXTENSIONS};
  const auto* answer = reinterpret_cast<const char*>(glGetString(kNames[text]));
  return answer ? answer : "";
}
