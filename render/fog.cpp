#include "render/fog.h"

#include "classes/gl.h"

static_assert(sizeof(OGLFog) == 48);

OGLFog::OGLFog(float newRed, float newGreen, float newBlue, float newAlpha)
    : OGLColor(newRed, newGreen, newBlue, newAlpha), mode(GL_LINEAR) {}

void OGLFog::SetLinearMode() { mode = GL_LINEAR; }
void OGLFog::SetExpMode() { mode = GL_EXP2; }

void OGLFog::Apply(float start, float end) const {
  glEnable(GL_FOG);
  glFogi(GL_FOG_MODE, static_cast<GLint>(mode));
  glFogf(GL_FOG_DENSITY, density);
  glFogfv(GL_FOG_COLOR, Components());
  glFogf(GL_FOG_START, start);
  glFogf(GL_FOG_END, end);
}
