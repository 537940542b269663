// The script methods of "OglMaterial" that decide something; the others are rows made from OGLMaterial's members.
#pragma once

#include "binding/call.h"
#include "classes/material.h"

namespace script {

// OglMaterial(). A grey of 0.7.
void ConstructDefaultMaterial(ScriptCall& call);

// The colour setters take four numbers, SetDiffuse to SetEmission also one OglColor, and then an optional face selector
// (true: front). Without it both faces are set: front before back from numbers, back before front from an OglColor.
void SetMaterialColor(OGLMaterial& self, ScriptCall& call);
void SetMaterialDiffuse(OGLMaterial& self, ScriptCall& call);
void SetMaterialSpecular(OGLMaterial& self, ScriptCall& call);
void SetMaterialAmbient(OGLMaterial& self, ScriptCall& call);
void SetMaterialEmission(OGLMaterial& self, ScriptCall& call);

// SetShininess(value [, front]). Without the selector both faces are set.
void SetMaterialShininess(OGLMaterial& self, ScriptCall& call);

}  // namespace script
