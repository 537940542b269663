// One colour of a material: which material parameter of which face it sets.
#pragma once

#include "classes/color.h"

class OGLMaterialColor : public OGLColor {
 public:
  // newParameter: GL_AMBIENT, GL_DIFFUSE, GL_SPECULAR or GL_EMISSION; newFace: GL_FRONT or GL_BACK.
  OGLMaterialColor(unsigned newParameter, float newRed, float newGreen, float newBlue, float newAlpha, unsigned newFace)
      : OGLColor(newRed, newGreen, newBlue, newAlpha), parameter(newParameter), face(newFace) {}
  OGLMaterialColor(unsigned newParameter, const OGLColor& color, unsigned newFace)
      : OGLColor(color), parameter(newParameter), face(newFace) {}
  OGLMaterialColor(const OGLMaterialColor& other) = default;
  OGLMaterialColor& operator=(const OGLMaterialColor& other) = default;
  ~OGLMaterialColor() override = default;

  // Replaces everything.
  void Set(unsigned newParameter, float newRed, float newGreen, float newBlue, float newAlpha, unsigned newFace) {
    SetColor(newRed, newGreen, newBlue, newAlpha);
    parameter = newParameter;
    face = newFace;
  }

  // glMaterialfv with the colour; needs a current context.
  void Apply() const;

  unsigned parameter;
  unsigned face;
};
