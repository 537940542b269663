// The model-view matrix: the viewer's look-at times the model transform.
#include "classes/gl.h"
#include "render/topengl.h"

void TOpenGL::Translate(const OGLPoint& offset) const {
  if (!renderContext) return;
  glMatrixMode(GL_MODELVIEW);
  glTranslatef(offset.x, offset.y, offset.z);
}

void TOpenGL::Rotate(const OGLPoint& axis, float degrees) const {
  if (!renderContext) return;
  glMatrixMode(GL_MODELVIEW);
  glRotatef(degrees, axis.x, axis.y, axis.z);
}

void TOpenGL::Scale(float x, float y, float z) const {
  if (!renderContext) return;
  glMatrixMode(GL_MODELVIEW);
  glScalef(x, y, z);
}

void TOpenGL::PushModelMatrix() const {
  if (!renderContext) return;
  glMatrixMode(GL_MODELVIEW);
  glPushMatrix();
}

void TOpenGL::PopModelMatrix() const {
  if (!renderContext) return;
  glMatrixMode(GL_MODELVIEW);
  glPopMatrix();
}

void TOpenGL::LoadIdentityMatrix() const {
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
}

void TOpenGL::LoadModelMatrix(const Matrix16& matrix) const {
  ApplyViewer();
  glMultMatrixd(matrix.data());
}

void TOpenGL::MultiplyModelMatrix(const Matrix16& matrix) const {
  glMatrixMode(GL_MODELVIEW);
  glMultMatrixd(matrix.data());
}

void TOpenGL::ReadMatrices(Matrix16& full, Matrix16& look) const {
  // OpenGL answers nothing without a context.
  full.fill(0.0);
  look.fill(0.0);
  glMatrixMode(GL_MODELVIEW);
  glPushMatrix();
  glGetDoublev(GL_MODELVIEW_MATRIX, full.data());
  glLoadIdentity();
  LookAt();
  glGetDoublev(GL_MODELVIEW_MATRIX, look.data());
  glPopMatrix();
}
