#include "classes/material_methods.h"

#include <new>

namespace {

using Setter = void (OGLMaterial::*)(float red, float green, float blue, float alpha, Flag front);

Flag NextFace(ScriptCall& call) { return call.NextFlag() ? kOn : kOff; }

// The form of four numbers and an optional face selector, which the caller found to be the one.
template <Setter set>
void SetFromNumbers(OGLMaterial& material, ScriptCall& call) {
  const float red = call.NextNumber();
  const float green = call.NextNumber();
  const float blue = call.NextNumber();
  const float alpha = call.NextNumber();
  if (call.Count() > 4) {
    (material.*set)(red, green, blue, alpha, NextFace(call));
  } else {
    (material.*set)(red, green, blue, alpha, kOn);
    (material.*set)(red, green, blue, alpha, kOff);
  }
}

// The form of an OglColor and an optional face selector.
template <Setter set>
void SetFromColor(OGLMaterial& material, ScriptCall& call) {
  const auto* color = call.NextNative<OGLColor>();
  if (!color) return;
  const auto apply = [&](Flag front) { (material.*set)(color->red, color->green, color->blue, color->alpha, front); };
  if (call.Count() > 1) {
    apply(NextFace(call));
  } else {
    // Required: back before front, unlike the number form.
    apply(kOff);
    apply(kOn);
  }
}

template <Setter set>
void SetEitherWay(OGLMaterial& self, ScriptCall& call) {
  if (call.Count() < 4) {
    SetFromColor<set>(self, call);
  } else {
    SetFromNumbers<set>(self, call);
  }
}

}  // namespace

void script::ConstructDefaultMaterial(ScriptCall& call) {
  Variable* object = call.Object();
  Join(new (std::nothrow) OGLMaterial(0.7F, 0.7F, 0.7F, 1.0F), object, call.Interpreter());
}

void script::SetMaterialColor(OGLMaterial& self, ScriptCall& call) {
  SetFromNumbers<&OGLMaterial::SetColor>(self, call);
}
void script::SetMaterialDiffuse(OGLMaterial& self, ScriptCall& call) {
  SetEitherWay<&OGLMaterial::SetDiffuse>(self, call);
}
void script::SetMaterialSpecular(OGLMaterial& self, ScriptCall& call) {
  SetEitherWay<&OGLMaterial::SetSpecular>(self, call);
}
void script::SetMaterialAmbient(OGLMaterial& self, ScriptCall& call) {
  SetEitherWay<&OGLMaterial::SetAmbient>(self, call);
}
void script::SetMaterialEmission(OGLMaterial& self, ScriptCall& call) {
  SetEitherWay<&OGLMaterial::SetEmission>(self, call);
}

void script::SetMaterialShininess(OGLMaterial& self, ScriptCall& call) {
  const float value = call.NextNumber();
  if (call.Count() == 1) {
    self.SetShininess(value, kOn);
    self.SetShininess(value, kOff);
  } else {
    self.SetShininess(value, NextFace(call));
  }
}
