// The handlers of "TOpenGL" that decide something: overloads, objects, arrays, results made by the host. The others are
// rows made from TOpenGL's members.
#pragma once

#include "host/talq.h"

// ---- Context (context.cpp). These three leave the client rectangle that they asked for in the result.
void Open(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void OpenBitmap(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void BindMDC(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Result: a Vector of four texts.
void GetVersion(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- View (view.cpp)
// Result: a Vector of three POINT3: eye, centre, up.
void GetViewerPos(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Result: a Vector of four numbers. Required: left, right, top, bottom, not the order of SetViewPort.
void GetViewPort(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- Colours and light (colors.cpp). Each setter takes an OglColor or numbers.
void SetClearColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetAmbientLightColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetDiffuseLightColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetSpecularLightColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetFogColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Result: a POINT3.
void GetLightPosition(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- Read-back (images.cpp)
// Result: a byte string; untouched while the renderer is not open.
void GetDIBits(VarRegister& result, VarRegister* args, int argc, Processor* processor);
