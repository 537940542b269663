// An RGBA colour that can be joined to a script object.
#pragma once

#include "binding/native.h"
#include "host/talq.h"

// Four floats, nominally 0 to 1, stored and passed to OpenGL as given: nothing clamps them. They lie one behind the
// other, so that Components() serves OpenGL as a four-float vector.
class OGLColor : public TalqAss {
 public:
  // Opaque white.
  OGLColor() = default;
  // These four components.
  OGLColor(float newRed, float newGreen, float newBlue, float newAlpha)
      : red(newRed), green(newGreen), blue(newBlue), alpha(newAlpha) {}
  // Copies the four components; the association with a script object is never copied.
  OGLColor(const OGLColor& other)
      : TalqAss(), red(other.red), green(other.green), blue(other.blue), alpha(other.alpha) {}
  OGLColor& operator=(const OGLColor& other) {
    SetColor(other.red, other.green, other.blue, other.alpha);
    return *this;
  }
  ~OGLColor() override = default;

  void SetColor(float newRed, float newGreen, float newBlue, float newAlpha) {
    red = newRed;
    green = newGreen;
    blue = newBlue;
    alpha = newAlpha;
  }

  // Scaling darkens or brightens: alpha stays.
  OGLColor operator*(float factor) const { return {red * factor, green * factor, blue * factor, alpha}; }
  OGLColor& operator*=(float factor) {
    red *= factor;
    green *= factor;
    blue *= factor;
    return *this;
  }

  // The components, as they were given.
  float GetRed() const { return red; }
  float GetGreen() const { return green; }
  float GetBlue() const { return blue; }
  float GetAlpha() const { return alpha; }
  // Red, green, blue, alpha.
  const float* Components() const { return &red; }

  float red = 1.0F;
  float green = 1.0F;
  float blue = 1.0F;
  float alpha = 1.0F;
};

template <>
struct ScriptClass<OGLColor> {
  // Required: "OglObject" is kept behind the name and used by nothing.
  static constexpr char kName[] = "OglColor\0OglObject";
};
