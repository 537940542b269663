// Where the check takes vertices to lie: transforms, the view, display lists, GLU's solids.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "devhost/check/display_lists.h"
#include "devhost/check/solids.h"
#include "devhost/check/transform.h"
#include "devhost/check/view_count.h"

namespace {

using devhost::check::DisplayLists;
using devhost::check::kIdentity;
using devhost::check::LookingAt;
using devhost::check::Product;
using devhost::check::RankOf;
using devhost::check::Rotation;
using devhost::check::Scaling;
using devhost::check::Transform;
using devhost::check::Translation;
using devhost::check::View;
using devhost::check::ViewCount;
using devhost::check::WhyNoSolid;
using gl_trace::Function;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

// As glFrustum(-1, 1, -2, 2, 2, 6) makes it: seen is what lies between 2 and 6 before the eye.
constexpr Transform kFrustum{2, 0, 0, 0, 0, 1, 0, 0, 0, 0, -2, -1, 0, 0, -6, 0};

std::array<double, 3> Apply(const Transform& m, double x, double y, double z) {
  return {m[0] * x + m[4] * y + m[8] * z + m[12], m[1] * x + m[5] * y + m[9] * z + m[13],
          m[2] * x + m[6] * y + m[10] * z + m[14]};
}

std::vector<long long> Numbers(const ViewCount& count) {
  return {count.inside, count.tooNear, count.tooFar, count.beside};
}

std::vector<long long> CountOf(double x, double y, double z) {
  ViewCount count;
  View(kIdentity, kFrustum).Count(x, y, z, count);
  return Numbers(count);
}

// The arguments of a call of GLU: a quadric and these numbers.
struct SolidCall {
  SolidCall(Function called, std::initializer_list<double> numbers) : function(called), values(1) {
    for (const double number : numbers) values.emplace_back(number);
  }
  gl_trace::Call Call() const { return {function, values, {}}; }

