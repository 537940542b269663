// Light, fog and the drawing state.
#include "classes/gl.h"
#include "classes/material.h"
#include "render/topengl.h"

void TOpenGL::SetLightPosition(float x, float y, float z) {
  lights.SetPosition(x, y, z, 1.0F);
  lights.Apply();
}

void TOpenGL::EnableLighting() const {
  glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, 1);
  lights.Enable();
}

void TOpenGL::EnableLight(Flag on) {
  lightEnabled = on;
  if (!renderContext) return;
  if (on) {
    EnableLighting();
  } else {
    glDisable(GL_LIGHTING);
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
  }
}

void TOpenGL::EnableFog(Flag on) {
  fogEnabled = on;
  if (on) {
    SetFogRange(clipping.zNear, clipping.zFar);
  } else if (renderContext) {
    glDisable(GL_FOG);
  }
}

void TOpenGL::SetFogRange(float start, float end) const {
  if (renderContext) fog.Apply(start, end);
}

void TOpenGL::EnableBlend(Flag on) {
  blend = on;
  if (renderContext) ApplyBlend();
}

void TOpenGL::ApplyBlend() const {
  if (blend) {
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  } else {
    glDisable(GL_BLEND);
  }
}

void TOpenGL::EnableSmooth(Flag on) {
  smoothShade = on;
  if (renderContext) ApplyShading();
}

void TOpenGL::ApplyShading() const { glShadeModel(smoothShade ? GL_SMOOTH : GL_FLAT); }

void TOpenGL::ApplyPolygonMode() const { glPolygonMode(GL_FRONT_AND_BACK, wired ? GL_LINE : GL_FILL); }

void TOpenGL::SetColor(const OGLColor& color) const {
  if (!renderContext) return;
  if (lightEnabled) {
    // The colour drives the lit material too.
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
  }
  glColor4f(color.red, color.green, color.blue, color.alpha);
}

void TOpenGL::SetMaterial(const OGLMaterial& material) const {
  if (!renderContext) return;
  if (lightEnabled) glDisable(GL_COLOR_MATERIAL);
  material.Apply();
}

void TOpenGL::SetPointSize(float pixels) const {
  if (renderContext) glPointSize(pixels);
}

void TOpenGL::SetLineWidth(float pixels) const {
  if (renderContext) glLineWidth(pixels);
}
