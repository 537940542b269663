// The host's services that the module's values fall back to: each call is counted, then answered by the development
// host unless the test has it fail. The linker leads the calls here (cmake/native-targets.cmake).
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "host/talq.h"

// What was called, and what is answered.
struct HostCalls {
  std::vector<std::string> general{};         // names of the general routines called, in order
  std::array<const Variable*, 2> operands{};  // of the last of them
  std::array<std::size_t, 4> allocation{};    // what HMALLOC was last called with
  bool hasMemory = true;
  unsigned char memoryFill = 0xCD;  // what memory of HMALLOC holds
  bool hasConnector = true;
  int outsideElements = 0;    // elements asked for that a Vector does not have
  long long clearedSlot = 0;  // what Clear leaves in a value's slot
  int brokenJoints = 0;       // calls of BreakJoint, except those of a native object's end
};

// What all calls are noted in and answered from; a test sets it back by assigning {}.
HostCalls& Host();
