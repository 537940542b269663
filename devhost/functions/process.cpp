// Time, and what the process holds; for measuring and for finding leaks.
#ifdef _WIN32
#include <windows.h>
// psapi.h belongs behind windows.h.
#include <psapi.h>

#include <cstdint>
#else
#include <unistd.h>

#include <cstdio>
#include <ctime>
#endif

#include <algorithm>

#include "devhost/classes/tables.h"
#include "devhost/runtime/clock.h"

namespace devhost {
namespace {

#ifdef _WIN32
long long PrivateBytes() {
  PROCESS_MEMORY_COUNTERS counters{};
  K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return static_cast<long long>(counters.PagefileUsage);
}

// What is in use of a heap.
long long UsedBytes(HANDLE heap) {
  long long bytes = 0;
  PROCESS_HEAP_ENTRY entry{};
  HeapLock(heap);
  while (HeapWalk(heap, &entry) != 0) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
  }
  HeapUnlock(heap);
  return bytes;
}

// The system has a heap, each C runtime has one.
long long HeapBytes() {
  HANDLE heaps[64] = {};
  const DWORD count = std::min<DWORD>(GetProcessHeaps(64, heaps), 64);
  long long bytes = 0;
  for (DWORD i = 0; i < count; ++i) bytes += UsedBytes(heaps[i]);
  return bytes;
}

void Wait(double seconds) {
  constexpr double kLongest = 4e9;  // milliseconds
  ::Sleep(static_cast<DWORD>(std::min(seconds * 1000, kLongest)));
}

int GdiHandleCount() {
  const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
  if (counted > 0) return static_cast<int>(counted);
  // Wine keeps no such count, but takes the low word of a handle for the handle.
  constexpr std::uintptr_t kHandles = 0x10000;
  int count = 0;
  for (std::uintptr_t handle = 1; handle < kHandles; ++handle) {
    if (GetObjectType(reinterpret_cast<HGDIOBJ>(handle)) != 0) ++count;
  }
  return count;
}
#else
long long PrivateBytes() {
  long long pages = 0;
  if (std::FILE* status = std::fopen("/proc/self/statm", "r")) {
    if (std::fscanf(status, "%*d %lld", &pages) != 1) pages = 0;
    std::fclose(status);
  }
  return pages * sysconf(_SC_PAGESIZE);
}

void Wait(double seconds) {
  constexpr double kLongest = 4e6;  // seconds
  const double span = std::min(seconds, kLongest);
  const auto whole = static_cast<std::time_t>(span);
  const timespec rest{whole, static_cast<long>((span - static_cast<double>(whole)) * 1e9)};
  nanosleep(&rest, nullptr);
}

// Outside Windows there are no such handles, and nothing asks for the heaps.
long long HeapBytes() { return 0; }
int GdiHandleCount() { return 0; }
#endif

const double kStartTime = Now();

void Seconds(VarRegister& result, VarRegister*, int, Processor*) { result.GetVar() = Now() - kStartTime; }

// Windows are not answered meanwhile: their Pump waits and answers.
void SleepFor(VarRegister&, VarRegister* args, int, Processor*) {
  const double seconds = Number(args[0]);
  if (seconds > 0) Wait(seconds);
}

void MemoryUse(VarRegister& result, VarRegister*, int, Processor*) { result.GetVar() = PrivateBytes(); }
void HeapUse(VarRegister& result, VarRegister*, int, Processor*) { result.GetVar() = HeapBytes(); }
void GdiHandles(VarRegister& result, VarRegister*, int, Processor*) { result = GdiHandleCount(); }

}  // namespace

const MethodEntry kProcessFunctions[] = {
    {Seconds, "Seconds(void)"}, {SleepFor, "Sleep(number)"},      {MemoryUse, "MemoryUse(void)"},
    {HeapUse, "HeapUse(void)"}, {GdiHandles, "GdiHandles(void)"}, {nullptr, nullptr},
};

}  // namespace devhost
