// Splines: control values and knots as Vectors of numbers.
#include "geometry/splines.h"

#include "geometry/decode.h"
#include "module/handlers/batches.h"
#include "module/handlers/handlers.h"

namespace {

bool HasKnotsFor(Variable& knots, int points) {
  return knots.GetDim() == static_cast<long long>(points) + kSplineOrder;
}

// A curve in space, or without zs in the plane z = 0.
void DrawCurve(const TOpenGL& renderer, Variable& xs, Variable& ys, Variable* zs, Variable& knots) {
  const int count = xs.GetDim();
  if (!CheckCounts(ys.GetDim() == count && (!zs || zs->GetDim() == count) && HasKnotsFor(knots, count))) return;
  Array<float> knotValues(knots.GetDim());
  Triples controls(count);
  if (!knotValues || !controls) return;
  DecodeControls(controls, xs, ys, zs);
  DecodeNumbers(knotValues, knots);
  renderer.SplineCurve(knotValues.Span(), controls.Values());
}

// The surface's arguments; normals is null in the form without them.
struct SurfaceArguments {
  Variable* xs;
  Variable* zs;
  Variable* heights;
  Variable* normals;
  Variable* sKnots;
  Variable* tKnots;
};

bool CheckSurface(const SurfaceArguments& given, int columns, int rows) {
  bool fit = HasKnotsFor(*given.sKnots, columns) && HasKnotsFor(*given.tKnots, rows) && given.heights->GetDim() == rows;
  for (int row = 0; fit && row < rows; ++row) fit = (*given.heights)[row].GetDim() == columns;
  return CheckCounts(fit);
}

void DrawSurface(const TOpenGL& renderer, const SurfaceArguments& given, bool hasNormals) {
  const int columns = given.xs->GetDim();
  const int rows = given.zs->GetDim();
  if (!CheckSurface(given, columns, rows)) return;
  Array<float> sKnots(given.sKnots->GetDim());
  Array<float> tKnots(given.tKnots->GetDim());
  Array<float> controls(3LL * columns * rows);
  if (!sKnots || !tKnots || !controls) return;
  // Required: the last script row comes first, though the knots stay in their order.
  for (int row = rows - 1, at = 0; row >= 0; --row, at += 3 * columns) {
    const float z = (*given.zs)[row];
    PackRow(z, *given.xs, (*given.heights)[row], controls.Data() + at, columns);
  }
  DecodeNumbers(sKnots, *given.sKnots);
  DecodeNumbers(tKnots, *given.tKnots);
  Triples normals;
  if (hasNormals) {
    normals = DecodePoints(*given.normals);
    if (!CheckCounts(normals && normals.Count() == static_cast<long long>(columns) * rows)) return;
  }
  renderer.SplineSurface({sKnots.Span(), tKnots.Span(), controls.Data(), normals.Values()});
}

}  // namespace

void script::SplineCurve2D(const TOpenGL& self, ScriptCall& call) {
  Variable& xs = call.NextValue();
  Variable& ys = call.NextValue();
  Variable& knots = call.NextValue();
  DrawCurve(self, xs, ys, nullptr, knots);
}

void script::SplineCurve3D(const TOpenGL& self, ScriptCall& call) {
  Variable& xs = call.NextValue();
  Variable& ys = call.NextValue();
  Variable& zs = call.NextValue();
  Variable& knots = call.NextValue();
  DrawCurve(self, xs, ys, &zs, knots);
}

void script::SplineSurface(const TOpenGL& self, ScriptCall& call) {
  const bool hasNormals = call.Count() != 5;
  SurfaceArguments given{};
  given.xs = call.NextPointer();
  given.zs = call.NextPointer();
  given.heights = call.NextPointer();
  if (hasNormals) given.normals = call.NextPointer();
  given.sKnots = call.NextPointer();
  given.tKnots = call.NextPointer();
  DrawSurface(self, given, hasNormals);
}
