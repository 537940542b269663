// Bitmaps drawn into the scene.
#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

#include "classes/gl.h"
#include "image/padded_row.h"
#include "image/swap.h"
#include "render/topengl.h"

namespace {

constexpr int kTileSize = 256;
constexpr std::size_t kTileBytes = std::size_t{4} * kTileSize * kTileSize;

using ByteBuffer = std::unique_ptr<unsigned char[]>;

// How much OpenGL reads of a mask of one bit a pixel: padded rows, of the last one only what it needs.
std::size_t MaskBytes(int width, int height) {
  if (width <= 0 || height <= 0) return 0;
  const std::size_t rowBytes = (static_cast<std::size_t>(width) + 7) / 8;
  return PaddedRow(rowBytes) * (static_cast<std::size_t>(height) - 1) + rowBytes;
}

// A part of the bitmap, at most a tile large.
struct Tile {
  int column;
  int row;
  int width;
  int height;
};

// Lit, the image is drawn white times itself. Returns whether colour material has to be switched off again.
bool BeginLitImage() {
  const bool switchOff = !glIsEnabled(GL_COLOR_MATERIAL);
  if (switchOff) {
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
  }
  glColor4f(1.0F, 1.0F, 1.0F, 1.0F);
  return switchOff;
}

// An empty texture of one tile's size, in whatever texture is bound.
void SetUpTexture(const unsigned char* zeros) {
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
  glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, kTileSize, kTileSize, 0, GL_RGB, GL_UNSIGNED_BYTE, zeros);
}

void LoadTile(const Tile& tile, const unsigned char* pixels, int bitmapWidth, unsigned char* buffer) {
  const std::size_t rowBytes = std::size_t{3} * static_cast<std::size_t>(tile.width);
  for (int row = 0; row < tile.height; ++row) {
    const std::ptrdiff_t source = 3 * (static_cast<std::ptrdiff_t>(tile.row + row) * bitmapWidth + tile.column);
    std::memcpy(buffer + static_cast<std::size_t>(row) * rowBytes, pixels + source, rowBytes);
  }
  glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, tile.width, tile.height, GL_RGB, GL_UNSIGNED_BYTE, buffer);
}

void EmitTile(const Tile& tile, const OGLPoint& corner, float scale) {
  const float u = static_cast<float>(tile.width) / float{kTileSize};
  const float v = static_cast<float>(tile.height) / float{kTileSize};
  const float left = corner.x + static_cast<float>(tile.column) * scale;
  const float right = corner.x + static_cast<float>(tile.column + tile.width) * scale;
  const float bottom = corner.y + static_cast<float>(tile.row) * scale;
  const float top = corner.y + static_cast<float>(tile.row + tile.height) * scale;
  glBegin(GL_QUADS);
  glTexCoord2f(0.0F, 0.0F);
  glVertex3f(left, bottom, corner.z);
  glTexCoord2f(u, 0.0F);
  glVertex3f(right, bottom, corner.z);
  glTexCoord2f(u, v);
  glVertex3f(right, top, corner.z);
  glTexCoord2f(0.0F, v);
  glVertex3f(left, top, corner.z);
  glEnd();
}

void EmitTiles(const OGLPoint& corner, int width, int height, const unsigned char* pixels, float scale,
               unsigned char* buffer) {
  Tile tile{};
  for (tile.row = 0; tile.row < height; tile.row += tile.height) {
    tile.height = std::min(height - tile.row, kTileSize);
    for (tile.column = 0; tile.column < width; tile.column += tile.width) {
      tile.width = std::min(width - tile.column, kTileSize);
      LoadTile(tile, pixels, width, buffer);
      EmitTile(tile, corner, scale);
    }
  }
}

}  // namespace

void TOpenGL::DrawBitmap(const OGLPoint& corner, int width, int height, unsigned char* pixels, float scale) const {
  if (!CanDraw()) return;
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  glEnable(GL_TEXTURE_2D);
  const bool switchOff = lightEnabled && BeginLitImage();
  glTexEnvf(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, static_cast<float>(GL_MODULATE));
  if (const ByteBuffer buffer{new (std::nothrow) unsigned char[kTileBytes]()}) {
    SetUpTexture(buffer.get());
    SwapRedAndBlue(pixels, width, height);
    glNormal3f(0.0F, 0.0F, 1.0F);
    EmitTiles(corner, width, height, pixels, scale, buffer.get());
  }
  glDisable(GL_TEXTURE_2D);
  if (switchOff) glDisable(GL_COLOR_MATERIAL);
}

void TOpenGL::PutBitmap(const OGLPoint& position, int width, int height, unsigned char* pixels) const {
  if (!CanDraw()) return;
  glRasterPos3f(position.x, position.y, position.z);
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  SwapRedAndBlue(pixels, width, height);
  glDrawPixels(width, height, GL_RGB, GL_UNSIGNED_BYTE, pixels);
}

void TOpenGL::Put2bBitmap(const OGLPoint& position, int width, int height, const unsigned char* bits,
                          std::size_t length) const {
  if (!CanDraw()) return;
  const std::size_t needed = MaskBytes(width, height);
  ByteBuffer padded;
  if (length < needed) {
    padded.reset(new (std::nothrow) unsigned char[needed]());
    if (!padded) return;
    std::copy_n(bits, length, padded.get());
  }
  glRasterPos3f(position.x, position.y, position.z);
  glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
  glBitmap(width, height, 0.0F, 0.0F, static_cast<float>(width), 0.0F, padded ? padded.get() : bits);
}
