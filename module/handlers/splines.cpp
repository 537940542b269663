// Splines: control values and knots as Vectors of numbers.
#include "geometry/splines.h"

#include "binding/native.h"
#include "geometry/array.h"
#include "geometry/decode.h"
#include "module/handlers/batches.h"
#include "module/handlers/handlers.h"
#include "render/topengl.h"

namespace {

constexpr int kOrder = 4;

bool HasKnotsFor(Variable& knots, int points) { return knots.GetDim() == static_cast<long long>(points) + kOrder; }

std::span<float> SpanOf(Array<float>& numbers) { return {numbers.Data(), static_cast<std::size_t>(numbers.Count())}; }

// A curve in space, or without zs in the plane z = 0.
void DrawCurve(const TOpenGL& renderer, Variable& xs, Variable& ys, Variable* zs, Variable& knots) {
  const int count = xs.GetDim();
  if (!CheckCounts(ys.GetDim() == count && (!zs || zs->GetDim() == count) && HasKnotsFor(knots, count))) return;
  Array<float> knotValues(knots.GetDim());
  Triples controls(count);
  if (!knotValues || !controls) return;
  float* control = controls.Values();
  for (int i = 0; i < count; ++i, control += 3) {
    control[0] = xs[i];
    control[1] = ys[i];
    control[2] = zs ? static_cast<float>((*zs)[i]) : 0.0F;
  }
  Fill(knotValues, knots);
  renderer.SplineCurve(SpanOf(knotValues), controls.Values());
}

// Writes n control points of one row: (xs[i], ys[i], z).
void PackRow(float z, Variable& xs, Variable& ys, float* to, int n) {
  for (int i = 0; i < n; ++i, to += 3) {
    to[0] = xs[i];
    to[1] = ys[i];
    to[2] = z;
  }
}

// The surface's arguments; normals is null in the form without them.
struct SurfaceArguments {
  Variable& xs;
  Variable& zs;
  Variable& heights;
  Variable* normals;
  Variable& sKnots;
  Variable& tKnots;
};

bool CheckSurface(const SurfaceArguments& given, int columns, int rows) {
  bool fit = HasKnotsFor(given.sKnots, columns) && HasKnotsFor(given.tKnots, rows) && given.heights.GetDim() == rows;
  for (int row = 0; fit && row < rows; ++row) fit = given.heights[row].GetDim() == columns;
  return CheckCounts(fit);
}

void DrawSurface(const TOpenGL& renderer, const SurfaceArguments& given) {
  const int columns = given.xs.GetDim();
  const int rows = given.zs.GetDim();
  if (!CheckSurface(given, columns, rows)) return;
  Array<float> sKnots(given.sKnots.GetDim());
  Array<float> tKnots(given.tKnots.GetDim());
  Array<float> controls(3LL * columns * rows);
  if (!sKnots || !tKnots || !controls) return;
  // Required: the last script row comes first, though the knots stay in their order.
  for (int row = rows - 1, at = 0; row >= 0; --row, at += 3 * columns) {
    PackRow(given.zs[row], given.xs, given.heights[row], controls.Data() + at, columns);
  }
  Fill(sKnots, given.sKnots);
  Fill(tKnots, given.tKnots);
  Triples normals;
  if (given.normals) {
    normals = DecodePoints(*given.normals);
    if (!CheckCounts(normals && normals.Count() == static_cast<long long>(columns) * rows)) return;
  }
  renderer.SplineSurface({SpanOf(sKnots), SpanOf(tKnots), controls.Data(), normals.Values()});
}

}  // namespace

void SplineCurve2D(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (self) DrawCurve(*self, args[0], args[1], nullptr, args[2]);
}

void SplineCurve3D(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (self) DrawCurve(*self, args[0], args[1], args[2], args[3]);
}

void SplineSurface(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  Variable* const normals = argc == 6 ? nullptr : static_cast<Variable*>(args[3]);
  VarRegister* knots = args + (normals ? 4 : 3);
  DrawSurface(*self, {args[0], args[1], args[2], normals, knots[0], knots[1]});
}
