// The handlers of the primitive batches: one template a number of arrays, one rule a kind of primitive.
#pragma once

#include "binding/errors.h"
#include "binding/native.h"
#include "geometry/decode.h"
#include "render/topengl.h"

// ---- Which numbers of points, normals and colours fit together. All counts are of triples.

constexpr bool FitsTriangles(int points) { return points % 3 == 0 && points >= 1; }
constexpr bool FitsTriangles(int points, int normals) {
  return (normals == points || normals == points / 3) && FitsTriangles(points);
}
constexpr bool FitsTriangles(int points, int normals, int colors) {
  return FitsTriangles(points, normals) && colors == points;
}
constexpr bool FitsTriangleStrip(int points) { return points >= 3; }
constexpr bool FitsTriangleStrip(int points, int normals) { return normals == points && FitsTriangleStrip(points); }

constexpr bool FitsQuads(int points) { return points >= 1 && points % 4 == 0; }
// Required: polygons take a multiple of four points, as quads do.
constexpr bool FitsQuads(int points, int normals) { return normals == points && FitsQuads(points); }
constexpr bool FitsQuads(int points, int normals, int colors) { return FitsQuads(points, normals) && colors == points; }
constexpr bool FitsQuadStrip(int points, int normals) { return normals == points && points >= 4; }
constexpr bool FitsAlways(int /*points*/) { return true; }

// ---- Handlers: decode every array, then draw, unless one is missing or the script has an error. They raise error 43
// when the script object has no renderer. `draw` is the renderer's member, `fits` the rule for its counts.

// False, with error 8 raised, when the counts do not fit.
inline bool CheckCounts(bool fit) {
  if (!fit) TalqError(kCountsDoNotFit);
  return fit;
}

template <void (TOpenGL::*draw)(TripleSpan) const, bool (*fits)(int)>
void DrawPoints(VarRegister& /*result*/, VarRegister* args, int argc, Processor* processor) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const Triples points = DecodePoints(args[0]);
  if (!points || processor->GetErrorStatus()) return;
  if (CheckCounts(fits(points.Count()))) (self->*draw)(points);
}

template <void (TOpenGL::*draw)(TripleSpan, TripleSpan) const, bool (*fits)(int, int)>
void DrawWithNormals(VarRegister& /*result*/, VarRegister* args, int argc, Processor* processor) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const Triples points = DecodePoints(args[0]);
  const Triples normals = DecodePoints(args[1]);
  if (!points || !normals || processor->GetErrorStatus()) return;
  if (CheckCounts(fits(points.Count(), normals.Count()))) (self->*draw)(points, normals);
}

template <void (TOpenGL::*draw)(TripleSpan, TripleSpan, TripleSpan) const, bool (*fits)(int, int, int)>
void DrawWithColors(VarRegister& /*result*/, VarRegister* args, int argc, Processor* processor) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const Triples points = DecodePoints(args[0]);
  const Triples normals = DecodePoints(args[1]);
  const Triples colors = DecodeColors(args[2], points.Count());
  if (!points || !normals || !colors || processor->GetErrorStatus()) return;
  if (CheckCounts(fits(points.Count(), normals.Count(), colors.Count()))) (self->*draw)(points, normals, colors);
}

// Lines alone are left out, with nothing raised, when the counts do not fit.
inline void DrawColorLines(VarRegister& /*result*/, VarRegister* args, int argc, Processor* processor) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const Triples points = DecodePoints(args[0]);
  const Triples colors = DecodeColors(args[1], points.Count());
  if (points && colors && !processor->GetErrorStatus()) self->ColorLines(points, colors);
}
