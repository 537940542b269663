// The hit records of a selection: how the select buffer becomes Vectors.
#include <string>
#include <vector>

#include "tests/unit/support/fixture.h"
#include "tests/unit/support/host_calls.h"

namespace {

using HitRecordsTest = ModuleTest;
using Words = std::vector<unsigned>;

constexpr unsigned kWords = 512;  // of the select buffer

// What EndSelection returns when OpenGL reports the hits and leaves the words in the buffer.
Variable Hits(Variable& renderer, int hits, const Words& words) {
  recorder::Get().answers.hits = hits;
  recorder::Get().answers.hitRecords = words;
  Call(renderer, "BeginSelection", 1, 1, 1, 1);
  Host() = {};
  const Variable result = Call(renderer, "EndSelection");
  EXPECT_EQ(Host().outsideElements, 0);
  TakeLog();
  return result;
}

// The same on a new renderer, printed as a script prints it.
std::string Printed(int hits, const Words& words) {
  Variable renderer = OpenRenderer();
  return devhost::TextOf(Hits(renderer, hits, words));
}

// The nearest depth in a record with this word.
float Depth(unsigned word) {
  Variable renderer = OpenRenderer();
  return Hits(renderer, 1, {0, word, 0})[0][1];
}

TEST_F(HitRecordsTest, NamesComeBottomFirstThenTheDepths) {
  EXPECT_EQ(Printed(1, {2, 0, 0xFFFFFFFF, 7, 9}), "[[[7, 9], 0, 2]]");
}

TEST_F(HitRecordsTest, RecordsKeepOpenGLsOrder) {
  EXPECT_EQ(Printed(3, {1, 0x80000000, 0xC0000000, 5, 3, 0, 0x40000000, 4, 3, 2, 0, 0x20000000, 0x20000000}),
            "[[[5], 1, 1.5], [[4, 3, 2], 0, 0.5], [[], 0.25, 0.25]]");
}

TEST_F(HitRecordsTest, NoHitsAreAnEmptyVector) {
  Variable renderer = OpenRenderer();
  Variable hits = Hits(renderer, 0, {1, 0, 0, 5});
  EXPECT_EQ(hits.GetType(), TVAR_ARRAY);
  EXPECT_EQ(hits.GetDim(), 0);
}

TEST_F(HitRecordsTest, ValuesAreOfTheRequiredTypes) {
  Variable renderer = OpenRenderer();
  Variable hits = Hits(renderer, 1, {1, 0, 0, 0xFFFFFFFF});
  EXPECT_EQ(hits[0].GetType(), TVAR_ARRAY);
  EXPECT_EQ(hits[0].GetDim(), 3);
  EXPECT_EQ(hits[0][0].GetType(), TVAR_ARRAY);
  EXPECT_EQ(hits[0][1].GetType(), TVAR_FLOAT);
  EXPECT_EQ(hits[0][2].GetType(), TVAR_FLOAT);
  EXPECT_EQ(static_cast<double>(hits[0][0][0]), 4294967295.0);  // unsigned
}

TEST_F(HitRecordsTest, DepthsAreScaledBy2To31) {
  EXPECT_EQ(Depth(0), 0.0F);
  EXPECT_EQ(Depth(1), 0x1p-31F);
  EXPECT_EQ(Depth(0x7FFFFF80), 0x1.FFFFFEp-1F);
  EXPECT_EQ(Depth(0x80000000), 1.0F);
  EXPECT_EQ(Depth(0xFFFFFFFF), 2.0F);
}

TEST_F(HitRecordsTest, DepthsAreRoundedToTheNearestFloat) {
  // Floats lie 256 apart here; a half goes to the even one.
  EXPECT_EQ(Depth(0x80000080), 1.0F);
  EXPECT_EQ(Depth(0x80000081), 0x1.000002p0F);
  EXPECT_EQ(Depth(0x80000180), 0x1.000004p0F);
}

TEST_F(HitRecordsTest, AnOverflowIsAnEmptyVectorInThisHost) {
  Variable renderer = OpenRenderer();
  Variable hits = Hits(renderer, -1, Words(kWords, 1));
  EXPECT_EQ(hits.GetType(), TVAR_ARRAY);
  EXPECT_EQ(hits.GetDim(), 0);
  // The selection has ended all the same.
  Call(renderer, "EndSelection");
  ExpectModuleError(5, "OpenGL is not in the Selection Mode");
}

TEST_F(HitRecordsTest, ARecordMayFillTheBuffer) {
  Words words(kWords, 77);
  words[0] = kWords - 3;
  Variable renderer = OpenRenderer();
  Variable hits = Hits(renderer, 1, words);
  EXPECT_EQ(hits[0][0].GetDim(), 509);
  EXPECT_EQ(static_cast<int>(hits[0][0][508]), 77);
}

TEST_F(HitRecordsTest, ARecordWithoutNamesMayEndTheBuffer) {
  Words words(kWords, 0);
  words[0] = kWords - 6;
  words[kWords - 2] = 0x80000000;
  Variable renderer = OpenRenderer();
  EXPECT_EQ(devhost::TextOf(Hits(renderer, 2, words)[1]), "[[], 1, 0]");
}

TEST_F(HitRecordsTest, ARecordThatDoesNotFitIsLeftEmptyAndEndsTheBuffer) {
  for (const unsigned count : {kWords - 2, kWords, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    EXPECT_EQ(Printed(2, {count, 0, 0}), "[nothing, nothing]") << count;
    EXPECT_EQ(Printed(3, {1, 0, 0, 8, count, 0, 0}), "[[[8], 0, 0], nothing, nothing]") << count;
  }
}

TEST_F(HitRecordsTest, MoreRecordsThanTheBufferHoldsAreLeftEmpty) {
  Variable renderer = OpenRenderer();
  Variable hits = Hits(renderer, 1000, Words(kWords, 0));
  ASSERT_EQ(hits.GetDim(), 1000);
  EXPECT_EQ(devhost::TextOf(hits[169]), "[[], 0, 0]");  // words 507 to 509
  EXPECT_EQ(devhost::KindOf(hits[170]), "nothing");
  EXPECT_EQ(devhost::KindOf(hits[999]), "nothing");
}

TEST_F(HitRecordsTest, OldRecordsDoNotComeBack) {
  Variable renderer = OpenRenderer();
  Hits(renderer, 2, {1, 0, 0, 5, 1, 0, 0, 6});
  EXPECT_EQ(devhost::TextOf(Hits(renderer, 1, {1, 0, 0, 7})), "[[[7], 0, 0]]");
}

}  // namespace
