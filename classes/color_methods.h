// The script methods of "OglColor" that decide something; the others are rows made from OGLColor's members.
#pragma once

#include "binding/call.h"
#include "classes/color.h"

// Makes a new "OglColor" script object with the colour in the result register, through the class's four-number
// constructor. Makes colour results of plain methods too (binding/method.h).
void Return(const ScriptCall& call, const OGLColor& color);

namespace script {

// OglColor(ColorRef). The packed colour is 0x00BBGGRR; alpha becomes 1.
void ConstructColorFromColorRef(ScriptCall& call);
// SetColor(ColorRef).
void SetColorFromColorRef(OGLColor& self, ScriptCall& call);
// colour * number, a new object. The colour itself stays.
void MultiplyColor(const OGLColor& self, ScriptCall& call);
// colour *= number.
void ScaleColor(OGLColor& self, ScriptCall& call);

}  // namespace script
