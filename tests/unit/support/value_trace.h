// How the module reads and writes values: elements of Vectors, fields of objects, byte strings, in the recorder's log.
#pragma once

#include <map>
#include <string>

#include "host/talq.h"

// While it lives, these are noted, one call a line: "points: GetDim()", "points: element(2)", "value: IsNumber()",
// "value: field(x)", "value: assign(0.5)", "value: GetString()" and "GetNameID(x)". The values that are given have
// names; all others are "value". What the host calls itself is not noted. The linker leads the calls here
// (cmake/wrapped-calls.cmake).
class ValueTrace {
 public:
  explicit ValueTrace(std::map<const Variable*, std::string> names);
  ValueTrace(const ValueTrace&) = delete;
  ValueTrace& operator=(const ValueTrace&) = delete;
  ~ValueTrace();
};
