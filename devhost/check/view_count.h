// How much of what is drawn lies inside the view.
#pragma once

#include <string>

#include "devhost/check/transform.h"

namespace devhost::check {

// Vertices by where they lie.
struct ViewCount {
  long long inside = 0;
  long long tooNear = 0;  // before the view: nearer than its near plane, or behind the eye
  long long tooFar = 0;   // behind the view's far plane
  long long beside = 0;   // to its left or right, above or below

  long long All() const { return inside + tooNear + tooFar + beside; }
  // "8 vertices were drawn: none inside the view, 8 in front of it (...), none behind it, none beside it"
  std::string Text() const;
};

// What the matrices show.
class View {
 public:
  View(const Transform& modelView, const Transform& projection) : toClip(Product(projection, modelView)) {}

  // Counts the vertex, which the model-view matrix places.
  void Count(double x, double y, double z, ViewCount& count) const;

 private:
  Transform toClip;
};

}  // namespace devhost::check
