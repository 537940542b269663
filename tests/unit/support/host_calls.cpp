#include "tests/unit/support/host_calls.h"

#include <cstring>

HostCalls& Host() {
  static HostCalls calls;
  return calls;
}

// The linker's --wrap gives a call of X the name __wrap_X, and the host's own routine the name __real_X.
// NOLINTBEGIN(bugprone-reserved-identifier)
#define WATCH(name, mangled)                                                              \
  void Real##name(Variable&, const Variable&, const Variable&) asm("__real_" mangled);    \
  void Watched##name(Variable&, const Variable&, const Variable&) asm("__wrap_" mangled); \
  void Watched##name(Variable& result, const Variable& a, const Variable& b) {            \
    Host().general.emplace_back(#name);                                                   \
    Host().operands = {&a, &b};                                                           \
    Real##name(result, a, b);                                                             \
  }

WATCH(Add, "_Z9__AddNumbR8VariableRKS_S2_")
WATCH(Sub, "_Z9__SubNumbR8VariableRKS_S2_")
WATCH(Mul, "_Z9__MulNumbR8VariableRKS_S2_")
WATCH(Div, "_Z9__DivNumbR8VariableRKS_S2_")
WATCH(Rest, "_Z10__RestNumbR8VariableRKS_S2_")
WATCH(Or, "_Z7_OrNumbR8VariableRKS_S2_")
WATCH(And, "_Z8_AndNumbR8VariableRKS_S2_")
WATCH(Xor, "_Z8_XorNumbR8VariableRKS_S2_")

TVConnect* RealConnector() asm("__real__Z12GetConnectorv");
TVConnect* WatchedConnector() asm("__wrap__Z12GetConnectorv");
TVConnect* WatchedConnector() { return Host().hasConnector ? RealConnector() : nullptr; }

void* RealAllocator(std::size_t, std::size_t, std::size_t, std::size_t) asm("__real_HMALLOC");
void* WatchedAllocator(std::size_t, std::size_t, std::size_t, std::size_t) asm("__wrap_HMALLOC");
void* WatchedAllocator(std::size_t size, std::size_t x, std::size_t y, std::size_t z) {
  Host().allocation = {size, x, y, z};
  void* memory = Host().hasMemory ? RealAllocator(size, x, y, z) : nullptr;
  if (memory) std::memset(memory, Host().memoryFill, size);
  return memory;
}

void RealClear(Variable*) asm("__real__ZN8Variable5ClearEv");
void WatchedClear(Variable*) asm("__wrap__ZN8Variable5ClearEv");
void WatchedClear(Variable* value) {
  RealClear(value);
  value->slot.int64 = Host().clearedSlot;
}

void RealBreakJoint(TalqAss*) asm("__real__ZN7TalqAss10BreakJointEv");
void WatchedBreakJoint(TalqAss*) asm("__wrap__ZN7TalqAss10BreakJointEv");
void WatchedBreakJoint(TalqAss* native) {
  ++Host().brokenJoints;
  RealBreakJoint(native);
}
// NOLINTEND(bugprone-reserved-identifier)
