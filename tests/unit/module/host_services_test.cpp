// Exported type promotion, memory and access to the interpreter.
#include <algorithm>
#include <cstdlib>
#include <limits>

#include "tests/unit/support/value_fixture.h"

namespace {

using HostServicesTest = ValueTest;

TEST_F(HostServicesTest, TopTypeIsTheWiderOfEveryPairOfNumbers) {
  // From narrow to wide: the 64-bit integer's tag is the lowest.
  constexpr TVARTYPE kByWidth[] = {TVAR_BYTE, TVAR_INT32, TVAR_INT64, TVAR_FLOAT, TVAR_DOUBLE};
  for (int a = 0; a < 5; ++a) {
    for (int b = 0; b < 5; ++b) EXPECT_EQ(TopType(kByWidth[a], kByWidth[b]), kByWidth[std::max(a, b)]);
  }
}

TEST_F(HostServicesTest, TopTypeOfWhatIsNoNumberIsNone) {
  constexpr int kNumbers[] = {2, 4, 8, 16, 32};
  constexpr int kOthers[] = {0, 1, 64, 65, 128, 256, 512, 1024, 2048, 4096, 1 << 30, std::numeric_limits<int>::min()};
  for (const int other : kOthers) {
    for (const int number : kNumbers) {
      EXPECT_EQ(TopType(TVARTYPE{other}, TVARTYPE{number}), 65535);
      EXPECT_EQ(TopType(TVARTYPE{number}, TVARTYPE{other}), 65535);
    }
    for (const int second : kOthers) EXPECT_EQ(TopType(TVARTYPE{other}, TVARTYPE{second}), 65535);
  }
}

TEST_F(HostServicesTest, MemoryIsZeroedAndNothingPastIt) {
  auto* memory = static_cast<unsigned char*>(HMALLOCZ(100, 1, 2, 3));
  ASSERT_TRUE(memory);
  EXPECT_TRUE(std::all_of(memory, memory + 100, [](unsigned char byte) { return byte == 0; }));
  EXPECT_EQ(Host().allocation, (std::array<std::size_t, 4>{100, 1, 2, 3}));
  std::free(memory);
}

TEST_F(HostServicesTest, WithoutMemoryThereIsNull) {
  Host().hasMemory = false;
  EXPECT_EQ(HMALLOCZ(100, 0, 0, 0), nullptr);
}

TEST_F(HostServicesTest, OwnerIsTheInterpreterOfTheConnector) {
  EXPECT_EQ(GetOwner(), devhost::CurrentProcessor());
  Host().hasConnector = false;
  EXPECT_EQ(GetOwner(), nullptr);
}

}  // namespace
