// Fails every test that leaves something of the module behind.
#include <gtest/gtest.h>

#include "tests/unit/support/leftovers.h"

namespace {

class LeftoversListener : public testing::EmptyTestEventListener {
  // The test's own objects are gone, and its fixture too. A brief report names no test by itself.
  void OnTestEnd(const testing::TestInfo& test) override {
    const std::string leftovers = TakeLeftovers();
    if (!leftovers.empty()) ADD_FAILURE() << test.test_suite_name() << '.' << test.name() << ": " << leftovers;
  }
};

// GoogleTest owns it.
const bool kIsListening = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new LeftoversListener);
  return true;
}();

}  // namespace
