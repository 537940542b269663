#include "devhost/runtime/clock.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <ctime>
#endif

namespace devhost {

#ifdef _WIN32
double Now() {
  LARGE_INTEGER frequency;
  LARGE_INTEGER ticks;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&ticks);
  return static_cast<double>(ticks.QuadPart) / static_cast<double>(frequency.QuadPart);
}
#else
double Now() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}
#endif

}  // namespace devhost
