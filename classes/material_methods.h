// The script methods of "OglMaterial" that decide something; the others are rows made from OGLMaterial's members.
#pragma once

#include "host/talq.h"

// Script: OglMaterial(). A grey of 0.7.
void ConstructDefaultMaterial(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// The colour setters take four numbers, SetDiffuse to SetEmission also one OglColor, and then an optional face selector
// (true: front). Without it both faces are set: front before back from numbers, back before front from an OglColor.
void SetMaterialColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetMaterialDiffuse(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetMaterialSpecular(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetMaterialAmbient(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetMaterialEmission(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// Script: SetShininess(value [, front]). Without the selector both faces are set.
void SetMaterialShininess(VarRegister& result, VarRegister* args, int argc, Processor* processor);
