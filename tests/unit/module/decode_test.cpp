// Points and colours out of Vectors.
#include "geometry/decode.h"

#include <vector>

#include "tests/unit/support/allocation.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/value_trace.h"

namespace {

using DecodeTest = ModuleTest;

Floats Values(Triples& triples) { return {triples.Values(), triples.Values() + std::ptrdiff_t{3} * triples.Count()}; }

Floats Points(Variable vector) {
  Triples triples = DecodePoints(vector);
  EXPECT_TRUE(triples);
  return Values(triples);
}

Floats Colors(Variable vector, int expectedCount) {
  Triples triples = DecodeColors(vector, expectedCount);
  EXPECT_TRUE(triples);
  return Values(triples);
}

Variable Row(float first, float second, float third) { return Numbers({first, second, third}); }
Variable Color(float red, float green, float blue) { return NewColor(red, green, blue, 0.5F); }

TEST_F(DecodeTest, NoTriplesAreNone) {
  const Triples none;
  EXPECT_FALSE(none);
  EXPECT_EQ(none.Count(), 0);
}

TEST_F(DecodeTest, FlatNumbers) { EXPECT_EQ(Points(Numbers({1, 2, 3, 4.5F, 5, 6})), Floats({1, 2, 3, 4.5F, 5, 6})); }

TEST_F(DecodeTest, FlatIntegersBecomeFloats) { EXPECT_EQ(Points(Integers({1, -2, 3})), Floats({1, -2, 3})); }

TEST_F(DecodeTest, TrailingNumbersAreIgnored) {
  EXPECT_EQ(Points(Numbers({1, 2, 3, 4, 5, 6, 7})), Floats({1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(Points(Numbers({1, 2, 3, 4, 5})), Floats({1, 2, 3}));
  EXPECT_EQ(Points(Numbers({1, 2})), Floats());
}

TEST_F(DecodeTest, EmptyVectorHasNoTriplesButAnArray) {
  Variable vector = Numbers({});
  const Triples points = DecodePoints(vector);
  EXPECT_TRUE(points);
  EXPECT_EQ(points.Count(), 0);
  const Triples colors = DecodeColors(vector, 3);
  EXPECT_TRUE(colors);
  EXPECT_EQ(colors.Count(), 0);
}

TEST_F(DecodeTest, ArraysHaveOneSpareFloat) {
  const Triples none(0);
  EXPECT_TRUE(none);
  EXPECT_EQ(LastAllocationSize(), sizeof(float));
  const Triples two(2);
  EXPECT_EQ(two.Count(), 2);
  EXPECT_EQ(LastAllocationSize(), 7 * sizeof(float));
}

TEST_F(DecodeTest, PointObjects) {
  EXPECT_EQ(Points(Vector({Point3(1, 2, 3), Point3(4, 5, 6)})), Floats({1, 2, 3, 4, 5, 6}));
}

TEST_F(DecodeTest, NestedVectors) {
  EXPECT_EQ(Points(Vector({Row(1, 2, 3), Row(4, 5, 6)})), Floats({1, 2, 3, 4, 5, 6}));
}

TEST_F(DecodeTest, ObjectsAndNestedVectorsMix) {
  EXPECT_EQ(Points(Vector({Row(1, 2, 3), Point3(4, 5, 6), Row(7, 8, 9)})), Floats({1, 2, 3, 4, 5, 6, 7, 8, 9}));
  EXPECT_EQ(Points(Vector({Point3(1, 2, 3), Row(4, 5, 6)})), Floats({1, 2, 3, 4, 5, 6}));
}

TEST_F(DecodeTest, FourthElementOfARowIsIgnored) {
  EXPECT_EQ(Points(Vector({Numbers({1, 2, 3, 4}), Numbers({5, 6, 7, 8})})), Floats({1, 2, 3, 5, 6, 7}));
}

TEST_F(DecodeTest, ColorObjects) {
  EXPECT_EQ(Colors(Vector({Color(0.1F, 0.2F, 0.3F), Color(4, 5, 6)}), 2), Floats({0.1F, 0.2F, 0.3F, 4, 5, 6}));
}

TEST_F(DecodeTest, NestedColorsMixWithObjects) {
  EXPECT_EQ(Colors(Vector({Row(1, 2, 3), Color(4, 5, 6)}), 7), Floats({1, 2, 3, 4, 5, 6}));
}

TEST_F(DecodeTest, AsManyNumbersAsPointsArePackedColors) {
  EXPECT_EQ(Colors(Integers({0x0000FF80}), 1), Floats({128.0F / 255.0F, 1, 0}));
  EXPECT_EQ(Colors(Integers({0x00030201, 0x00FF0000}), 2),
            Floats({1.0F / 255.0F, 2.0F / 255.0F, 3.0F / 255.0F, 0, 0, 1}));
}

TEST_F(DecodeTest, BytesOfPackedColorsAreDividedInSinglePrecision) {
  for (int byte = 0; byte < 256; ++byte) {
    const int inverse = 255 - byte;
    const float share = static_cast<float>(byte) / 255.0F;
    EXPECT_EQ(Colors(Integers({byte | inverse << 8 | byte << 16}), 1),
              Floats({share, static_cast<float>(inverse) / 255.0F, share}));
  }
}

TEST_F(DecodeTest, ByteAboveBlueIsIgnored) {
  EXPECT_EQ(Colors(Integers({static_cast<int>(0xFF030201)}), 1), Floats({1.0F / 255.0F, 2.0F / 255.0F, 3.0F / 255.0F}));
}

TEST_F(DecodeTest, PackedColorsMayBeFloats) {
  EXPECT_EQ(Colors(Numbers({255.0F, 65280.0F}), 2), Floats({1, 0, 0, 0, 1, 0}));
}

TEST_F(DecodeTest, ThreeNumbersForThreePointsArePacked) {
  EXPECT_EQ(Colors(Integers({0xFF, 0xFF00, 0xFF0000}), 3), Floats({1, 0, 0, 0, 1, 0, 0, 0, 1}));
}

TEST_F(DecodeTest, ThreeNumbersForOnePointAreOneFlatTriple) {
  EXPECT_EQ(Colors(Numbers({0.1F, 0.2F, 0.3F}), 1), Floats({0.1F, 0.2F, 0.3F}));
}

TEST_F(DecodeTest, OtherNumbersOfNumbersAreFlatColors) {
  EXPECT_EQ(Colors(Numbers({1, 2, 3, 4, 5, 6, 7, 8}), 3), Floats({1, 2, 3, 4, 5, 6}));
}

TEST_F(DecodeTest, ShapeIsChosenByTheFirstElement) {
  EXPECT_EQ(Points(Vector({Variable(1.0F), Variable(2.0F), Row(7, 8, 9)})), Floats({1, 2, 0}));
  ExpectError(devhost::kErrorConversion, "");
  EXPECT_EQ(Points(Vector({Row(7, 8, 9), Variable(1.0F)})), Floats({7, 8, 9, 0, 0, 0}));
  EXPECT_TRUE(devhost::PendingError());
  devhost::ClearError();
}

TEST_F(DecodeTest, BadElementsSetTheErrorStatusAndDecodingGoesOn) {
  EXPECT_EQ(Points(Vector({Variable(1.0F), Text("two"), Variable(3.0F)})), Floats({1, 0, 3}));
  ExpectError(devhost::kErrorConversion, "");
  EXPECT_EQ(Points(Vector({Numbers({1, 2}), Row(3, 4, 5)})), Floats({1, 2, 0, 3, 4, 5}));
  ExpectError(devhost::kErrorConversion, "");
  EXPECT_EQ(Colors(Vector({Color(1, 2, 3), Point3(4, 5, 6)}), 2), Floats({1, 2, 3, 0, 0, 0}));
  EXPECT_TRUE(devhost::PendingError());
  devhost::ClearError();
}

// ---- In which order the host is asked

std::string ReadsOfPoints(Variable vector) {
  const ValueTrace trace({{&vector, "points"}});
  DecodePoints(vector);
  return TakeLog();
}

TEST_F(DecodeTest, NumbersAreReadOneByOne) {
  EXPECT_EQ(ReadsOfPoints(Numbers({1, 2, 3, 4})),
            Lines({"points: GetDim()", "points: element(0)", "value: IsNumber()", "points: element(0)",
                   "points: element(1)", "points: element(2)"}));
}

TEST_F(DecodeTest, RowsAreReadByElementOrByName) {
  EXPECT_EQ(ReadsOfPoints(Vector({Point3(1, 2, 3), Row(4, 5, 6)})),
            Lines({"points: GetDim()", "points: element(0)", "value: IsNumber()", "GetNameID(x)", "GetNameID(y)",
                   "GetNameID(z)", "points: element(0)", "value: field(x)", "value: field(y)", "value: field(z)",
                   "points: element(1)", "value: element(0)", "value: element(1)", "value: element(2)"}));
}

TEST_F(DecodeTest, ColorsAreReadAsPointsAre) {
  Variable colors = Vector({Color(1, 2, 3)});
  const ValueTrace trace({{&colors, "colors"}});
  DecodeColors(colors, 1);
  EXPECT_EQ(TakeLog(), Lines({"colors: GetDim()", "colors: element(0)", "value: IsNumber()", "GetNameID(Red)",
                              "GetNameID(Green)", "GetNameID(Blue)", "colors: element(0)", "value: field(Red)",
                              "value: field(Green)", "value: field(Blue)"}));
}

TEST_F(DecodeTest, ControlsAreReadPointByPoint) {
  Variable xs = Numbers({1, 2});
  Variable ys = Numbers({3, 4});
  Variable zs = Numbers({5, 6});
  const ValueTrace trace({{&xs, "xs"}, {&ys, "ys"}, {&zs, "zs"}});
  Triples controls(2);
  DecodeControls(controls, xs, ys, &zs);
  const std::string first = Lines({"xs: element(0)", "ys: element(0)", "zs: element(0)"});
  EXPECT_EQ(TakeLog(), first + Lines({"xs: element(1)", "ys: element(1)", "zs: element(1)"}));
  PackRow(7, xs, ys, controls.Values(), 1);
  EXPECT_EQ(TakeLog(), Lines({"xs: element(0)", "ys: element(0)"}));
}

TEST_F(DecodeTest, ListsOfPointsAndOfNormalsAreReadInTurn) {
  Variable points = Vector({Row(1, 2, 3), Row(4, 5, 6)});
  Variable normals = Vector({Row(1, 2, 3), Row(4, 5, 6)});
  const ValueTrace trace({{&points, "points"}, {&normals, "normals"}});
  const PointLists lists(points, normals);
  std::string order;
  for (const recorder::Call& call : recorder::Get().calls) {
    if (!call.name.starts_with("value: ")) order += call.Text() + "\n";
  }
  TakeLog();
  EXPECT_EQ(order, Lines({"points: GetDim()", "points: element(0)", "normals: element(0)", "points: element(1)",
                          "normals: element(1)"}));
}

TEST_F(DecodeTest, WithoutMemoryThereIsNoArray) {
  Variable vector = Numbers({1, 2, 3});
  {
    const FailingAllocation failure(1);
    EXPECT_FALSE(DecodePoints(vector));
  }
  const FailingAllocation failure(1);
  EXPECT_FALSE(DecodeColors(vector, 3));
}

TEST_F(DecodeTest, NegativeCountsHaveNoArray) { EXPECT_FALSE(Triples(-1)); }

}  // namespace
