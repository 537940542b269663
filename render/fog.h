// The fog's settings; its colour is the base class.
#pragma once

#include "classes/color.h"

// Setters store; OpenGL hears of them at the next Apply.
class OGLFog : public OGLColor {
 public:
  // Linear, density 0.01. OpenGL ignores the alpha.
  OGLFog(float newRed, float newGreen, float newBlue, float newAlpha);
  ~OGLFog() override = default;

  // Of the exponential mode. Nothing is checked; OpenGL rejects negative ones.
  void SetDensity(float newDensity) { density = newDensity; }
  float GetDensity() const { return density; }
  // What remains of a colour at the distance z from the eye: linear, (end - z) / (end - start) from 1 to 0.
  void SetLinearMode();
  // Required: the squared exponential, GL_EXP2: e to the power of -(density * z)^2, whatever start and end.
  void SetExpMode();

  // Switches the fog on and sends its settings; start and end are distances from the eye. Needs a current context.
  void Apply(float start, float end) const;

 private:
  float density = 0.01F;
  unsigned mode;
};
