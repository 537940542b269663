// Times two functions side by side and prints how they compare.
#pragma once

#include <functional>
#include <string>

// Work of the module against its floor: the least that any code has to do for it.
struct Row {
  std::string work;
  std::string floor;
  double goal;  // the largest ratio that passes
  std::function<void()> runModule;
  std::function<void()> runFloor;
  // Whether it means something when OpenGL does nothing.
  bool withStubs = true;
};

struct Ratio {
  double median;
  double lowest;
  double highest;
};

// Of the two times, from alternating runs.
Ratio Measure(const Row& row);

// Prints a line; stubs is null where there is no such figure.
void PrintHead();
void PrintRow(const Row& row, const Ratio* real, const Ratio* stubs);
