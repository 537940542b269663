// The rows of the table, by subject.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "benchmark/measure.h"
#include "host/talq.h"
#include "render/topengl.h"

// A script object and its renderer, open on a frame of 1024 x 768.
struct Scene {
  Variable object;
  TOpenGL* renderer = nullptr;
  bool onWindow = false;  // else on a memory bitmap
};

// An object that lives as long as the rows that use it.
template <class T, class... A>
T* Keep(A&&... args) {
  static std::vector<std::unique_ptr<T>> kept;
  kept.push_back(std::make_unique<T>(std::forward<A>(args)...));
  return kept.back().get();
}

void AddBatches(std::vector<Row>& rows, Scene& scene);
void AddImages(std::vector<Row>& rows, Scene& scene);
void AddShapes(std::vector<Row>& rows, Scene& scene);
void AddCalls(std::vector<Row>& rows, Scene& scene);
