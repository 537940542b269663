// Names that somebody may have meant.
#include "devhost/runtime/near_names.h"

#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;
using devhost::DidYouMean;
using devhost::NearNames;

TEST(NearNamesTest, AreALetterOrTwoAway) {
  EXPECT_EQ(NearNames("SetViewport", {"SetViewPort", "GetViewPort"}), Names{"SetViewPort"});
  EXPECT_EQ(NearNames("Shpere", {"Sphere", "Square"}), Names{"Sphere"});
  EXPECT_EQ(NearNames("Sphre", {"Sphere"}), Names{"Sphere"});
  EXPECT_EQ(NearNames("Spheree", {"Sphere"}), Names{"Sphere"});
  EXPECT_EQ(NearNames("Fluhs", {"Flush"}), Names{"Flush"});
  EXPECT_EQ(NearNames("Flosh", {"Flush"}), Names{"Flush"});
  EXPECT_EQ(NearNames("Triangels", {"Triangles"}), Names{"Triangles"});
  EXPECT_EQ(NearNames("Triengels", {"Triangles"}), Names{"Triangles"});
}

TEST(NearNamesTest, FurtherOnesAreNone) {
  EXPECT_EQ(NearNames("Triongels", {"Quads", "Tringle"}), Names{});
  EXPECT_EQ(NearNames("Fulhs", {"Flush"}), Names{});
  EXPECT_EQ(NearNames("xy", {"xz", "x"}), Names{});
  EXPECT_EQ(NearNames("", {"a", ""}), Names{});
  EXPECT_EQ(NearNames("same", {"same"}), Names{});
}

TEST(NearNamesTest, ShortOnesDifferInCaseAlone) { EXPECT_EQ(NearNames("GL", {"gl", "go"}), Names{"gl"}); }

TEST(NearNamesTest, OnlyTheNearestCount) {
  EXPECT_EQ(NearNames("GetColors", {"SetColors", "GetColor", "GetColour", "getcolors"}), Names{"getcolors"});
  EXPECT_EQ(NearNames("Colors", {"Color1", "Colors1", "Color", "Colours", "Color", "Colorss"}),
            (Names{"Color1", "Colors1", "Color"}));
}

TEST(NearNamesTest, AreAskedFor) {
  EXPECT_EQ(DidYouMean("colr", {"color"}), "did you mean color?");
  EXPECT_EQ(DidYouMean("colr", {"color", "colt"}, "A::"), "did you mean A::color or A::colt?");
  EXPECT_EQ(DidYouMean("colr", {"color", "colt", "cola"}), "did you mean color, colt or cola?");
  EXPECT_EQ(DidYouMean("colr", {"x"}), "");
}

}  // namespace
