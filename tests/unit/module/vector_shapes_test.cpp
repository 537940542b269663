// Every batch takes its points, normals and colours in every shape of Vector.
#include <string>
#include <string_view>
#include <vector>

#include "tests/unit/support/drawing.h"

namespace {

using VectorShapesTest = ModuleTest;

// A row with what each of its Vectors holds: points, normals or colours.
struct Row {
  const char* name;
  std::string_view kinds;
};

const Row kRows[] = {
    {"SetPoints", "p"},
    {"LineStrip", "p"},
    {"Lines", "p"},
    {"ColorLines", "pc"},
    {"Triangles(refer object Vector)", "p"},
    {"Triangles(refer object Vector, refer object Vector)", "pn"},
    {"ColorTriangles", "pnc"},
    {"TriangleStrip(refer object Vector)", "p"},
    {"TriangleStrip(refer object Vector, refer object Vector)", "pn"},
    {"QuadStrip", "pn"},
    {"Quads", "pn"},
    {"Polygon", "pn"},
    {"ColorQuads", "pnc"},
    {"ColorPolygon", "pnc"},
};

// As many as every row takes.
constexpr int kCount = 12;

// Numbers that differ from one argument to the next.
Floats TriplesFor(std::size_t argument) {
  Floats numbers = Counting(kCount);
  for (float& number : numbers) number += 100.25F * static_cast<float>(argument);
  return numbers;
}

enum class Shape { Flat, OneMore, TwoMore, Objects, Nested, Mixed, FourElements };

Variable Element(const float* triple, char kind, Shape shape, int i) {
  const bool object = shape == Shape::Objects || (shape == Shape::Mixed && i % 2 == 0);
  if (!object && shape == Shape::FourElements) return Numbers({triple[0], triple[1], triple[2], 99});
  if (!object) return Numbers({triple[0], triple[1], triple[2]});
  if (kind != 'c') return Point3(triple[0], triple[1], triple[2]);
  return New("OglColor(number, number, number, number)", triple[0], triple[1], triple[2], 0.5F);
}

Variable Shaped(Floats numbers, char kind, Shape shape) {
  if (shape == Shape::OneMore || shape == Shape::TwoMore) numbers.push_back(77);
  if (shape == Shape::TwoMore) numbers.push_back(88);
  if (shape <= Shape::TwoMore) return Numbers(numbers);
  std::vector<Variable> elements;
  for (int i = 0; i < kCount; ++i) elements.push_back(Element(numbers.data() + std::ptrdiff_t{3} * i, kind, shape, i));
  return Vector(elements);
}

// What the row draws when one of its Vectors has the shape and the others are flat.
std::string Drawn(Variable& renderer, const Row& row, std::size_t argument, Shape shape) {
  std::vector<Variable> vectors;
  for (std::size_t i = 0; i < row.kinds.size(); ++i) {
    vectors.push_back(Shaped(TriplesFor(i), row.kinds[i], i == argument ? shape : Shape::Flat));
  }
  CallRow(renderer, row.name, vectors);
  return TakeLog();
}

TEST_F(VectorShapesTest, AllShapesDrawTheSame) {
  Variable renderer = OpenRenderer();
  for (const Row& row : kRows) {
    const std::string flat = Drawn(renderer, row, 0, Shape::Flat);
    ASSERT_EQ(CountVertices(flat), kCount) << row.name;
    for (std::size_t argument = 0; argument < row.kinds.size(); ++argument) {
      for (int shape = 1; shape <= static_cast<int>(Shape::FourElements); ++shape) {
        EXPECT_EQ(Drawn(renderer, row, argument, Shape{shape}), flat)
            << row.name << ", argument " << argument << ", shape " << shape;
      }
    }
  }
  EXPECT_EQ(devhost::RaisedCount(), 0);
}

TEST_F(VectorShapesTest, AsManyNumbersAsPointsArePackedColors) {
  Variable renderer = OpenRenderer();
  const std::vector<int> packed(kCount, 0x0000FF80);
  Floats same;
  for (int i = 0; i < kCount; ++i) same.insert(same.end(), {128.0F / 255.0F, 1, 0});
  for (const Row& row : kRows) {
    if (row.kinds.back() != 'c') continue;
    std::vector<Variable> vectors(row.kinds.size(), Numbers(Counting(kCount)));
    devhost::Assign(vectors.back(), Integers(packed));
    CallRow(renderer, row.name, vectors);
    const std::string log = TakeLog();
    devhost::Assign(vectors.back(), Numbers(same));
    CallRow(renderer, row.name, vectors);
    EXPECT_EQ(log, TakeLog()) << row.name;
    EXPECT_EQ(CountVertices(log), kCount) << row.name;
  }
}

}  // namespace
