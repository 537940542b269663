// The fog's settings; its colour is the base class.
#pragma once

#include "classes/color.h"

class OGLFog : public OGLColor {
 public:
  // Linear, density 0.01.
  OGLFog(float red, float green, float blue, float alpha);
  ~OGLFog() override = default;

  void SetDensity(float newDensity) { density = newDensity; }
  float GetDensity() const { return density; }
  void SetLinearMode();
  // Required: the squared exponential, GL_EXP2.
  void SetExpMode();

  // Switches the fog on and sends its settings; start and end are distances from the eye. Needs a current context.
  void Apply(float start, float end) const;

 private:
  float density = 0.01F;
  unsigned mode;
};
