// A memory bitmap for a renderer to draw on.
#pragma once

#include <span>
#include <vector>

#include "render/topengl.h"

struct HBITMAP__;

class MemoryFrame {
 public:
  MemoryFrame(int width, int height);
  MemoryFrame(const MemoryFrame&) = delete;
  MemoryFrame& operator=(const MemoryFrame&) = delete;
  ~MemoryFrame();

  // False when the renderer has no context afterwards.
  bool Open(TOpenGL& renderer) const;
  // Writes what the renderer has drawn as a picture in the PPM format.
  bool Save(const TOpenGL& renderer, const char* path) const;

 private:
  int width;
  int height;
  HDC__* device;
  HBITMAP__* bitmap;
};

bool SaveBytes(const char* path, std::span<const unsigned char> bytes);
