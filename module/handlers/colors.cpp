#include "binding/native.h"
#include "module/handlers/handlers.h"
#include "module/handlers/points.h"
#include "render/topengl.h"

namespace {

// Reads an OglColor (two registers with the script object), or red, green and blue with the alpha of that form. False
// with an error raised when the OglColor has no colour.
bool ReadColor(VarRegister* args, int argc, float alpha, OGLColor& color) {
  if (argc != 2) {
    const float components[] = {args[0], args[1], args[2]};
    color.SetColor(components[0], components[1], components[2], alpha);
    return true;
  }
  const OGLColor* given = Native<OGLColor>(args[0]);
  if (given) color = *given;
  return given != nullptr;
}

template <void (OGLLightSet::*set)(const OGLColor&)>
void SetLightColor(VarRegister* args, int argc) {
  TOpenGL* self = Self<TOpenGL>(args, argc);
  OGLColor color;
  if (self && ReadColor(args, argc, 1.0F, color)) (self->GetLights().*set)(color);
}

}  // namespace

void SetClearColor(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  TOpenGL* self = Self<TOpenGL>(args, argc);
  OGLColor color;
  // Required: the form of three numbers clears to alpha 0.
  if (self && ReadColor(args, argc, 0.0F, color)) self->SetClearColor(color);
}

void SetAmbientLightColor(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  SetLightColor<&OGLLightSet::SetAmbient>(args, argc);
}
void SetDiffuseLightColor(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  SetLightColor<&OGLLightSet::SetDiffuse>(args, argc);
}
void SetSpecularLightColor(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  SetLightColor<&OGLLightSet::SetSpecular>(args, argc);
}

void SetFogColor(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  TOpenGL* self = Self<TOpenGL>(args, argc);
  OGLColor color;
  if (self && ReadColor(args, argc, 1.0F, color)) self->GetFog().OGLColor::operator=(color);
}

void SetColor(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  if (argc != 2) {
    self->SetColor(OGLColor{args[0], args[1], args[2], args[3]});
  } else if (const OGLColor* color = Native<OGLColor>(args[0])) {
    self->SetColor(*color);
  }
}

void GetLightPosition(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  TOpenGL* self = Self<TOpenGL>(args, argc);
  if (self) MakePoint(result, self->GetLights().GetPosition(), processor);
}
