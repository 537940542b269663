// Points, rectangles and frusta as values.
#include "render/point.h"

#include <vector>

#include <gtest/gtest.h>

#include "tests/unit/support/near_variants.h"

namespace {

using Floats = std::vector<float>;

TEST(PointTest, Point) {
  OGLPoint point;
  EXPECT_EQ(Floats({point.x, point.y, point.z, point.w}), Floats({0, 0, 0, 1}));
  point.Set(0, 0, -2, 5);
  point.Normalize();
  EXPECT_EQ(Floats({point.x, point.y, point.z, point.w}), Floats({0, 0, -1, 1}));
  point.Set(0, 0, 0, 5);
  point.Normalize();
  EXPECT_EQ(Floats({point.x, point.y, point.z, point.w}), Floats({1, 0, 0, 1}));
}

TEST(PointTest, LengthIsSinglePrecision) {
  const auto scaled = [](auto length) { return [=](float x) { return x / length(x, 1.7F * x, 0.3F * x); }; };
  const float x = TellingArgument(scaled(Length), scaled(LengthFromTheEnd), scaled(LengthInDouble));
  OGLPoint point(x, 1.7F * x, 0.3F * x, 1);
  const float length = Length(point.x, point.y, point.z);
  point.Normalize();
  EXPECT_EQ(Floats({point.x, point.y, point.z}), Floats({x / length, 1.7F * x / length, 0.3F * x / length}));
}

TEST(PointTest, Rectangle) {
  const OGLRect empty;
  EXPECT_EQ(Floats({empty.left, empty.right, empty.top, empty.bottom}), Floats({0, 0, 0, 0}));
  const OGLRect rect(1, 2, 4, 8);
  EXPECT_EQ(Floats({rect.left, rect.right, rect.top, rect.bottom}), Floats({1, 4, 2, 8}));
  EXPECT_EQ(rect.Width(), 3.0F);
  EXPECT_EQ(rect.Height(), 6.0F);
}

TEST(PointTest, Frustum) {
  const OGLFrustum frustum(1, 2, 3, 4, 5, 7);
  EXPECT_EQ(Floats({frustum.left, frustum.right, frustum.top, frustum.bottom}), Floats({1, 2, 3, 4}));
  EXPECT_EQ(frustum.Depth(), -2.0F);
}

}  // namespace
