// Watches the allocations of the module, which are by new (std::nothrow) and calloc, and makes one fail. The linker
// leads calls here (cmake/wrapped-calls.cmake).
#pragma once

#include <cstddef>
#include <string>

// How many of these allocations have not been given back.
std::size_t LiveAllocations();

// The same by size, "1 of 24 bytes, 2 of 400 bytes", which are then forgotten; "" when there are none.
std::string TakeLiveAllocations();

// The bytes that were last asked of new (std::nothrow) or calloc.
std::size_t LastAllocationSize();

// While it lives, the n-th (counted from 1) of the following allocations by new (std::nothrow) and calloc
// yields null.
class FailingAllocation {
 public:
  explicit FailingAllocation(int n);
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
  ~FailingAllocation();

  // Whether that allocation was asked for.
  bool Happened() const;
};
