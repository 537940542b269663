// The module in the development host, on the recorder: what the unit tests run in.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string_view>
#include <vector>

#include "devhost/runtime/runtime.h"
#include "tests/recorder/recorder.h"
#include "tests/unit/support/allocation.h"
#include "tests/unit/support/fake_device.h"
#include "tests/unit/support/values.h"

using recorder::Line;
using recorder::Lines;
using recorder::TakeLog;
using testing::HasSubstr;
using testing::Not;

using Floats = std::vector<float>;
using Bytes = std::vector<unsigned char>;

// Code of a module error in a fixture.
inline constexpr int kModuleErrorBase = 1000;

// What a result register holds before the call, to see whether a handler writes to it.
inline constexpr int kUntouched = 20090;
bool IsUntouched(const Variable& result);

// Parameter kinds of a signature: "number", "refer object Vector"; none for "void".
std::vector<std::string> ParametersOf(std::string_view signature);

// A row of the module's table: `name` of the class, written whole ("Box(number, number, number)") or, where all rows of
// a name share a handler, by the name alone.
const MethodEntry* RowOf(const std::string& className, std::string_view name);
// Calls the handler of such a row of the object's class. Returns what the result register holds.
Variable CallRow(Variable& object, std::string_view name, std::span<const Variable> args);
template <class... A>
Variable Call(Variable& object, std::string_view name, const A&... args) {
  const std::array<Variable, sizeof...(A)> values{Value(args)...};
  return CallRow(object, name, values);
}

// A script object of the class without a native object.
Variable Unjoined(std::string_view className);

// A script object constructed by the row, "OglColor(void)".
template <class... A>
Variable New(std::string_view row, const A&... args) {
  Variable object = Unjoined(row.substr(0, row.find('(')));
  Call(object, row, args...);
  return object;
}

// An OglColor; a renderer that is closed.
Variable NewColor(float red, float green, float blue, float alpha);
Variable NewRenderer();
// A renderer opened on a window of the fake device; the log of the opening is dropped.
Variable OpenRenderer();

// Expects exactly one raised error, with the code and the text in its message, and forgets it.
void ExpectError(int code, std::string_view text);
// The error of a method on a script object of the class without a native object.
void ExpectNoNative(std::string_view className);
// An error of the module itself: its message, and the text that was added.
void ExpectModuleError(int code, std::string_view text);

// Loads the module before each test and unloads it after it. Fails a test that leaves an error pending, a native object
// joined to a script object that is gone, or something in OpenGL open. What no test may leave is in leftovers.h.
class ModuleTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // The module as the host has it; its error base can be changed.
  devhost::Module* module = nullptr;
};
