#include <optional>

#include "module/handlers/handlers.h"
#include "module/handlers/points.h"

namespace {

// The components of a colour; an OGLColor would be an object of the host's.
struct Components {
  float red;
  float green;
  float blue;
  float alpha;
};

// An OglColor, which is the only argument then, or red, green and blue with the alpha of that form. Nothing, with error
// 43 raised, when the OglColor has no colour.
std::optional<Components> ReadColor(ScriptCall& call, float alpha) {
  if (call.Count() == 1) {
    const auto* color = call.NextNative<OGLColor>();
    if (!color) return std::nullopt;
    return Components{color->red, color->green, color->blue, color->alpha};
  }
  const OGLPoint rgb = ReadNumbers(call);
  return Components{rgb.x, rgb.y, rgb.z, alpha};
}

template <void (OGLLightSet::*set)(float red, float green, float blue, float alpha)>
void SetLightColor(TOpenGL& self, ScriptCall& call) {
  const auto color = ReadColor(call, 1.0F);
  if (color) (self.GetLights().*set)(color->red, color->green, color->blue, color->alpha);
}

}  // namespace

void script::SetClearColor(TOpenGL& self, ScriptCall& call) {
  // Required: the form of three numbers clears to alpha 0.
  const auto color = ReadColor(call, 0.0F);
  if (color) self.SetClearColor(OGLColor(color->red, color->green, color->blue, color->alpha));
}

void script::SetAmbientLightColor(TOpenGL& self, ScriptCall& call) {
  SetLightColor<&OGLLightSet::SetAmbient>(self, call);
}
void script::SetDiffuseLightColor(TOpenGL& self, ScriptCall& call) {
  SetLightColor<&OGLLightSet::SetDiffuse>(self, call);
}
void script::SetSpecularLightColor(TOpenGL& self, ScriptCall& call) {
  SetLightColor<&OGLLightSet::SetSpecular>(self, call);
}

void script::SetFogColor(TOpenGL& self, ScriptCall& call) {
  const auto color = ReadColor(call, 1.0F);
  if (color) self.GetFog().SetColor(color->red, color->green, color->blue, color->alpha);
}

void script::SetColor(const TOpenGL& self, ScriptCall& call) {
  if (call.Count() == 1) {
    const auto* color = call.NextNative<OGLColor>();
    if (color) self.SetColor(*color);
  } else {
    const OGLPoint rgb = ReadNumbers(call);
    const float alpha = call.NextNumber();
    self.SetColor(OGLColor(rgb.x, rgb.y, rgb.z, alpha));
  }
}

void script::GetLightPosition(TOpenGL& self, ScriptCall& call) {
  VarRegister components[3];
  MakePoint(call.Result(), self.GetLights().GetPosition(), components, call.Interpreter());
}
