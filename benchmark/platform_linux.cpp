#include "benchmark/platform.h"

#include <sched.h>

#include <chrono>

#include "classes/gl.h"

double Now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

void PinToOneCore() {
  cpu_set_t cores;
  CPU_ZERO(&cores);
  CPU_SET(1, &cores);
  sched_setaffinity(0, sizeof cores, &cores);
}

bool OpenFrame(TOpenGL& renderer, int width, int height, bool /*onWindow*/) {
  static int device;
  renderer.OpenBitmap(reinterpret_cast<HDC>(&device), {0, 0, width, height});
  return renderer.CanDraw();
}

bool HasOpenGL() { return false; }
void UseStubs(bool /*on*/) {}
std::optional<LoadRuns> Loads() { return std::nullopt; }
