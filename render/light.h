// Light 0: its three colours, its place and its switches.
#pragma once

#include <memory>

#include "binding/flag.h"
#include "classes/color.h"
#include "render/point.h"

// One colour of the light: which light parameter it is sent as.
class OGLLightColor : public OGLColor {
 public:
  // newParameter: GL_AMBIENT, GL_DIFFUSE or GL_SPECULAR.
  OGLLightColor(unsigned newParameter, float newRed, float newGreen, float newBlue, float newAlpha)
      : OGLColor(newRed, newGreen, newBlue, newAlpha), parameter(newParameter) {}
  ~OGLLightColor() override = default;

  // Replaces everything.
  void Set(unsigned newParameter, float newRed, float newGreen, float newBlue, float newAlpha) {
    SetColor(newRed, newGreen, newBlue, newAlpha);
    parameter = newParameter;
  }

  // glLightfv with the colour; needs a current context.
  void Apply() const;

  unsigned parameter;
};

// The light's settings. Setters store; OpenGL hears of them at the next Apply, of two-sidedness at the next Enable. A
// colour that could not be allocated is absent: it is not set and not applied, and it reads as opaque white.
class OGLLightSet {
 public:
  // Ambient 0.2 x, diffuse 0.8 x, specular 1 x the colour, all with its alpha; at (100, 100, 2000), no spot, one side.
  OGLLightSet(float red, float green, float blue, float alpha);

  // The colours as given, without the constructor's shares.
  void SetAmbient(float red, float green, float blue, float alpha);
  void SetDiffuse(float red, float green, float blue, float alpha);
  void SetSpecular(float red, float green, float blue, float alpha);
  void SetAmbient(const OGLColor& color);
  void SetDiffuse(const OGLColor& color);
  void SetSpecular(const OGLColor& color);
  OGLColor GetAmbient() const;
  OGLColor GetDiffuse() const;
  OGLColor GetSpecular() const;

  // In eye coordinates: the light moves with the viewer. w is 1 for a place; OpenGL takes 0 as a direction.
  void SetPosition(float x, float y, float z, float w) { position.Set(x, y, z, w); }
  OGLPoint GetPosition() const { return position; }
  // Half the spot cone's angle in degrees, around the direction that Apply names; 180 is no spot. Nothing is checked;
  // OpenGL takes 0 to 90 and 180.
  void SetSpotCutoff(float degrees) { spotCutoff = degrees; }
  float GetSpotCutoff() const { return spotCutoff; }
  // Whether back faces are lit too, with the back material.
  void SetTwoSide(Flag on) { twoSide = on; }
  Flag GetTwoSide() const { return twoSide; }

  // Switches lighting with light 0 on, colour material off, two-sided lighting as set. Needs a current context.
  void Enable() const;
  // Sends the colours, the position, the cut-off and the direction, which always leads from the light to the eye
  // space's origin (a light at the origin has no direction; the result of the division is sent). Needs a current
  // context; leaves the matrix mode at model-view.
  void Apply() const;

 private:
  friend struct LightSetLayout;

  std::unique_ptr<OGLLightColor> ambient;
  std::unique_ptr<OGLLightColor> diffuse;
  std::unique_ptr<OGLLightColor> specular;
  OGLPoint position{100.0F, 100.0F, 2000.0F, 1.0F};
  float spotCutoff = 180.0F;
  Flag twoSide = kOff;
};
