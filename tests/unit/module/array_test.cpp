// Arrays of a length that may be anything.
#include "geometry/array.h"

#include <gtest/gtest.h>

namespace {

TEST(ArrayTest, NoArrayIsEmpty) {
  const Array<int> none;
  EXPECT_FALSE(none);
  EXPECT_EQ(none.Count(), 0);
  EXPECT_EQ(none.Data(), nullptr);
}

TEST(ArrayTest, OfNoElementsItIsThereAllTheSame) {
  const Array<int> empty(0);
  EXPECT_TRUE(empty);
  EXPECT_EQ(empty.Count(), 0);
}

TEST(ArrayTest, LengthsThatAreNegativeOrNoIntGiveNone) {
  for (const long long count : {-1LL, LLONG_MIN, 1LL << 31, 1LL << 32}) {
    const Array<char> none(count);
    EXPECT_FALSE(none) << count;
    EXPECT_EQ(none.Count(), 0) << count;
  }
}

// Whether or not there is memory for it.
TEST(ArrayTest, TheLongestKeepsItsLength) { EXPECT_EQ(Array<char>(INT_MAX).Count(), INT_MAX); }

}  // namespace
