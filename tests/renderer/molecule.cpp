#include "tests/renderer/volume.h"

namespace {

struct Atom {
  Vec at;  // in 1e-10 m
  char element;
};

constexpr Atom kAtoms[] = {
    {{0.47F, 2.57F, 0.00F}, 'O'},    {{-3.13F, -0.44F, 0.00F}, 'O'}, {{-0.97F, -1.31F, 0.00F}, 'N'},
    {{2.22F, 0.14F, 0.00F}, 'N'},    {{-1.35F, 1.08F, 0.00F}, 'N'},  {{1.41F, -1.94F, 0.00F}, 'N'},
    {{0.86F, 0.26F, 0.00F}, 'C'},    {{0.39F, -1.03F, 0.00F}, 'C'},  {{0.03F, 1.42F, 0.00F}, 'C'},
    {{-1.91F, -0.25F, 0.00F}, 'C'},  {{2.50F, -1.20F, 0.00F}, 'C'},  {{-1.43F, -2.70F, 0.00F}, 'C'},
    {{3.19F, 1.21F, 0.00F}, 'C'},    {{-2.30F, 2.19F, 0.00F}, 'C'},  {{3.52F, -1.58F, 0.00F}, 'H'},
    {{-1.05F, -3.20F, -0.89F}, 'H'}, {{-2.52F, -2.76F, 0.00F}, 'H'}, {{-1.04F, -3.20F, 0.90F}, 'H'},
    {{4.20F, 0.78F, 0.00F}, 'H'},    {{3.05F, 1.81F, -0.90F}, 'H'},  {{3.05F, 1.81F, 0.90F}, 'H'},
    {{-1.81F, 3.17F, 0.00F}, 'H'},   {{-2.93F, 2.10F, 0.89F}, 'H'},  {{-2.93F, 2.10F, -0.88F}, 'H'}};

constexpr float kLongestBond = 1.6F;
constexpr float kReach = 4.8F;
constexpr unsigned char kHaze[] = {58, 60, 57};

Vec ColorOf(char element) {
  if (element == 'O') return {1.00F, 0.30F, 0.24F};
  if (element == 'N') return {0.42F, 0.50F, 1.00F};
  if (element == 'C') return {0.22F, 0.86F, 0.80F};
  return {1.00F, 0.86F, 0.55F};
}
float SizeOf(char element) { return element == 'H' ? 0.40F : 0.62F; }

float Cloud(float distance, float size) { return std::exp(-distance * distance / (size * size) * 1.4F); }

// A density and, unless it is null, the colour that the atoms and bonds give it.
float Density(Vec at, Vec* color) {
  float density = 0;
  Vec sum{};
  const auto add = [&](float amount, Vec of) {
    density += amount;
    sum = sum + of * amount;
  };
  for (const Atom& atom : kAtoms) {
    add(Cloud(Length(at - atom.at), SizeOf(atom.element)), ColorOf(atom.element));
    for (const Atom& other : kAtoms) {
      const Vec bond = other.at - atom.at;
      if (&other <= &atom || Length(bond) > kLongestBond || (atom.element == 'H' && other.element == 'H')) continue;
      const float share = Clamped(Dot(at - atom.at, bond) / Dot(bond, bond));
      add(0.7F * Cloud(Length(at - atom.at - bond * share), 0.24F),
          Mixed(ColorOf(atom.element), ColorOf(other.element), share));
    }
  }
  if (color) *color = sum * (1.0F / std::max(density, 1e-9F));
  return density;
}

}  // namespace

Volume MakeMolecule() {
  Volume volume{3, 6, {}, {}};
  volume.data.reserve(std::size_t{3} * kSide * kSide * kSide);
  const Vec light = Unit({-0.4F, 0.7F, 0.6F});
  ForEachVoxel(kReach, [&](Vec at) {
    Vec color{};
    const float density = std::fabs(at.z) < 2.2F ? Density(at, &color) : 0;
    const float strength = Ramp(0.16F, 0.40F, density);
    if (strength < 0.02F) {
      volume.data.insert(volume.data.end(), std::begin(kHaze), std::end(kHaze));
      return;
    }
    const Vec normal = Gradient([](Vec p) { return -Density(p, nullptr); }, at);
    const float facing = std::max(Dot(normal, light), 0.0F);
    const Vec lit = color * (0.45F + 0.75F * facing) + Vec{1, 1, 1} * (0.30F * std::pow(facing, 20.0F));
    for (const float channel : {lit.z, lit.y, lit.x}) volume.data.push_back(ToByte(channel * strength));
  });
  for (int mean = 0; mean < 256; ++mean) {
    volume.tables[3][mean] = ToByte(0.70F * Ramp(30, 130, static_cast<float>(mean)));
  }
  return volume;
}
