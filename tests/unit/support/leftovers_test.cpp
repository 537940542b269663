// What every other test relies on to see what it has left behind.
#include "tests/unit/support/leftovers.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <vector>

#include "tests/recorder/recorder.h"
#include "tests/unit/support/allocation.h"
#include "tests/unit/support/allocation_limit.h"

#ifdef TALQ_ALLOCATION_LIMIT_MIB
#include <sanitizer/lsan_interface.h>
#endif

namespace {

// One of each kind of allocation.
std::vector<void*> Allocate() {
  return {::operator new(24, std::nothrow), ::operator new[](24, std::nothrow), std::calloc(10, 4)};
}

void GiveBack(const std::vector<void*>& memory) {
  ::operator delete(memory[0]);
  ::operator delete[](memory[1]);
  std::free(memory[2]);
}

TEST(LeftoversTest, MemoryIsNamedBySizeAndThenForgotten) {
  const std::vector<void*> memory = Allocate();
  EXPECT_EQ(LiveAllocations(), 3U);
  EXPECT_EQ(TakeLeftovers(), "not given back: 2 of 24 bytes, 1 of 40 bytes");
  EXPECT_EQ(TakeLeftovers(), "");
  GiveBack(memory);
}

TEST(LeftoversTest, MemoryThatIsGivenBackIsNone) {
  GiveBack(Allocate());
  EXPECT_EQ(LiveAllocations(), 0U);
  EXPECT_EQ(TakeLeftovers(), "");
}

TEST(LeftoversTest, ObjectsOfOpenGLStandBehindMemory) {
  recorder::Reset();
  const std::vector<void*> memory = Allocate();
  HDC const device = reinterpret_cast<HDC>(std::uintptr_t{0x1000});
  recorder::Get().pixelFormats[device] = 1;
  wglCreateContext(device);
  gluNewQuadric();
  EXPECT_EQ(TakeLeftovers(),
            "not given back: 2 of 24 bytes, 1 of 40 bytes; contexts not deleted: 1; quadrics not deleted: 1");
  EXPECT_EQ(TakeLeftovers(), "");
  GiveBack(memory);
}

#ifdef TALQ_ALLOCATION_LIMIT_MIB
// Loses so much that what the stack still holds is little of it.
void CheckLostMemoryInANewProcess() {
  for (int i = 0; i < 100; ++i) Allocate();
  __lsan_do_leak_check();
  std::_Exit(0);
}

// The note that is kept of each allocation is no pointer to it.
TEST(LeftoversTest, TheSanitizerSeesLostMemoryToo) {
  EXPECT_EXIT(CheckLostMemoryInANewProcess(), [](int status) { return status != 0; }, "detected memory leaks");
}
#endif

}  // namespace
