// Prints which native class Microsoft's runtime finds behind a TalqAss*, as a host may ask.
#include <cstdio>

#include "classes/material_color.h"
#include "render/fog.h"
#include "render/topengl.h"

namespace {

template <class Native>
bool Is(TalqAss* object) {
  return dynamic_cast<Native*>(object) != nullptr;
}

void Print(const char* name, TalqAss* object) {
  std::printf("%s: OGLColor %d, OGLMaterialColor %d, OGLFog %d, TOpenGL %d\n", name, Is<OGLColor>(object),
              Is<OGLMaterialColor>(object), Is<OGLFog>(object), Is<TOpenGL>(object));
}

}  // namespace

int main() {
  OGLColor color;
  OGLMaterialColor materialColor(0, color, 0);
  OGLFog fog(0, 0, 0, 0);
  TOpenGL renderer;
  Print("OGLColor", &color);
  Print("OGLMaterialColor", &materialColor);
  Print("OGLFog", &fog);
  Print("TOpenGL", &renderer);
  return 0;
}
