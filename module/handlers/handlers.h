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

// ---- Model matrix (matrices.cpp)
void LoadMatrix(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void MultiplyMatrix(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Result: the model transform as a 4 x 4 Matrix, computed by a script of the host.
void GetMatrix(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Takes an axis as three numbers or a POINT3, then the angle in degrees.
void Rotate(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Takes three numbers or a POINT3.
void Translate(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- Display lists and selection (lists.cpp, selection.cpp)
// Result: the first of the new list numbers. Takes how many, or nothing for one.
void GenList(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void CallLists(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Takes the first list and how many, or one list alone.
void DeleteLists(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Result: a Vector of hit records, [names, nearest depth, farthest depth] each.
void EndSelection(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- Indexed batches (indexed.cpp)
void TrianglesEx(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void TrianglesExFB(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- Solids (solids.cpp)
// Takes the centre as three numbers or a POINT3, the radius, and the slices, if not 10. Other counts draw nothing.
void Sphere(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Slices and stacks may be left out: 10.
void Cylinder(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Takes the sizes along x, z and y, with the lowest corner before them or centred on the origin.
void Box(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- Splines (splines.cpp). Counts that do not fit raise error 8.
void SplineCurve2D(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SplineCurve3D(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Takes xs, zs, heights, normals if any, and the knots of both directions.
void SplineSurface(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- Images (images.cpp)
// The forms with a POINT3 are required to draw a second time, from what the host reads out of the registers as numbers.
void DrawBitmap(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void PutBitmap(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void Put2bBitmap(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Result: a byte string; untouched while the renderer is not open.
void GetDIBits(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Result: whether the frame was blended.
void GetDIBitsMixture(VarRegister& result, VarRegister* args, int argc, Processor* processor);
