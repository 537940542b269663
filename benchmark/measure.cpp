#include "benchmark/measure.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "benchmark/platform.h"

namespace {

constexpr int kRuns = 15;
constexpr double kRunSeconds = 0.004;

double Seconds(const std::function<void()>& run, int repetitions) {
  const double start = Now();
  for (int i = 0; i < repetitions; ++i) run();
  return Now() - start;
}

std::string Text(const Ratio* ratio) {
  if (!ratio) return "-";
  char text[64];
  std::snprintf(text, sizeof text, "%.2f (%.2f to %.2f)", ratio->median, ratio->lowest, ratio->highest);
  return text;
}

// Goals are for OpenGL that draws.
const char* Verdict(const Row& row, const Ratio* real) {
  if (!real) return "";
  return real->median <= row.goal ? "met" : "MISSED";
}

}  // namespace

Ratio Measure(const Row& row) {
  // The first runs fill caches and tell how often a run has to be repeated.
  row.runModule();
  row.runFloor();
  const double once = Seconds(row.runFloor, 1);
  const int repetitions = static_cast<int>(std::clamp(kRunSeconds / std::max(once, 1e-8), 1.0, 100000.0));
  std::array<double, kRuns> ratios{};
  for (int run = 0; run < kRuns; ++run) {
    // Which comes first alternates too.
    double module = run % 2 == 0 ? Seconds(row.runModule, repetitions) : 0;
    const double floor = Seconds(row.runFloor, repetitions);
    if (run % 2 != 0) module = Seconds(row.runModule, repetitions);
    ratios[static_cast<std::size_t>(run)] = module / floor;
  }
  // With an order of its own: the library holds no ready sort of numbers in the cross build.
  std::sort(ratios.begin(), ratios.end(), [](double a, double b) { return a < b; });
  return {ratios[kRuns / 2], ratios.front(), ratios.back()};
}

void PrintHead() {
  std::printf("%-38s %-34s %6s %-24s %-24s %s\n", "work", "floor", "goal", "OpenGL: median (spread)", "stubs", "");
}

void PrintRow(const Row& row, const Ratio* real, const Ratio* stubs) {
  std::printf("%-38s %-34s %6.2f %-24s %-24s %s\n", row.work.c_str(), row.floor.c_str(), row.goal, Text(real).c_str(),
              Text(stubs).c_str(), Verdict(row, real));
  std::fflush(stdout);
}
