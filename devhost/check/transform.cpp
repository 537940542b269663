#include "devhost/check/transform.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>
#include <utility>

namespace devhost::check {
namespace {

using Vector3 = std::array<double, 3>;

Vector3 Normalized(const Vector3& v) {
  const double length = Length(v[0], v[1], v[2]);
  return length > 0 ? Vector3{v[0] / length, v[1] / length, v[2] / length} : v;
}

Vector3 Cross(const Vector3& a, const Vector3& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

}  // namespace

double Length(double x, double y, double z) { return std::sqrt(x * x + y * y + z * z); }

Transform Product(const Transform& a, const Transform& b) {
  Transform product{};
  for (std::size_t column = 0; column < 4; ++column) {
    for (std::size_t row = 0; row < 4; ++row) {
      for (std::size_t i = 0; i < 4; ++i) product[column * 4 + row] += a[i * 4 + row] * b[column * 4 + i];
    }
  }
  return product;
}

Transform Translation(double x, double y, double z) { return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1}; }

Transform Scaling(double x, double y, double z) { return {x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1}; }

Transform Rotation(double angle, double x, double y, double z) {
  const auto [ax, ay, az] = Normalized({x, y, z});
  if (ax == 0 && ay == 0 && az == 0) return kIdentity;
  const double s = std::sin(angle * std::numbers::pi / 180);
  const double c = std::cos(angle * std::numbers::pi / 180);
  const double d = 1 - c;
  return {ax * ax * d + c,
          ay * ax * d + az * s,
          az * ax * d - ay * s,
          0,
          ax * ay * d - az * s,
          ay * ay * d + c,
          az * ay * d + ax * s,
          0,
          ax * az * d + ay * s,
          ay * az * d - ax * s,
          az * az * d + c,
          0,
          0,
          0,
          0,
          1};
}

Transform LookingAt(const Vector3& eye, const Vector3& center, const Vector3& up) {
  const Vector3 forward = Normalized({center[0] - eye[0], center[1] - eye[1], center[2] - eye[2]});
  const Vector3 side = Normalized(Cross(forward, up));
  const Vector3 above = Cross(side, forward);
  const Transform turn{side[0], above[0], -forward[0], 0, side[1], above[1], -forward[1], 0,
                       side[2], above[2], -forward[2], 0, 0,       0,        0,           1};
  return Product(turn, Translation(-eye[0], -eye[1], -eye[2]));
}

// Gauss's elimination on columns of length 1, so that what is left where nothing is is rounding.
int RankOf(const Transform& transform) {
  constexpr double kSmallest = 1e-9;
  std::array<std::array<double, 4>, 4> columns{};
  for (std::size_t i = 0; i < 4; ++i) {
    const double* column = &transform[i * 4];
    const double length = std::sqrt(std::inner_product(column, column + 4, column, 0.0));
    const bool isSound = length > 0 && length <= std::numeric_limits<double>::max();
    for (std::size_t row = 0; isSound && row < 4; ++row) columns[i][row] = column[row] / length;
  }
  std::size_t rank = 0;
  for (std::size_t row = 0; row < 4; ++row) {
    const auto pivot =
        std::max_element(columns.begin() + static_cast<std::ptrdiff_t>(rank), columns.end(),
                         [row](const auto& a, const auto& b) { return std::abs(a[row]) < std::abs(b[row]); });
    if (std::abs((*pivot)[row]) < kSmallest) continue;
    std::swap(*pivot, columns[rank]);
    for (std::size_t i = rank + 1; i < 4; ++i) {
      const double share = columns[i][row] / columns[rank][row];
      for (std::size_t j = row; j < 4; ++j) columns[i][j] -= share * columns[rank][j];
    }
    ++rank;
    if (rank == 4) break;
  }
  return static_cast<int>(rank);
}

}  // namespace devhost::check
