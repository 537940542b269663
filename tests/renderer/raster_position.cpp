// Prints how far "Put2bBitmap" moves the raster position.
#include <cstdio>

#include "classes/gl.h"
#include "tests/renderer/memory_frame.h"

int main() {
  const MemoryFrame frame(64, 32);
  TOpenGL renderer;
  if (!frame.Open(renderer)) return 1;
  constexpr unsigned char kBits[64] = {};
  float before[4] = {};
  float after[4] = {};
  // OpenGL rejects the first frustum and stays at the identity projection, outside of which the viewer would put the
  // origin.
  renderer.LoadIdentityMatrix();
  for (const int width : {8, 0, 13}) {
    renderer.Put2bBitmap({0, 0, 0, 1}, 0, 0, kBits, sizeof(kBits));
    glGetFloatv(GL_CURRENT_RASTER_POSITION, before);
    renderer.Put2bBitmap({0, 0, 0, 1}, width, 8, kBits, sizeof(kBits));
    glGetFloatv(GL_CURRENT_RASTER_POSITION, after);
    std::printf("%d: %g %g\n", width, static_cast<double>(after[0] - before[0]),
                static_cast<double>(after[1] - before[1]));
  }
  return 0;
}
