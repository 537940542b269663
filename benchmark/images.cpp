// Pixels: the loops over bytes, read-back, bitmaps.
#include <cstdlib>
#include <cstring>

#include "benchmark/handler_call.h"
#include "benchmark/platform.h"
#include "benchmark/rows.h"
#include "classes/gl.h"
#include "image/blend.h"
#include "image/swap.h"
#include "tests/unit/support/values.h"

namespace {

constexpr int kWidth = 1024;
constexpr int kHeight = 768;
constexpr std::size_t kPixels = std::size_t{kWidth} * kHeight;
constexpr std::size_t kBytes = 3 * kPixels;
constexpr int kBitmap = 1024;
constexpr int kTile = 256;

using Bytes = std::vector<unsigned char>;

// The blend as its formula reads, pixel by pixel, without any of the module's ways.
void BlendPlainly(unsigned char* to, const unsigned char* from, float factor) {
  const double rest = 1.0F - factor;
  for (std::size_t i = 0; i < kBytes; i += 3) {
    for (std::size_t k = 0; k < 3; ++k) {
      const double kept = static_cast<float>(to[i + k]) * factor;
      to[i + k] = static_cast<unsigned char>(static_cast<long long>(kept + from[i + k] * rest));
    }
  }
}

Bytes Noise(std::size_t count) {
  Bytes bytes(count);
  unsigned seed = 1;
  for (unsigned char& byte : bytes) {
    seed = seed * 1664525U + 1013904223U;
    byte = static_cast<unsigned char>(seed >> 24);
  }
  return bytes;
}

// The calls of an unlit 1024 x 1024 bitmap, its tiles ready.
void DrawTiles(const std::vector<Bytes>& tiles, const Bytes& zeros) {
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  glEnable(GL_TEXTURE_2D);
  glTexEnvf(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, static_cast<float>(GL_MODULATE));
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
  glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, kTile, kTile, 0, GL_RGB, GL_UNSIGNED_BYTE, zeros.data());
  glNormal3f(0.0F, 0.0F, 1.0F);
  const Bytes* tile = tiles.data();
  for (int row = 0; row < kBitmap; row += kTile) {
    for (int column = 0; column < kBitmap; column += kTile, ++tile) {
      glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, kTile, kTile, GL_RGB, GL_UNSIGNED_BYTE, tile->data());
      const float left = static_cast<float>(column) - kBitmap / 2.0F;
      const float bottom = static_cast<float>(row) - kBitmap / 2.0F;
      glBegin(GL_QUADS);
      glTexCoord2f(0.0F, 0.0F);
      glVertex3f(left, bottom, 0.0F);
      glTexCoord2f(1.0F, 0.0F);
      glVertex3f(left + kTile, bottom, 0.0F);
      glTexCoord2f(1.0F, 1.0F);
      glVertex3f(left + kTile, bottom + kTile, 0.0F);
      glTexCoord2f(0.0F, 1.0F);
      glVertex3f(left, bottom + kTile, 0.0F);
      glEnd();
    }
  }
  glDisable(GL_TEXTURE_2D);
}

void AddLoops(std::vector<Row>& rows) {
  auto* const to = Keep<Bytes>(Noise(kBytes));
  auto* const from = Keep<Bytes>(Noise(kBytes));
  // The copy goes through a pointer that the compiler does not know, or it would leave the copy out.
  static void* (*volatile copy)(void*, const void*, std::size_t) = std::memcpy;
  const auto copyFrame = [to, from] { copy(to->data(), from->data(), kBytes); };
  const auto blend = [to, from] { Blend(to->data(), from->data(), kBytes, 0.3F); };
  rows.push_back(
      {"swap of red and blue", "memcpy", 1.3, [to] { SwapRedAndBlue(to->data(), kWidth, kHeight); }, copyFrame, false});
  rows.push_back({"blend", "memcpy", 6.5, blend, copyFrame, false});
  rows.push_back({"blend", "loop of the formula", 1 / 2.3, blend,
                  [to, from] { BlendPlainly(to->data(), from->data(), 0.3F); }, false});
}

}  // namespace

void AddImages(std::vector<Row>& rows, Scene& scene) {
  AddLoops(rows);
  if (!HasOpenGL()) return;
  auto* const read =
      Keep<HandlerCall>("TOpenGL::GetDIBits(number, number, int, int)",
                        std::vector<Variable>{Value(0), Value(0), Value(kWidth), Value(kHeight)}, scene.object);
  rows.push_back({scene.onWindow ? "GetDIBits 1024 x 768, window" : "GetDIBits 1024 x 768, memory bitmap",
                  "glReadPixels into fresh memory", scene.onWindow ? 1.15 : 1.4, [read] { read->Run(); },
                  [] {
                    Variable fresh;
                    fresh.Init(TVAR_BYTES, static_cast<int>(kBytes));
                    unsigned char* bytes = fresh;
                    glReadPixels(0, 0, kWidth, kHeight, GL_RGB, GL_UNSIGNED_BYTE, bytes);
                  },
                  false});
  auto* const frame = Keep<Bytes>(Noise(kBytes));
  rows.push_back({"GetDIBitsMixture 1024 x 768", "glReadPixels into fresh memory", 2.2,
                  [frame, &scene] { scene.renderer->GetDIBitsMixture(0, 0, kWidth, kHeight, *frame, 0.3F); },
                  [] {
                    void* fresh = std::calloc(kBytes, 1);
                    glReadPixels(0, 0, kWidth, kHeight, GL_RGB, GL_UNSIGNED_BYTE, fresh);
                    std::free(fresh);
                  },
                  false});
  auto* const bitmap = Keep<Bytes>(Noise(std::size_t{3} * kBitmap * kBitmap));
  auto* const tiles = Keep<std::vector<Bytes>>(16, Noise(std::size_t{3} * kTile * kTile));
  auto* const zeros = Keep<Bytes>(std::size_t{4} * kTile * kTile);
  const auto drawn = [](auto draw) {
    return [draw] {
      glDisable(GL_CULL_FACE);
      draw();
      glFinish();
      glEnable(GL_CULL_FACE);
    };
  };
  rows.push_back({"DrawBitmap 1024 x 1024, drawn", "GL calls on ready tiles", 1.15, drawn([bitmap, &scene] {
                    scene.renderer->DrawBitmap({-512, -512, 0, 1}, kBitmap, kBitmap, bitmap->data(), 1.0F);
                  }),
                  drawn([tiles, zeros] { DrawTiles(*tiles, *zeros); }), false});
}
