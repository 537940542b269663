#include "tests/unit/allocation.h"

#include <new>

namespace {

// More than any test allocates, so that absurd sizes fail at once.
constexpr std::size_t kLargestAllocation = std::size_t{1} << 30;

int allocationsUntilFailure = 0;  // 0: none is to fail
std::size_t lastSize = 0;

bool FailsNow(std::size_t size) {
  lastSize = size;
  if (allocationsUntilFailure == 0) return false;
  --allocationsUntilFailure;
  return allocationsUntilFailure == 0;
}

void* AllocateOrFail(std::size_t size) noexcept {
  if (FailsNow(size)) return nullptr;
  return size > kLargestAllocation ? nullptr : ::operator new(size);
}

// The array form has memory of its own kind, for the checks of new[] against delete.
void* AllocateArrayOrFail(std::size_t size) noexcept {
  if (FailsNow(size)) return nullptr;
  return size > kLargestAllocation ? nullptr : ::operator new[](size);
}

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return AllocateOrFail(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return AllocateArrayOrFail(size); }

// The linker's --wrap gives a call of calloc the first name, and the library's own routine the second.
void* WatchedCalloc(std::size_t count, std::size_t size) asm("__wrap_calloc");
void* RealCalloc(std::size_t count, std::size_t size) asm("__real_calloc");
void* WatchedCalloc(std::size_t count, std::size_t size) {
  return FailsNow(count * size) ? nullptr : RealCalloc(count, size);
}

std::size_t LastAllocationSize() { return lastSize; }

FailingAllocation::FailingAllocation(int n) { allocationsUntilFailure = n; }
FailingAllocation::~FailingAllocation() { allocationsUntilFailure = 0; }
bool FailingAllocation::Happened() const { return allocationsUntilFailure == 0; }
