// What must hold after every call, whatever the call was.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "fuzz/world.h"
#include "tests/recorder/recorder.h"

class Invariants {
 public:
  // Takes note of the state before the call.
  explicit Invariants(std::string_view method);

  // The first thing that does not hold after the call; while its arguments live.
  std::optional<std::string> Violation();

 private:
  bool DrewInSpiteOfError() const;
  bool MakesObjects() const;
  std::optional<std::string> Unbalanced();
  bool MayMove(GLenum mode, int by) const;

  std::string_view method;
  bool wasPending;
  bool wasInsideList;
  std::size_t wasAllocated;
  std::map<GLenum, int> matrixDepth;
};
