// Functions about the program itself.
#include "tests/unit/support/devhost_fixture.h"

namespace {

class ProcessTest : public DevhostTest {
 protected:
  static double SecondsAsleep(double seconds) {
    const double begin = CallPlain("Seconds");
    CallPlain("Sleep", {Variable(seconds)});
    return double{CallPlain("Seconds")} - begin;
  }
};

TEST_F(ProcessTest, SleepTakesItsTime) { EXPECT_GE(SecondsAsleep(0.05), 0.05); }

}  // namespace
