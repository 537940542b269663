#include "devhost/check/view_count.h"

#include <cmath>

#include "devhost/runtime/text.h"

namespace devhost::check {
namespace {

std::string Number(long long count) { return count == 0 ? "none" : Decimal(count); }

}  // namespace

std::string ViewCount::Text() const {
  const long long all = All();
  return Decimal(all) + (all == 1 ? " vertex was" : " vertices were") + " drawn: " + Number(inside) +
         " inside the view, " + Number(tooNear) + " in front of it (too near, or behind the eye), " + Number(tooFar) +
         " behind it (too far), " + Number(beside) + " beside it";
}

// OpenGL keeps what lies between -w and w along each axis; w grows with the distance from the eye.
void View::Count(double x, double y, double z, ViewCount& count) const {
  const auto row = [&](std::size_t i) {
    return toClip[i] * x + toClip[4 + i] * y + toClip[8 + i] * z + toClip[12 + i];
  };
  const double w = row(3);
  const double depth = row(2);
  if (depth < -w) {
    ++count.tooNear;
  } else if (depth > w) {
    ++count.tooFar;
  } else if (std::abs(row(0)) > w || std::abs(row(1)) > w) {
    ++count.beside;
  } else {
    ++count.inside;
  }
}

}  // namespace devhost::check
