// A lighting material: four colours and a shininess for each of the two faces.
#pragma once

#include <memory>

#include "binding/flag.h"
#include "classes/material_color.h"

// Nothing reaches OpenGL before Apply, so a material can be made and changed without a renderer. A component that could
// not be allocated is absent: it is not set, not copied and not applied.
class OGLMaterial : public TalqAss {
 public:
  // Both faces: ambient 0.4 x and diffuse 0.9 x the colour, white specular, black emission, all with its alpha;
  // shininess 60 in front and 120 at the back.
  OGLMaterial(float red, float green, float blue, float alpha);
  // Both faces get these four colours; shininess as above.
  OGLMaterial(const OGLColor& ambient, const OGLColor& diffuse, const OGLColor& specular, const OGLColor& emission);
  // Copies the components and both shininess values; the association with a script object is never copied.
  OGLMaterial(const OGLMaterial& other);
  OGLMaterial& operator=(const OGLMaterial& other);
  // The components go in the order in which they are stored.
  ~OGLMaterial() override;

  // Diffuse 0.9 x, ambient 0.4 x, specular 1 x and emission 0 x the colour, on one face. Required: unlike the
  // constructor's, the specular colour is the given one.
  void SetColor(float red, float green, float blue, float alpha, Flag front);
  // One colour of one face, as given.
  void SetDiffuse(float red, float green, float blue, float alpha, Flag front);
  void SetSpecular(float red, float green, float blue, float alpha, Flag front);
  void SetAmbient(float red, float green, float blue, float alpha, Flag front);
  void SetEmission(float red, float green, float blue, float alpha, Flag front);
  // The specular exponent of one face. Nothing is checked; OpenGL takes 0 to 128.
  void SetShininess(float value, Flag front);

  // The colour of one face; opaque white unless both faces have this component.
  OGLColor GetDiffuse(Flag front) const;
  OGLColor GetSpecular(Flag front) const;
  OGLColor GetAmbient(Flag front) const;
  OGLColor GetEmission(Flag front) const;
  float GetShininess(Flag front) const;

  // Sends the eight colours with glMaterialfv, front before back, then both shininess values. Needs a current context;
  // switches nothing, so that with colour material on the current colour wins over ambient and diffuse.
  void Apply() const;

 private:
  friend struct MaterialLayout;
  // The components of a face, in the order in which they are stored.
  enum Kind { kAmbient, kDiffuse, kSpecular, kEmission };
  static constexpr int kKinds = 4;
  static constexpr int kComponents = 2 * kKinds;

  // Creates the components: both faces get the four colours, given in the order of Kind.
  void Create(const float (&colors)[kKinds][4]);
  // What the other lacks is absent afterwards.
  void CopyComponents(const OGLMaterial& other);
  void DeleteComponents();
  static int Index(Kind kind, Flag front) { return (front ? 0 : kKinds) + kind; }
  void SetComponent(Kind kind, float red, float green, float blue, float alpha, Flag front);
  OGLColor GetComponent(Kind kind, Flag front) const;

  // Those of the front, then those of the back: the order in which they are created, copied, applied and deleted.
  std::unique_ptr<OGLMaterialColor> components[kComponents];
  float frontShininess = 60.0F;
  // Required: the faces differ.
  float backShininess = 120.0F;
};

template <>
struct ScriptClass<OGLMaterial> {
  static constexpr char kName[] = "OglMaterial";
};
