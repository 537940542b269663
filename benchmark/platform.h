// What differs between Windows and Linux for the benchmark.
#pragma once

#include <optional>

#include "render/topengl.h"

// Seconds since some moment.
double Now();
// Keeps the process on one processor core.
void PinToOneCore();
// Opens the renderer on a memory bitmap or a window (on Windows), or on nothing. False when it cannot be opened.
bool OpenFrame(TOpenGL& renderer, int width, int height, bool onWindow);
// Whether OpenGL draws; where it does not, every call is a stub.
bool HasOpenGL();
// Points this program's OpenGL imports at a function that counts, or back at OpenGL.
void UseStubs(bool on);

// Load and unload a library once: the module with its rows read, or an empty library and as many rows read. Nothing
// where the libraries are not at hand.
struct LoadRuns {
  void (*loadModule)();
  void (*loadEmpty)();
};
std::optional<LoadRuns> Loads();
