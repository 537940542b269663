// A cube of voxels with its colours, and the mathematics to fill one.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

inline constexpr int kSide = 128;

struct Volume {
  int mode;
  int threshold;
  std::vector<unsigned char> data;
  // Red, green, blue and opacity of each byte.
  unsigned char tables[4][256];
};

struct Vec {
  float x;
  float y;
  float z;
};
inline Vec operator+(Vec a, Vec b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vec operator-(Vec a, Vec b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vec operator*(Vec a, float s) { return {a.x * s, a.y * s, a.z * s}; }
inline Vec operator/(Vec a, Vec b) { return {a.x / b.x, a.y / b.y, a.z / b.z}; }
inline float Dot(Vec a, Vec b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline float Length(Vec a) { return std::sqrt(Dot(a, a)); }
inline Vec Unit(Vec a) { return a * (1.0F / std::max(Length(a), 1e-9F)); }
inline Vec Mixed(Vec a, Vec b, float share) { return a + (b - a) * share; }
inline float Clamped(float value) { return std::clamp(value, 0.0F, 1.0F); }
// From 0 at `low` to 1 at `high`.
inline float Ramp(float low, float high, float value) {
  const float share = Clamped((value - low) / (high - low));
  return share * share * (3 - 2 * share);
}
inline unsigned char ToByte(float unit) { return static_cast<unsigned char>(std::lround(Clamped(unit) * 255)); }

// The direction in which a field grows.
template <class Field>
Vec Gradient(Field field, Vec at) {
  constexpr float kStep = 0.01F;
  return Unit({field(at + Vec{kStep, 0, 0}) - field(at - Vec{kStep, 0, 0}),
               field(at + Vec{0, kStep, 0}) - field(at - Vec{0, kStep, 0}),
               field(at + Vec{0, 0, kStep}) - field(at - Vec{0, 0, kStep})});
}

// Calls visit(centre) for each voxel in the volume's order, centres lying between -reach and reach.
template <class Visit>
void ForEachVoxel(float reach, Visit visit) {
  const auto centre = [reach](int i) { return (static_cast<float>(i) + 0.5F) * 2 * reach / kSide - reach; };
  for (int z = 0; z < kSide; ++z) {
    for (int y = 0; y < kSide; ++y) {
      for (int x = 0; x < kSide; ++x) visit(Vec{centre(x), centre(y), centre(z)});
    }
  }
}

// A head with a skull and a brain, skin and bone cut open: indexed voxels.
Volume MakeHead();
// A molecule of caffeine as clouds around its atoms, in a grey haze that the threshold hides: coloured voxels.
Volume MakeMolecule();
