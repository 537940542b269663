// A head out of ellipsoids. A byte is a tissue and how bright it is lit.
#include "tests/renderer/volume.h"

namespace {

constexpr int kShades = 64;
enum Tissue : int { kAir, kSkin, kBone, kBrain };

// Distances, negative inside: to an ellipsoid, and joined smoothly.
float Ellipsoid(Vec at, Vec centre, Vec radii) {
  const Vec inside = (at - centre) / radii;
  const float length = Length(inside);
  return length * (length - 1) / std::max(Length(inside / radii), 1e-6F);
}
float Joined(float a, float b, float softness) {
  const float share = Clamped(0.5F + 0.5F * (b - a) / softness);
  return b + (a - b) * share - softness * share * (1 - share);
}

// The head is symmetrical: x is the distance from its middle.
float SkinField(Vec at) {
  const Vec p = {std::fabs(at.x), at.y, at.z};
  float d = Ellipsoid(p, {0, 0.32F, -0.12F}, {0.56F, 0.58F, 0.70F});
  d = Joined(d, Ellipsoid(p, {0, -0.14F, 0.17F}, {0.41F, 0.50F, 0.46F}), 0.16F);
  d = Joined(d, Ellipsoid(p, {0, -0.50F, 0.30F}, {0.24F, 0.17F, 0.26F}), 0.14F);
  d = Joined(d, Ellipsoid(p, {0, -0.85F, -0.14F}, {0.32F, 0.55F, 0.33F}), 0.12F);
  d = Joined(d, Ellipsoid(p, {0, -0.06F, 0.64F}, {0.06F, 0.20F, 0.12F}), 0.08F);
  d = Joined(d, Ellipsoid(p, {0, -0.18F, 0.71F}, {0.085F, 0.07F, 0.10F}), 0.07F);
  d = Joined(d, Ellipsoid(p, {0.17F, 0.15F, 0.52F}, {0.13F, 0.05F, 0.09F}), 0.09F);
  d = Joined(d, Ellipsoid(p, {0, -0.36F, 0.58F}, {0.14F, 0.035F, 0.06F}), 0.05F);
  d = Joined(d, Ellipsoid(p, {0, -0.43F, 0.57F}, {0.11F, 0.035F, 0.06F}), 0.05F);
  d = Joined(d, Ellipsoid(p, {0.57F, 0.02F, -0.12F}, {0.05F, 0.18F, 0.11F}), 0.05F);
  // The hollows of the eyes, and the eyes.
  d = -Joined(-d, Ellipsoid(p, {0.19F, 0.04F, 0.64F}, {0.11F, 0.08F, 0.10F}), 0.08F);
  return Joined(d, Ellipsoid(p, {0.19F, 0.04F, 0.49F}, {0.09F, 0.09F, 0.09F}), 0.02F);
}

float BoneField(Vec at) {
  const Vec p = {std::fabs(at.x), at.y, at.z};
  float d = Ellipsoid(p, {0, 0.32F, -0.12F}, {0.49F, 0.51F, 0.63F});
  d = Joined(d, Ellipsoid(p, {0, -0.10F, 0.18F}, {0.33F, 0.36F, 0.38F}), 0.12F);
  d = Joined(d, Ellipsoid(p, {0, -0.44F, 0.26F}, {0.22F, 0.15F, 0.26F}), 0.10F);
  // Sockets, the nose, the line between the teeth.
  d = -Joined(-d, Ellipsoid(p, {0.18F, 0.05F, 0.54F}, {0.13F, 0.11F, 0.20F}), 0.04F);
  d = -Joined(-d, Ellipsoid(p, {0, -0.13F, 0.56F}, {0.06F, 0.11F, 0.14F}), 0.03F);
  return p.z > 0.2F ? std::max(d, 0.014F - std::fabs(p.y + 0.35F)) : d;
}

float BrainField(Vec at) {
  const float folds = std::sin(19 * at.x + 3.0F * std::sin(11 * at.y + 5 * at.z)) *
                      std::cos(15 * at.z + 2.5F * std::sin(12 * at.y - 7 * at.x));
  const float d = Ellipsoid(at, {0, 0.36F, -0.12F}, {0.42F, 0.40F, 0.54F}) + 0.030F * folds;
  return std::max(d, 0.018F - std::fabs(at.x));
}

// Which part of the head is cut away; bone a little less than skin.
bool IsCut(Vec at, float margin) { return at.x > margin && at.y > 0.20F + margin; }

template <class Field>
unsigned char Lit(Tissue tissue, Field field, Vec at) {
  const Vec light = Unit({-0.25F, 0.75F, 0.75F});
  const float shade = 0.12F + 0.88F * std::max(Dot(Gradient(field, at), light), 0.0F);
  return static_cast<unsigned char>(tissue * kShades + static_cast<int>(Clamped(shade) * (kShades - 1)));
}

unsigned char VoxelAt(Vec at) {
  if (BrainField(at) < 0) return Lit(kBrain, BrainField, at);
  const float bone = BoneField(at);
  if (bone < 0 && bone > -0.055F && !IsCut(at, 0.05F)) return Lit(kBone, BoneField, at);
  const float skin = SkinField(at);
  if (skin < 0 && skin > -0.035F && !IsCut(at, 0.0F)) return Lit(kSkin, SkinField, at);
  return kAir;
}

}  // namespace

Volume MakeHead() {
  Volume volume{1, 0, {}, {}};
  volume.data.reserve(std::size_t{kSide} * kSide * kSide);
  ForEachVoxel(1.0F, [&](Vec at) { volume.data.push_back(VoxelAt(at)); });
  constexpr Vec kDark[] = {{}, {0.20F, 0.07F, 0.10F}, {0.20F, 0.17F, 0.20F}, {0.26F, 0.05F, 0.10F}};
  constexpr Vec kBright[] = {{}, {1.00F, 0.80F, 0.66F}, {1.00F, 0.96F, 0.86F}, {1.00F, 0.56F, 0.50F}};
  constexpr float kOpacity[] = {0, 0.17F, 0.80F, 0.90F};
  for (int value = 0; value < 256; ++value) {
    const int tissue = value / kShades;
    const Vec color =
        Mixed(kDark[tissue], kBright[tissue], static_cast<float>(value % kShades) / static_cast<float>(kShades - 1));
    volume.tables[0][value] = ToByte(color.x);
    volume.tables[1][value] = ToByte(color.y);
    volume.tables[2][value] = ToByte(color.z);
    volume.tables[3][value] = ToByte(kOpacity[tissue]);
  }
  return volume;
}
