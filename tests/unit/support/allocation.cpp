#include "tests/unit/support/allocation.h"

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>
#include <new>
#include <unordered_map>

// The linker's --wrap gives a call of X the name __wrap_X, and the library's own routine the name __real_X.
// NOLINTBEGIN(bugprone-reserved-identifier)
#define WATCH(name, mangled, ...)                      \
  void Real##name(__VA_ARGS__) asm("__real_" mangled); \
  void Watched##name(__VA_ARGS__) asm("__wrap_" mangled);

WATCH(Free, "free", void*)
WATCH(Delete, "_ZdlPv", void*)
WATCH(SizedDelete, "_ZdlPvm", void*, std::size_t)
WATCH(DeleteArray, "_ZdaPv", void*)
WATCH(SizedDeleteArray, "_ZdaPvm", void*, std::size_t)
void* WatchedCalloc(std::size_t count, std::size_t size) asm("__wrap_calloc");
void* RealCalloc(std::size_t count, std::size_t size) asm("__real_calloc");
// NOLINTEND(bugprone-reserved-identifier)

namespace {

// Memory for what is kept of the others, which is not watched itself.
template <class T>
struct Unwatched {
  using value_type = T;
  Unwatched() = default;
  template <class U>
  explicit(false) Unwatched(const Unwatched<U>& /*other*/) {}
  // T may be a pointer. NOLINTNEXTLINE(bugprone-sizeof-expression)
  T* allocate(std::size_t count) { return static_cast<T*>(std::malloc(count * sizeof(T))); }
  void deallocate(T* memory, std::size_t /*count*/) { RealFree(static_cast<void*>(memory)); }
  bool operator==(const Unwatched&) const = default;
};

// An address with its bits inverted: what is noted here does not count for LeakSanitizer as a pointer to the memory.
std::uintptr_t Hidden(void* memory) { return ~reinterpret_cast<std::uintptr_t>(memory); }

// Bytes by hidden address.
using Sizes = std::unordered_map<std::uintptr_t, std::size_t, std::hash<std::uintptr_t>, std::equal_to<>,
                                 Unwatched<std::pair<const std::uintptr_t, std::size_t>>>;

// Outlives every object.
Sizes& Live() {
  static auto& live = *new Sizes;
  return live;
}

void* Noted(void* memory, std::size_t size) {
  if (memory) Live()[Hidden(memory)] = size;
  return memory;
}

void Forget(void* memory) { Live().erase(Hidden(memory)); }

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
  return size > kLargestAllocation ? nullptr : Noted(::operator new(size), size);
}

// The array form has memory of its own kind, for the checks of new[] against delete.
void* AllocateArrayOrFail(std::size_t size) noexcept {
  if (FailsNow(size)) return nullptr;
  return size > kLargestAllocation ? nullptr : Noted(::operator new[](size), size);
}

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return AllocateOrFail(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return AllocateArrayOrFail(size); }

void* WatchedCalloc(std::size_t count, std::size_t size) {
  return FailsNow(count * size) ? nullptr : Noted(RealCalloc(count, size), count * size);
}

void WatchedFree(void* memory) {
  Forget(memory);
  RealFree(memory);
}
void WatchedDelete(void* memory) {
  Forget(memory);
  RealDelete(memory);
}
void WatchedSizedDelete(void* memory, std::size_t size) {
  Forget(memory);
  RealSizedDelete(memory, size);
}
void WatchedDeleteArray(void* memory) {
  Forget(memory);
  RealDeleteArray(memory);
}
void WatchedSizedDeleteArray(void* memory, std::size_t size) {
  Forget(memory);
  RealSizedDeleteArray(memory, size);
}

std::size_t LiveAllocations() { return Live().size(); }

std::string TakeLiveAllocations() {
  std::map<std::size_t, int> counts;
  for (const auto& [address, size] : Live()) ++counts[size];
  Live().clear();
  std::string text;
  for (const auto& [size, count] : counts) {
    text += (text.empty() ? "" : ", ") + std::to_string(count) + " of " + std::to_string(size) + " bytes";
  }
  return text;
}

std::size_t LastAllocationSize() { return lastSize; }

FailingAllocation::FailingAllocation(int n) { allocationsUntilFailure = n; }
FailingAllocation::~FailingAllocation() { allocationsUntilFailure = 0; }
bool FailingAllocation::Happened() const { return allocationsUntilFailure == 0; }
