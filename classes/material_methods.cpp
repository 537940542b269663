#include "classes/material_methods.h"

#include "binding/method.h"
#include "classes/material.h"

namespace {

using Setter = void (OGLMaterial::*)(float red, float green, float blue, float alpha, Flag front);

// The form of four numbers and an optional face selector, which the caller found to be the one.
template <Setter set>
void SetFromNumbers(OGLMaterial& material, VarRegister* args, int argc) {
  const float color[4] = {args[0], args[1], args[2], args[3]};
  const auto apply = [&](Flag front) { (material.*set)(color[0], color[1], color[2], color[3], front); };
  if (argc > 5) {
    apply(args[4].IsTrue() ? kOn : kOff);
  } else {
    apply(kOn);
    apply(kOff);
  }
}

// The form of an OglColor and an optional face selector.
template <Setter set>
void SetFromColor(OGLMaterial& material, VarRegister* args, int argc) {
  const OGLColor* color = Native<OGLColor>(args[0]);
  if (!color) return;
  const auto apply = [&](Flag front) { (material.*set)(color->red, color->green, color->blue, color->alpha, front); };
  if (argc > 2) {
    apply(args[1].IsTrue() ? kOn : kOff);
  } else {
    // Required: back before front, unlike the number form.
    apply(kOff);
    apply(kOn);
  }
}

template <Setter set>
void SetEitherWay(VarRegister* args, int argc) {
  OGLMaterial* self = Self<OGLMaterial>(args, argc);
  if (!self) return;
  if (argc < 5) {
    SetFromColor<set>(*self, args, argc);
  } else {
    SetFromNumbers<set>(*self, args, argc);
  }
}

}  // namespace

void ConstructDefaultMaterial(VarRegister& /*result*/, VarRegister* args, int argc, Processor* processor) {
  JoinNew(new (std::nothrow) OGLMaterial(0.7F, 0.7F, 0.7F, 1.0F), args[argc - 1], processor);
}

void SetMaterialColor(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  OGLMaterial* self = Self<OGLMaterial>(args, argc);
  if (self) SetFromNumbers<&OGLMaterial::SetColor>(*self, args, argc);
}
void SetMaterialDiffuse(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  SetEitherWay<&OGLMaterial::SetDiffuse>(args, argc);
}
void SetMaterialSpecular(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  SetEitherWay<&OGLMaterial::SetSpecular>(args, argc);
}
void SetMaterialAmbient(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  SetEitherWay<&OGLMaterial::SetAmbient>(args, argc);
}
void SetMaterialEmission(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  SetEitherWay<&OGLMaterial::SetEmission>(args, argc);
}

void SetMaterialShininess(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  OGLMaterial* self = Self<OGLMaterial>(args, argc);
  if (!self) return;
  const float value = args[0];
  if (argc == 2) {
    self->SetShininess(value, kOn);
    self->SetShininess(value, kOff);
  } else {
    self->SetShininess(value, args[1].IsTrue() ? kOn : kOff);
  }
}
