// 4 x 4 matrices as OpenGL has them.
#pragma once

#include <array>

namespace devhost::check {

// Column by column.
using Transform = std::array<double, 16>;

inline constexpr Transform kIdentity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

// What b does, then what a does.
Transform Product(const Transform& a, const Transform& b);

// As glTranslate, glScale, glRotate (degrees; nothing about an axis of length 0) and gluLookAt make them.
Transform Translation(double x, double y, double z);
Transform Scaling(double x, double y, double z);
Transform Rotation(double angle, double x, double y, double z);
Transform LookingAt(const std::array<double, 3>& eye, const std::array<double, 3>& center,
                    const std::array<double, 3>& up);

double Length(double x, double y, double z);

// How many dimensions are left of four: 4 with an inverse, 3 when all is flattened, as by a shadow's matrix. The
// numbers' size does not matter.
int RankOf(const Transform& transform);

}  // namespace devhost::check
