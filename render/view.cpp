// Viewport, viewer and projection.
#include <cmath>

#include "classes/gl.h"
#include "render/arithmetic.h"
#include "render/topengl.h"

void TOpenGL::SetViewPort(float left, float top, float right, float bottom) {
  viewport.Set(left, top, right, bottom);
  if (!renderContext) return;
  ApplyViewport();
  ApplyProjection();
}

// From the device's top-down coordinates to OpenGL's bottom-up ones.
void TOpenGL::ApplyViewport() const {
  const int x = WrappingSum(Truncate(viewport.left), clientRect.left);
  const int y = WrappingDifference(clientRect.bottom, Truncate(viewport.bottom));
  glViewport(x, y, Truncate(viewport.Width()), Truncate(viewport.Height()));
}

void TOpenGL::SetViewerPos(float eyeX, float eyeY, float eyeZ, float centerX, float centerY, float centerZ, float upX,
                           float upY, float upZ) {
  viewerEye.Set(eyeX, eyeY, eyeZ, 1.0F);
  viewerCenter.Set(centerX, centerY, centerZ, 1.0F);
  viewerUp.Set(upX, upY, upZ, 1.0F);
  viewerUp.Normalize();
  if (renderContext) ApplyViewer();
}

void TOpenGL::GetViewer(OGLPoint& eye, OGLPoint& center, OGLPoint& up) const {
  eye = viewerEye;
  center = viewerCenter;
  up = viewerUp;
}

void TOpenGL::ApplyViewer() const {
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  LookAt();
}

// Multiplies the current matrix by the viewer's look-at.
void TOpenGL::LookAt() const {
  gluLookAt(viewerEye.x, viewerEye.y, viewerEye.z, viewerCenter.x, viewerCenter.y, viewerCenter.z, viewerUp.x,
            viewerUp.y, viewerUp.z);
}

void TOpenGL::SetClipping(float left, float right, float bottom, float top, float zNear, float zFar) {
  clipping.Set(left, right, top, bottom, zNear, zFar);
  if (renderContext) ApplyProjection();
}

void TOpenGL::SetPerspective(float fovy, float aspect, float zNear, float zFar) {
  if (zNear <= 0.0F) zNear = 1.0F;
  // Required: this value of pi, in this order.
  const float t = tanf(fovy / 180.0F * 3.14159F / 2.0F);
  const float h = zNear * t;
  clipping.Set(-h * aspect, h * aspect, h, -h, zNear, zFar);
  if (renderContext) ApplyProjection();
}

void TOpenGL::ApplyProjection() const {
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  MultiplyFrustum();
  glMatrixMode(GL_MODELVIEW);
}

// Multiplies the current matrix by the viewing frustum.
void TOpenGL::MultiplyFrustum() const {
  glFrustum(clipping.left, clipping.right, clipping.bottom, clipping.top, clipping.zNear, clipping.zFar);
}
