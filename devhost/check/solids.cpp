#include "devhost/check/solids.h"

#include <cmath>
#include <numbers>

#include "devhost/runtime/text.h"

namespace devhost::check {
namespace {

using gl_trace::Call;
using gl_trace::Function;

constexpr double kDegree = std::numbers::pi / 180;

// A circle's place along the axis, and its radius.
struct Ring {
  double radius;
  double z;
};

using Corners = std::vector<std::array<double, 3>>;

// `ringAt` gives the ring at a share of the way from the first (0) to the last (1).
template <class RingAt>
Corners CornersOfRings(int rings, int sectors, double start, double sweep, RingAt ringAt) {
  Corners corners;
  for (int i = 0; i <= rings; ++i) {
    const Ring ring = ringAt(static_cast<double>(i) / rings);
    for (int j = 0; j <= sectors; ++j) {
      const double angle = (start + sweep * j / sectors) * kDegree;
      corners.push_back({ring.radius * std::sin(angle), ring.radius * std::cos(angle), ring.z});
    }
  }
  return corners;
}

// How many sectors and rings the call asks for; none of other calls.
struct Counts {
  int slices = 0;
  int stacks = 0;
};

Counts CountsOf(const Call& call) {
  switch (call.function) {
    case Function::gluSphere:
      return {static_cast<int>(call[2]), static_cast<int>(call[3])};
    case Function::gluCylinder:
      return {static_cast<int>(call[4]), static_cast<int>(call[5])};
    case Function::gluDisk:
    case Function::gluPartialDisk:
      return {static_cast<int>(call[3]), static_cast<int>(call[4])};
    default:
      return {};
  }
}

bool IsDisk(const Call& call) {
  return call.function == Function::gluDisk || call.function == Function::gluPartialDisk;
}

std::string Count(int count, const char* what) { return Decimal(count) + " " + what; }

// The fewest slices that show a body.
int FewestSlices(const Call& call) { return call.function == Function::gluPartialDisk ? 2 : 3; }

}  // namespace

Corners CornersOf(const Call& call) {
  const auto [slices, stacks] = CountsOf(call);
  if (!WhyNoSolid(call).empty() || slices == 0) return {};
  if (call.function == Function::gluSphere) {
    return CornersOfRings(stacks, slices, 0, 360, [&call](double share) {
      const double angle = std::numbers::pi * share;
      return Ring{call[1] * std::sin(angle), call[1] * std::cos(angle)};
    });
  }
  const bool isPart = call.function == Function::gluPartialDisk;
  const double height = IsDisk(call) ? 0 : call[3];
  return CornersOfRings(stacks, slices, isPart ? call[5] : 0, isPart ? call[6] : 360,
                        [&](double share) { return Ring{std::lerp(call[1], call[2], share), height * share}; });
}

std::string WhyNoSolid(const Call& call) {
  const auto [slices, stacks] = CountsOf(call);
  switch (call.function) {
    case Function::gluSphere:
      if (stacks < 2) return Count(stacks, "stacks make no body");
      if (call[1] == 0) return "the radius is 0";
      break;
    case Function::gluCylinder:
      if (call[1] < 0 || call[2] < 0 || call[3] < 0) return "a radius or the height is negative";
      if (call[1] == 0 && call[2] == 0) return "both radii are 0";
      if (call[3] == 0 && call[1] == call[2]) return "the height is 0";
      break;
    case Function::gluDisk:
    case Function::gluPartialDisk:
      if (call[1] < 0 || call[2] <= 0 || call[1] >= call[2]) {
        return "the inner radius (" + ShortestText(call[1]) + ") has to be 0 or more and less than the outer one (" +
               ShortestText(call[2]) + ")";
      }
      break;
    default:
      return {};
  }
  if (slices < FewestSlices(call)) return Count(slices, slices == 1 ? "slice makes no body" : "slices make no body");
  return stacks < 1 ? Count(stacks, IsDisk(call) ? "loops make no face" : "stacks make no face") : std::string();
}

}  // namespace devhost::check
