// The handlers of the primitive batches: one template a number of arrays, one rule a kind of primitive.
#pragma once

#include "binding/call.h"
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

// ---- Handlers: decode every array, then draw, unless one is missing or the script has an error. `draw` is the
// renderer's member, `fits` the rule for its counts.

// False, with error 8 raised, when the counts do not fit.
inline bool CheckCounts(bool fit) {
  if (!fit) TalqError(kCountsDoNotFit);
  return fit;
}

namespace script {

template <void (TOpenGL::*draw)(TripleSpan) const, bool (*fits)(int)>
void DrawPoints(const TOpenGL& self, ScriptCall& call) {
  const Triples points = DecodePoints(call.NextValue());
  if (!points || call.HasError()) return;
  if (CheckCounts(fits(points.Count()))) (self.*draw)(points);
}

template <void (TOpenGL::*draw)(TripleSpan, TripleSpan) const, bool (*fits)(int, int)>
void DrawWithNormals(const TOpenGL& self, ScriptCall& call) {
  const Triples points = DecodePoints(call.NextValue());
  const Triples normals = DecodePoints(call.NextValue());
  if (!points || !normals || call.HasError()) return;
  if (CheckCounts(fits(points.Count(), normals.Count()))) (self.*draw)(points, normals);
}

template <void (TOpenGL::*draw)(TripleSpan, TripleSpan, TripleSpan) const, bool (*fits)(int, int, int)>
void DrawWithColors(const TOpenGL& self, ScriptCall& call) {
  const Triples points = DecodePoints(call.NextValue());
  const Triples normals = DecodePoints(call.NextValue());
  const Triples colors = DecodeColors(call.NextValue(), points.Count());
  if (!points || !normals || !colors || call.HasError()) return;
  if (CheckCounts(fits(points.Count(), normals.Count(), colors.Count()))) (self.*draw)(points, normals, colors);
}

// Lines alone are left out, with nothing raised, when the counts do not fit.
inline void DrawColorLines(const TOpenGL& self, ScriptCall& call) {
  const Triples points = DecodePoints(call.NextValue());
  const Triples colors = DecodeColors(call.NextValue(), points.Count());
  if (points && colors && !call.HasError()) self.ColorLines(points, colors);
}

}  // namespace script
