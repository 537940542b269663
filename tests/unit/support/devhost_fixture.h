// What the development host's tests share.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "devhost/classes/register_classes.h"
#include "devhost/runtime/access.h"
#include "devhost/runtime/runtime.h"
#include "tests/unit/support/values.h"

using testing::HasSubstr;

// A test on the host's runtime; it fails when an error is raised that it did not take.
class DevhostTest : public testing::Test {
 protected:
  void SetUp() override {
    devhost::RegisterHostClasses();
    devhost::ClearError();
  }

  void TearDown() override {
    devhost::ClearScratch();
    EXPECT_EQ(TakeError(), "");
  }

  // The pending error as "code text", and "hint: ..." where it has one, which is then no longer pending; "" when there
  // is none.
  static std::string TakeError() {
    const devhost::Error* error = devhost::PendingError();
    std::string text = error ? std::to_string(error->code) + " " + error->text : "";
    if (error && !error->hint.empty()) text += " hint: " + error->hint;
    devhost::ClearError();
    return text;
  }

  // What a method, or a plain function, returns; an empty value when it fails.
  static Variable Call(Variable object, const char* method, std::vector<Variable> args = {}) {
    Variable result;
    devhost::CallMethod(result, object, method, args);
    return result;
  }

  static Variable CallPlain(const char* function, std::vector<Variable> args = {}) {
    Variable result;
    devhost::CallFunction(result, function, args);
    return result;
  }

  // A name as the host's interface takes it.
  static char* Name(const char* text) { return const_cast<char*>(text); }
};
