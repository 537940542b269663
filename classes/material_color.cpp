#include "classes/material_color.h"

#include "classes/gl.h"

static_assert(sizeof(OGLColor) == 40 && sizeof(OGLMaterialColor) == 48);

void OGLMaterialColor::Apply() const {
  const float components[4] = {red, green, blue, alpha};
  glMaterialfv(face, parameter, components);
}