  Function function;
  std::vector<gl_trace::Value> values;
};

std::vector<std::array<double, 3>> CornersOf(const SolidCall& solid) { return devhost::check::CornersOf(solid.Call()); }

TEST(CheckTransformTest, TheRightFactorHappensFirst) {
  const Transform moved = Product(Translation(1, 2, 3), Scaling(2, 3, 4));
  EXPECT_THAT(Apply(moved, 1, 1, 1), ElementsAre(3, 5, 7));
}

TEST(CheckTransformTest, RotationIsCounterClockwiseAboutAnAxisOfAnyLength) {
  EXPECT_THAT(Apply(Rotation(90, 0, 0, 5), 1, 0, 7), Pointwise(DoubleNear(1e-12), std::array<double, 3>{0, 1, 7}));
  EXPECT_THAT(Apply(Rotation(90, 2, 0, 0), 0, 1, 0), Pointwise(DoubleNear(1e-12), std::array<double, 3>{0, 0, 1}));
  EXPECT_EQ(Rotation(90, 0, 0, 0), kIdentity);
}

TEST(CheckTransformTest, TheViewerLooksAlongMinusZ) {
  const Transform view = LookingAt({0, 0, 10}, {5, 0, 10}, {0, 2, 0});
  EXPECT_THAT(Apply(view, 5, 1, 12), Pointwise(DoubleNear(1e-12), std::array<double, 3>{2, 1, -5}));
}

TEST(CheckTransformTest, RankCountsWhatIsLeft) {
  EXPECT_EQ(RankOf(kIdentity), 4);
  EXPECT_EQ(RankOf(Product(Translation(1e6, 0, 0), Scaling(1e-7, 1e-7, 1e-7))), 4);
  EXPECT_EQ(RankOf(Product(Rotation(30, 1, 1, 0), Scaling(1, 1, 0))), 3);
  EXPECT_EQ(RankOf(Scaling(0, 1, 0)), 2);
  EXPECT_EQ(RankOf(Transform{}), 0);
  EXPECT_EQ(RankOf(Scaling(1, std::nan(""), 1)), 3);
  EXPECT_EQ(RankOf(kFrustum), 4);
}

TEST(CheckViewTest, VerticesLieInsideOrOnOneSide) {
  EXPECT_THAT(CountOf(0, 0, -4), ElementsAre(1, 0, 0, 0));
  EXPECT_THAT(CountOf(0, 0, -1.9), ElementsAre(0, 1, 0, 0));
  EXPECT_THAT(CountOf(0, 0, 4), ElementsAre(0, 1, 0, 0));  // behind the eye
  EXPECT_THAT(CountOf(0, 0, -6.1), ElementsAre(0, 0, 1, 0));
  EXPECT_THAT(CountOf(2.1, 0, -4), ElementsAre(0, 0, 0, 1));
  EXPECT_THAT(CountOf(1.9, 3.9, -4), ElementsAre(1, 0, 0, 0));
  EXPECT_THAT(CountOf(0, -4.1, -4), ElementsAre(0, 0, 0, 1));
}

TEST(CheckViewTest, CountsReadAsAText) {
  EXPECT_EQ((ViewCount{.inside = 0, .tooNear = 8, .tooFar = 1, .beside = 0}).Text(),
            "9 vertices were drawn: none inside the view, 8 in front of it (too near, or behind the eye), 1 behind it "
            "(too far), none beside it");
  EXPECT_EQ((ViewCount{.inside = 1}).Text().substr(0, 18), "1 vertex was drawn");
}

TEST(CheckDisplayListsTest, AListDrawsWhereTheMatricesPutIt) {
  DisplayLists lists;
  lists.Vertex(0, 0, -4);  // not recorded
  lists.Begin(3);
  EXPECT_TRUE(lists.IsRecording());
  lists.Vertex(0, 0, -4);
  lists.Push();
  lists.Multiply(Translation(0, 0, -10));
  lists.Vertex(0, 0, -4);
  lists.Pop();
  lists.Pop();  // one too many changes nothing
  lists.Vertex(0, 0, -4);
  lists.LoadIdentity();
  lists.Vertex(0, 0, 0);
  lists.End();
  EXPECT_FALSE(lists.IsRecording());
  ViewCount count;
  lists.Count(3, kIdentity, kFrustum, count);
  EXPECT_THAT(Numbers(count), ElementsAre(2, 1, 1, 0));
  lists.Count(3, Translation(9, 0, 0), kFrustum, count);
  EXPECT_THAT(Numbers(count), ElementsAre(2, 2, 2, 2));
}

TEST(CheckDisplayListsTest, ListsReplayListsAndTheirMatricesStay) {
  DisplayLists lists;
  lists.Begin(1);
  lists.Multiply(Translation(0, 0, -4));
  lists.End();
  lists.Begin(2);
  lists.CallList(1);
  lists.Vertex(0, 0, 0);
  lists.CallList(2);  // itself, up to a depth
  lists.End();
  ViewCount count;
  lists.Count(2, kIdentity, kFrustum, count);
  EXPECT_EQ(count.inside, 1);
  EXPECT_EQ(count.tooFar, 63);
}

TEST(CheckDisplayListsTest, ANewRecordingReplacesAndDeletingForgets) {
  DisplayLists lists;
  for (const unsigned name : {5U, 6U, 7U}) {
    lists.Begin(name);
    lists.Vertex(0, 0, -4);
    lists.End();
  }
  lists.Begin(5);
  lists.End();
  lists.Delete(6, 1);
  ViewCount count;
  for (const unsigned name : {5U, 6U, 7U, 8U}) lists.Count(name, kIdentity, kFrustum, count);
  EXPECT_EQ(count.All(), 1);
  lists.Delete(1, ~0U);
  lists.Count(7, kIdentity, kFrustum, count);
  EXPECT_EQ(count.All(), 1);
}

TEST(CheckSolidsTest, CornersLieOnTheSolids) {
  const auto ball = CornersOf({Function::gluSphere, {2, 6, 4}});
  EXPECT_EQ(ball.size(), 7U * 5U);
  for (const auto& [x, y, z] : ball) EXPECT_NEAR(std::sqrt(x * x + y * y + z * z), 2, 1e-12);
  EXPECT_NEAR(ball.front()[2], 2, 1e-12);
  EXPECT_NEAR(ball.back()[2], -2, 1e-12);
  const auto cone = CornersOf({Function::gluCylinder, {3, 1, 4, 8, 2}});
  EXPECT_EQ(cone.size(), 9U * 3U);
  for (const auto& [x, y, z] : cone) EXPECT_NEAR(std::sqrt(x * x + y * y), 3 - z / 2, 1e-12);
  const auto sector = CornersOf({Function::gluPartialDisk, {1, 2, 2, 1, 90, 90}});
  // Clockwise from the y axis: from +x to -y.
  EXPECT_THAT(sector[3], Pointwise(DoubleNear(1e-12), std::array<double, 3>{2, 0, 0}));
  EXPECT_THAT(sector[5], Pointwise(DoubleNear(1e-12), std::array<double, 3>{0, -2, 0}));
  EXPECT_EQ(CornersOf({Function::gluDisk, {0, 2, 3, 2}}).size(), 4U * 3U);
}

TEST(CheckSolidsTest, WhatCannotBeSeenHasAReasonAndNoCorners) {
  for (const auto& [solid, why] : std::vector<std::pair<SolidCall, std::string>>{
           {{Function::gluSphere, {1, 2, 2}}, "2 slices make no body"},
           {{Function::gluSphere, {1, 8, 1}}, "1 stacks make no body"},
           {{Function::gluSphere, {0, 8, 8}}, "the radius is 0"},
           {{Function::gluCylinder, {-1, 1, 1, 8, 1}}, "a radius or the height is negative"},
           {{Function::gluCylinder, {0, 0, 1, 8, 1}}, "both radii are 0"},
           {{Function::gluCylinder, {1, 1, 0, 8, 1}}, "the height is 0"},
           {{Function::gluCylinder, {1, 1, 1, 8, 0}}, "0 stacks make no face"},
           {{Function::gluDisk, {2, 1, 8, 1}},
            "the inner radius (2) has to be 0 or more and less than the outer one (1)"},
           {{Function::gluDisk, {0, 1, 8, 0}}, "0 loops make no face"},
           {{Function::gluPartialDisk, {0, 1, 1, 1, 0, 90}}, "1 slice makes no body"},
       }) {
    EXPECT_EQ(WhyNoSolid(solid.Call()), why);
    EXPECT_TRUE(CornersOf(solid).empty()) << why;
  }
  EXPECT_EQ(WhyNoSolid(SolidCall(Function::gluCylinder, {1, 2, 0, 8, 1}).Call()), "");  // a ring
  EXPECT_EQ(WhyNoSolid(SolidCall(Function::gluPartialDisk, {0, 1, 2, 1, 0, 90}).Call()), "");
  EXPECT_TRUE(CornersOf({Function::glFrustum, {1, 2, 3, 4, 5}}).empty());
}

}  // namespace
