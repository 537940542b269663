// The handlers of "TOpenGL" that decide something: overloads, objects, arrays, results made by the host. The others are
// rows made from TOpenGL's members.
//
// Each raises error 43 and draws nothing when the script object has no renderer. A handler leaves the result alone
// where nothing else is said. The members that they call say what they do (render/topengl.h).
#pragma once

#include "host/talq.h"

// ---- Context (context.cpp). These three ask the MDC for its handle, raise OGL_NO_DC when that is 0, and leave the
// client rectangle that they asked for then in the result.
void Open(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void OpenBitmap(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void BindMDC(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Result: a Vector of four texts: vendor, renderer, version, extensions.
void GetVersion(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- View (view.cpp)
// Result: a Vector of three POINT3: eye, centre, up.
void GetViewerPos(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Result: a Vector of four numbers. Required: left, right, top, bottom, not the order of SetViewPort.
void GetViewPort(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- Colours and light (colors.cpp). Each setter takes an OglColor, or red, green and blue: alpha is then 1, but 0
// for the clear colour; SetColor takes it as a fourth number. An OglColor without a colour raises error 43.
void SetClearColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetAmbientLightColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetDiffuseLightColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetSpecularLightColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetFogColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SetColor(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Result: a POINT3.
void GetLightPosition(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- Model matrix (matrices.cpp)
// Each takes a Matrix, of which the first 4 x 4 entries are read.
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
// Takes a Vector of list numbers.
void CallLists(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Takes the first list and how many, or one list alone.
void DeleteLists(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Result: a Vector of hit records, [names, nearest depth, farthest depth] each. Required: depths run from 0 at the near
// plane to 2 at the far plane. Made with -1 elements when the records did not fit; untouched when no selection was
// begun.
void EndSelection(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- Indexed batches (indexed.cpp)
// Takes a Vector of point Vectors, one of normal Vectors, the indices, and a Vector of materials. Raises error 8 for a
// list that has not as many normals as points or no whole triangles. What is no OglMaterial counts as none.
void TrianglesEx(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Takes a Vector of meshes, the indices, and a Vector of materials. What is no mesh has no triangles.
void TrianglesExFB(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- Solids (solids.cpp)
// Takes the centre as three numbers or a POINT3, the radius, and the slices, if not 10. Other counts draw nothing.
void Sphere(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Slices and stacks may be left out: 10.
void Cylinder(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Takes the sizes along x, z and y, with the lowest corner before them or centred on the origin.
void Box(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- Splines (splines.cpp). Cubic: a direction of n control points takes n + 4 knots. Counts that do not fit raise
// error 8.
//
// Takes xs, ys, in space also zs, and the knots.
void SplineCurve2D(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void SplineCurve3D(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Takes xs, zs, heights (a row of ys for each z), normals if any, and the knots along x and along z. Required: the last
// row comes first.
void SplineSurface(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// ---- Images (images.cpp). What is asked of an MBmp passes through the result.
// Takes the lower left corner as three numbers or a POINT3, the scale, if not 1, and an MBmp. Required: the forms with
// a POINT3 draw a second time, from what the host reads out of the first four registers as numbers.
void DrawBitmap(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Takes the position as three numbers or a POINT3; then an MBmp, or width, height and a byte string of one bit a pixel.
void PutBitmap(VarRegister& result, VarRegister* args, int argc, Processor* processor);
void Put2bBitmap(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Result: a byte string of width * height * 3 bytes; untouched while the renderer is not open and bound.
void GetDIBits(VarRegister& result, VarRegister* args, int argc, Processor* processor);
// Result: whether the frame was blended. Raises error 43 for a String without bytes.
void GetDIBitsMixture(VarRegister& result, VarRegister* args, int argc, Processor* processor);
