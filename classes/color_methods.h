// The script methods of "OglColor" that decide something; the others are rows made from OGLColor's members.
#pragma once

#include "classes/color.h"
#include "host/talq.h"

// Makes a new "OglColor" script object with the colour in the result register, through the class's four-number
// constructor. Makes colour results of plain methods too (binding/method.h).
void WriteResult(VarRegister& result, const OGLColor& color, Processor* processor);

// Script: OglColor(ColorRef). The packed colour is 0x00BBGGRR; alpha becomes 1.
void ConstructColorFromColorRef(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Script: SetColor(ColorRef).
void SetColorFromColorRef(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Script: colour * number, a new object. The colour itself stays.
void MultiplyColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Script: colour *= number.
void ScaleColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
