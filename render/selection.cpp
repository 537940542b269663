// Picking: the name stack and OpenGL's selection mode.
#include "binding/errors.h"
#include "classes/gl.h"
#include "render/arithmetic.h"
#include "render/topengl.h"

void TOpenGL::InitNameStack() const { glInitNames(); }
void TOpenGL::PushName(int name) const { glPushName(static_cast<GLuint>(name)); }
void TOpenGL::PopName() const { glPopName(); }
void TOpenGL::LoadName(int name) const { glLoadName(static_cast<GLuint>(name)); }

void TOpenGL::BeginSelection(int x, int y, int width, int height) {
  hasSelected = true;
  glSelectBuffer(static_cast<GLsizei>(selectBuffer.size()), selectBuffer.data());
  glRenderMode(GL_SELECT);
  GLint current[4] = {};
  glGetIntegerv(GL_VIEWPORT, current);
  glMatrixMode(GL_PROJECTION);
  glPushMatrix();
  glLoadIdentity();
  // Required: x and y are the right and top edges of the pick rectangle, not its centre.
  const int centerX = WrappingDifference(x, width / 2);
  const int centerY = WrappingDifference(WrappingDifference(clientRect.bottom, y), height / 2);
  gluPickMatrix(centerX, centerY, width, height, current);
  MultiplyFrustum();
  glMatrixMode(GL_MODELVIEW);
  nameDepth = WrappingSum(nameDepth, 1);
}

std::optional<int> TOpenGL::EndSelection() {
  if (nameDepth == 0) {
    ModuleError(OGL_NO_SELECTION_MODE, nullptr);
    return std::nullopt;
  }
  nameDepth = WrappingDifference(nameDepth, 1);
  glMatrixMode(GL_PROJECTION);
  glPopMatrix();
  glMatrixMode(GL_MODELVIEW);
  glFlush();
  return glRenderMode(GL_RENDER);
}

// Before the renderer goes, or OpenGL would write hits into memory that is no longer there. The counter does not tell:
// a selection that was ended while its context was not current goes on there. Another renderer's selection goes on too.
void TOpenGL::TakeBackSelectBuffer() const {
  if (!hasSelected) return;
  void* buffer = nullptr;
  glGetPointerv(GL_SELECTION_BUFFER_POINTER, &buffer);
  if (buffer == selectBuffer.data()) glRenderMode(GL_RENDER);
}
