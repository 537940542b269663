// A class of bitmaps that answer what a test wants, sizes that no real bitmap has among it.
#pragma once

#include <string>
#include <vector>

#include "host/talq.h"

// What a bitmap answers, and what it was asked.
struct FakeBitmap {
  int width = 0;
  int height = 0;
  // The String that GetDIBits hands out; empty: nothing.
  Variable pixels{};
  // What the module asked for: "GetWidth" and so on, with the number of arguments, if there were any.
  std::vector<std::string> requests{};
};

// What all objects of the class answer from.
FakeBitmap& Bitmap();

// A new object of the class; from now on all answer these sizes and these pixels.
Variable NewFakeBitmap(int width, int height, const Variable& pixels);
