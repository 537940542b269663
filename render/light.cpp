#include "render/light.h"

#include <cmath>
#include <new>

#include "classes/gl.h"

static_assert(sizeof(OGLLightColor) == 48);
struct LightSetLayout {
  static_assert(sizeof(OGLLightSet) == 48 && offsetof(OGLLightSet, position) == 24);
  static_assert(offsetof(OGLLightSet, spotCutoff) == 40 && offsetof(OGLLightSet, twoSide) == 44);
};

namespace {

using Color = std::unique_ptr<OGLLightColor>;

Color NewColor(unsigned parameter, float share, float red, float green, float blue, float alpha) {
  return Color(new (std::nothrow) OGLLightColor(parameter, share * red, share * green, share * blue, alpha));
}

void Set(const Color& color, unsigned parameter, float red, float green, float blue, float alpha) {
  if (color) color->Set(parameter, red, green, blue, alpha);
}

OGLColor Get(const Color& color) { return color ? OGLColor(*color) : OGLColor(); }

void Apply(const Color& color) {
  if (color) color->Apply();
}

}  // namespace

void OGLLightColor::Apply() const { glLightfv(GL_LIGHT0, parameter, Components()); }

OGLLightSet::OGLLightSet(float red, float green, float blue, float alpha)
    : ambient(NewColor(GL_AMBIENT, 0.2F, red, green, blue, alpha)),
      diffuse(NewColor(GL_DIFFUSE, 0.8F, red, green, blue, alpha)),
      specular(NewColor(GL_SPECULAR, 1.0F, red, green, blue, alpha)) {}

void OGLLightSet::SetAmbient(float red, float green, float blue, float alpha) {
  Set(ambient, GL_AMBIENT, red, green, blue, alpha);
}
void OGLLightSet::SetDiffuse(float red, float green, float blue, float alpha) {
  Set(diffuse, GL_DIFFUSE, red, green, blue, alpha);
}
void OGLLightSet::SetSpecular(float red, float green, float blue, float alpha) {
  Set(specular, GL_SPECULAR, red, green, blue, alpha);
}
void OGLLightSet::SetAmbient(const OGLColor& color) { SetAmbient(color.red, color.green, color.blue, color.alpha); }
void OGLLightSet::SetDiffuse(const OGLColor& color) { SetDiffuse(color.red, color.green, color.blue, color.alpha); }
void OGLLightSet::SetSpecular(const OGLColor& color) { SetSpecular(color.red, color.green, color.blue, color.alpha); }
OGLColor OGLLightSet::GetAmbient() const { return Get(ambient); }
OGLColor OGLLightSet::GetDiffuse() const { return Get(diffuse); }
OGLColor OGLLightSet::GetSpecular() const { return Get(specular); }

void OGLLightSet::Enable() const {
  glEnable(GL_LIGHTING);
  glEnable(GL_LIGHT0);
  glDisable(GL_COLOR_MATERIAL);
  glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, twoSide);
}

void OGLLightSet::Apply() const {
  ::Apply(ambient);
  ::Apply(specular);
  ::Apply(diffuse);
  // The identity puts the light into eye coordinates.
  glMatrixMode(GL_MODELVIEW);
  glPushMatrix();
  glLoadIdentity();
  const float place[4] = {position.x, position.y, position.z, position.w};
  glLightfv(GL_LIGHT0, GL_POSITION, place);
  glLightf(GL_LIGHT0, GL_SPOT_CUTOFF, spotCutoff);
  const float length = sqrtf(position.x * position.x + position.y * position.y + position.z * position.z);
  const float direction[4] = {-position.x / length, -position.y / length, -position.z / length, 1.0F};
  glLightfv(GL_LIGHT0, GL_SPOT_DIRECTION, direction);
  glPopMatrix();
}
