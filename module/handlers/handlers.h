// The handlers of "TOpenGL" that decide something: overloads, objects, arrays, results made by the host. The others are
// rows made from TOpenGL's members.
//
// A handler leaves the result alone where nothing else is said. The members that they call say what they do
// (render/topengl.h).
#pragma once

#include "binding/call.h"
#include "render/topengl.h"

namespace script {

// ---- Context (context.cpp). These three ask the MDC for its handle, raise OGL_NO_DC when that is 0, and leave the
// client rectangle that they asked for then in the result. They find their renderer through the script object's value.
void Open(ScriptCall& call);
void OpenBitmap(ScriptCall& call);
void BindMDC(ScriptCall& call);
// Result: a Vector of four texts: vendor, renderer, version, extensions.
void GetVersion(const TOpenGL& self, ScriptCall& call);

// ---- View (view.cpp)
// Result: a Vector of three POINT3: eye, centre, up.
void GetViewerPos(const TOpenGL& self, ScriptCall& call);
// Result: a Vector of four numbers. Required: left, right, top, bottom, not the order of SetViewPort.
void GetViewPort(const TOpenGL& self, ScriptCall& call);

// ---- Colours and light (colors.cpp). Each setter takes an OglColor, or red, green and blue: alpha is then 1, but 0
// for the clear colour; SetColor takes it as a fourth number. An OglColor without a colour raises error 43.
void SetClearColor(TOpenGL& self, ScriptCall& call);
void SetAmbientLightColor(TOpenGL& self, ScriptCall& call);
void SetDiffuseLightColor(TOpenGL& self, ScriptCall& call);
void SetSpecularLightColor(TOpenGL& self, ScriptCall& call);
void SetFogColor(TOpenGL& self, ScriptCall& call);
void SetColor(const TOpenGL& self, ScriptCall& call);
// Result: a POINT3.
void GetLightPosition(TOpenGL& self, ScriptCall& call);

// ---- Model matrix (matrices.cpp)
// Each takes a Matrix, of which the first 4 x 4 entries are read.
void LoadMatrix(const TOpenGL& self, ScriptCall& call);
void MultiplyMatrix(const TOpenGL& self, ScriptCall& call);
// Result: the model transform as a 4 x 4 Matrix, computed by a script of the host, which is made before the renderer is
// looked for.
void GetMatrix(ScriptCall& call);
// Takes an axis as three numbers or a POINT3, then the angle in degrees.
void Rotate(const TOpenGL& self, ScriptCall& call);
// Takes three numbers or a POINT3.
void Translate(const TOpenGL& self, ScriptCall& call);

// ---- Display lists and selection (lists.cpp, selection.cpp)
// Result: the first of the new list numbers. Takes how many, or nothing for one.
void GenList(const TOpenGL& self, ScriptCall& call);
// Takes a Vector of list numbers.
void CallLists(const TOpenGL& self, ScriptCall& call);
// Takes the first list and how many, or one list alone.
void DeleteLists(const TOpenGL& self, ScriptCall& call);
// Result: a Vector of hit records, [names, nearest depth, farthest depth] each. Required: depths run from 0 at the near
// plane to 2 at the far plane. Made with -1 elements when the records did not fit; untouched when no selection was
// begun.
void EndSelection(TOpenGL& self, ScriptCall& call);

// ---- Indexed batches (indexed.cpp)
// Takes a Vector of point Vectors, one of normal Vectors, the indices, and a Vector of materials. Raises error 8 for a
// list that has not as many normals as points or no whole triangles. An element that is not an OglMaterial counts as
// none.
void TrianglesEx(const TOpenGL& self, ScriptCall& call);
// Takes a Vector of meshes, the indices, and a Vector of materials. An element that is not a mesh counts as
// one without triangles.
void TrianglesExFB(const TOpenGL& self, ScriptCall& call);

// ---- Solids (solids.cpp)
// Takes the centre as three numbers or a POINT3, the radius, and the slices, if not 10. Other counts draw nothing.
void Sphere(const TOpenGL& self, ScriptCall& call);
// Slices and stacks may be left out: 10.
void Cylinder(const TOpenGL& self, ScriptCall& call);
// Takes the sizes along x, z and y, with the lowest corner before them or centred on the origin.
void Box(const TOpenGL& self, ScriptCall& call);

// ---- Splines (splines.cpp). Cubic: a direction of n control points takes n + 4 knots. Counts that do not fit raise
// error 8.
//
// Takes xs, ys, in space also zs, and the knots.
void SplineCurve2D(const TOpenGL& self, ScriptCall& call);
void SplineCurve3D(const TOpenGL& self, ScriptCall& call);
// Takes xs, zs, heights (a row of ys for each z), normals if any, and the knots along x and along z. Required: the last
// row comes first.
void SplineSurface(const TOpenGL& self, ScriptCall& call);

// ---- Images (images.cpp). What is asked of an MBmp passes through the result.
// Takes the lower left corner as three numbers or a POINT3, the scale, if not 1, and an MBmp. Required: the forms with
// a POINT3 draw a second time, from what the host reads out of the first four registers as numbers.
void DrawBitmap(const TOpenGL& self, ScriptCall& call);
// Takes the position as three numbers or a POINT3; then an MBmp, or width, height and a byte string of one bit a pixel.
void PutBitmap(const TOpenGL& self, ScriptCall& call);
void Put2bBitmap(const TOpenGL& self, ScriptCall& call);
// Result: a byte string of width * height * 3 bytes; untouched while the renderer is not open and bound.
void GetDIBits(const TOpenGL& self, ScriptCall& call);
// Result: whether the frame was blended. Raises error 43 for a String without bytes.
void GetDIBitsMixture(const TOpenGL& self, ScriptCall& call);

}  // namespace script
