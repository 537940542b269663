// "DrawBitmap": a bitmap as textured quads.
#include <algorithm>
#include <string>
#include <vector>

#include "module/handlers/handlers.h"
#include "render/topengl.h"
#include "tests/unit/support/allocation.h"
#include "tests/unit/support/fake_bitmap.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/near_variants.h"

namespace {

using BitmapsTest = ModuleTest;
using gl_trace::Enum;

constexpr char kFirst[] = "glPolygonMode(GL_FRONT_AND_BACK, GL_FILL)\nglEnable(GL_TEXTURE_2D)\n";
constexpr char kTexture[] =
    "glTexEnvf(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE)\n"
    "glPixelStorei(GL_UNPACK_ALIGNMENT, 1)\n"
    "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP)\n"
    "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP)\n"
    "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST)\n"
    "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST)\n"
    "glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 256, 256, 0, GL_RGB, GL_UNSIGNED_BYTE)\n"
    "glNormal3f(0, 0, 1)\n";
constexpr char kLast[] = "glDisable(GL_TEXTURE_2D)\n";

std::string Drawn(const std::string& tiles) { return std::string(kFirst) + kTexture + tiles + kLast; }

std::string Corner(float u, float v, float x, float y, float z) {
  return Line("glTexCoord2f", u, v) + "\n" + Line("glVertex3f", x, y, z) + "\n";
}

// A tile of so many pixels whose quad reaches from one point to the other at height z.
std::string Tile(int width, int height, float left, float bottom, float right, float top, float z) {
  const float u = static_cast<float>(width) / 256;
  const float v = static_cast<float>(height) / 256;
  return Line("glTexSubImage2D", Enum{GL_TEXTURE_2D}, 0, 0, 0, width, height, Enum{GL_RGB}, Enum{GL_UNSIGNED_BYTE}) +
         "\nglBegin(GL_QUADS)\n" + Corner(0, 0, left, bottom, z) + Corner(u, 0, right, bottom, z) +
         Corner(u, v, right, top, z) + Corner(0, v, left, top, z) + "glEnd()\n";
}

// Pixels that differ from their neighbours in every direction and in every channel.
Bytes Pixels(int width, int height) {
  Bytes pixels(static_cast<std::size_t>(3) * static_cast<std::size_t>(width * height));
  for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = static_cast<unsigned char>(i * 7 + i / 251);
  return pixels;
}

// The part of tightly packed pixels that a tile shows.
Bytes Part(const Bytes& pixels, int width, int column, int row, int columns, int rows) {
  Bytes part;
  for (int r = row; r < row + rows; ++r) {
    const auto start = pixels.begin() + static_cast<std::ptrdiff_t>(3) * (r * width + column);
    part.insert(part.end(), start, start + static_cast<std::ptrdiff_t>(3) * columns);
  }
  return part;
}

// The images that a function was called with.
std::vector<Bytes> TexturesOf(const char* function) {
  std::vector<Bytes> textures;
  for (const recorder::Call& call : recorder::Get().calls) {
    if (call.name == function) textures.push_back(call.bytes);
  }
  return textures;
}

TEST_F(BitmapsTest, WideBitmapIsTwoTiles) {
  Variable renderer = OpenRenderer();
  const Bytes pixels = Pixels(300, 100);
  Call(renderer, "DrawBitmap", 10.0F, 20.0F, 30.0F, NewFakeBitmap(300, 100, ByteString(pixels)));
  const auto textures = TexturesOf("glTexSubImage2D");
  EXPECT_EQ(TakeLog(), Drawn(Tile(256, 100, 10, 20, 266, 120, 30) + Tile(44, 100, 266, 20, 310, 120, 30)));
  ASSERT_EQ(textures.size(), 2U);
  EXPECT_EQ(textures[0], Part(RedAndBlueSwapped(pixels), 300, 0, 0, 256, 100));
  EXPECT_EQ(textures[1], Part(RedAndBlueSwapped(pixels), 300, 256, 0, 44, 100));
}

TEST_F(BitmapsTest, TilesCoverEverySizeRowByRow) {
  Variable renderer = OpenRenderer();
  for (const auto& [width, height] :
       std::initializer_list<std::pair<int, int>>{{256, 256}, {1, 1}, {257, 513}, {255, 257}, {512, 256}, {300, 700}}) {
    const Bytes pixels = Pixels(width, height);
    Call(renderer, "DrawBitmap", 0.25F, -3.0F, 1.0F, 1.5F, NewFakeBitmap(width, height, ByteString(pixels)));
    std::string tiles;
    std::vector<Bytes> parts;
    for (int row = 0; row < height; row += 256) {
      for (int column = 0; column < width; column += 256) {
        const int columns = std::min(256, width - column);
        const int rows = std::min(256, height - row);
        const auto x = [](int pixel) { return 0.25F + static_cast<float>(pixel) * 1.5F; };
        const auto y = [](int pixel) { return -3.0F + static_cast<float>(pixel) * 1.5F; };
        tiles += Tile(columns, rows, x(column), y(row), x(column + columns), y(row + rows), 1);
        parts.push_back(Part(RedAndBlueSwapped(pixels), width, column, row, columns, rows));
      }
    }
    EXPECT_EQ(TexturesOf("glTexSubImage2D"), parts) << width << " x " << height;
    EXPECT_EQ(TakeLog(), Drawn(tiles)) << width << " x " << height;
  }
}

// Where the edge before a pixel lies, rounded to single precision at each step; in double precision it lies elsewhere.
float Edge(float corner, int pixel, float scale) { return corner + static_cast<float>(pixel) * scale; }
float EdgeInDouble(double corner, int pixel, double scale) { return static_cast<float>(corner + pixel * scale); }

TEST_F(BitmapsTest, EdgesOfTilesAreSinglePrecision) {
  using Edges = std::pair<float, float>;
  constexpr float kCorner = 0.1F;
  const float scale =
      TellingArgument([](float s) { return Edges{Edge(kCorner, 768, s), Edge(kCorner, 801, s)}; },
                      [](float s) { return Edges{EdgeInDouble(kCorner, 768, s), Edge(kCorner, 801, s)}; },
                      [](float s) { return Edges{Edge(kCorner, 768, s), EdgeInDouble(kCorner, 801, s)}; },
                      [](float s) { return Edges{Edge(kCorner, 768, s), Edge(kCorner, 768, s) + 33 * s}; });
  const auto x = [scale](int pixel) { return Edge(kCorner, pixel, scale); };
  Variable renderer = OpenRenderer();
  Call(renderer, "DrawBitmap", kCorner, kCorner, 0.0F, scale, NewFakeBitmap(801, 1, ByteString(Pixels(801, 1))));
  std::string log = TakeLog();
  EXPECT_THAT(log, HasSubstr(Tile(33, 1, x(768), x(0), x(801), x(1), 0)));
  Call(renderer, "DrawBitmap", kCorner, kCorner, 0.0F, scale, NewFakeBitmap(1, 801, ByteString(Pixels(1, 801))));
  log = TakeLog();
  EXPECT_THAT(log, HasSubstr(Tile(1, 33, x(0), x(768), x(1), x(801), 0)));
}

TEST_F(BitmapsTest, ColumnsHaveMoreThan16Bits) {
  Variable renderer = OpenRenderer();
  const Bytes pixels = Pixels(70000, 1);
  Call(renderer, "DrawBitmap", 0.0F, 0.0F, 0.0F, NewFakeBitmap(70000, 1, ByteString(pixels)));
  const auto textures = TexturesOf("glTexSubImage2D");
  ASSERT_EQ(textures.size(), 274U);
  EXPECT_EQ(textures[273], Part(RedAndBlueSwapped(pixels), 70000, 69888, 0, 112, 1));
  TakeLog();
}

TEST_F(BitmapsTest, TextureStartsBlack) {
  Variable renderer = OpenRenderer();
  Call(renderer, "DrawBitmap", 0.0F, 0.0F, 0.0F, NewFakeBitmap(1, 1, ByteString({9, 9, 9})));
  EXPECT_EQ(TexturesOf("glTexImage2D"), std::vector<Bytes>{Bytes(std::size_t{3} * 256 * 256, 0)});
  EXPECT_EQ(LastAllocationSize(), std::size_t{4} * 256 * 256);
}

TEST_F(BitmapsTest, BitmapIsAskedForItsSizesThenItsPixels) {
  Variable renderer = OpenRenderer();
  const Variable result = Call(renderer, "DrawBitmap", 0.0F, 0.0F, 0.0F, NewFakeBitmap(1, 1, ByteString({1, 2, 3})));
  EXPECT_EQ(Bitmap().requests, std::vector<std::string>({"GetWidth", "GetHeight", "GetDIBits"}));
  EXPECT_EQ(result.type, TVAR_BYTES);
}

TEST_F(BitmapsTest, PixelsAreLeftRedFirst) {
  Variable renderer = OpenRenderer();
  Call(renderer, "DrawBitmap", 0.0F, 0.0F, 0.0F, NewFakeBitmap(2, 1, ByteString({1, 2, 3, 4, 5, 6})));
  EXPECT_EQ(BytesOf(Bitmap().pixels), Bytes({3, 2, 1, 6, 5, 4}));
}

TEST_F(BitmapsTest, PointIsDrawnAndThenTheRegistersAsNumbers) {
  Variable renderer = OpenRenderer();
  const Variable bitmap = NewFakeBitmap(2, 1, ByteString({1, 2, 3, 4, 5, 6}));
  Call(renderer, "DrawBitmap", Point3(5, 6, 7), bitmap);
  const auto textures = TexturesOf("glTexSubImage2D");
  // Objects, and the empty register past the renderer, are 0 as numbers.
  EXPECT_EQ(TakeLog(), Drawn(Tile(2, 1, 5, 6, 7, 7, 7)) + Drawn(Tile(2, 1, 0, 0, 0, 0, 0)));
  EXPECT_EQ(textures, std::vector<Bytes>({{3, 2, 1, 6, 5, 4}, {1, 2, 3, 4, 5, 6}}));
  EXPECT_EQ(BytesOf(Bitmap().pixels), Bytes({1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(Bitmap().requests.size(), 3U);
}

TEST_F(BitmapsTest, PointWithScaleIsDrawnTwiceToo) {
  Variable renderer = OpenRenderer();
  Call(renderer, "DrawBitmap", Point3(5, 6, 7), 2.5F, NewFakeBitmap(2, 1, ByteString({1, 2, 3, 4, 5, 6})));
  EXPECT_EQ(TakeLog(), Drawn(Tile(2, 1, 5, 6, 10, 8.5F, 7)) + Drawn(Tile(2, 1, 0, 2.5F, 0, 2.5F, 0)));
}

TEST_F(BitmapsTest, SecondDrawTakesItsScaleFromTheFourthRegister) {
  const Variable renderer = OpenRenderer();
  VarRegister registers[4];
  devhost::Assign(registers[0].GetVar(), Point3(5, 6, 7));
  devhost::Assign(registers[1].GetVar(), NewFakeBitmap(2, 1, ByteString({1, 2, 3, 4, 5, 6})));
  devhost::Assign(registers[2].GetVar(), renderer);
  registers[3] = 2.5F;
  VarRegister result;
  Handler<script::DrawBitmap>(result, registers, 3, devhost::CurrentProcessor());
  EXPECT_EQ(TakeLog(), Drawn(Tile(2, 1, 5, 6, 7, 7, 7)) + Drawn(Tile(2, 1, 0, 0, 5, 2.5F, 0)));
}

TEST_F(BitmapsTest, LitBitmapIsWhiteTimesItself) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableLight", true);
  TakeLog();
  Call(renderer, "DrawBitmap", 0.0F, 0.0F, 0.0F, NewFakeBitmap(1, 1, ByteString({1, 2, 3})));
  EXPECT_EQ(TakeLog(),
            kFirst +
                Lines({"glIsEnabled(GL_COLOR_MATERIAL)", "glEnable(GL_COLOR_MATERIAL)",
                       "glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE)", "glColor4f(1, 1, 1, 1)"}) +
                kTexture + Tile(1, 1, 0, 0, 1, 1, 0) + kLast + "glDisable(GL_COLOR_MATERIAL)\n");
}

TEST_F(BitmapsTest, LitBitmapLeavesColourMaterialOnWhereItWas) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableLight", true);
  TakeLog();
  recorder::Get().answers.enabled.insert(GL_COLOR_MATERIAL);
  Call(renderer, "DrawBitmap", 0.0F, 0.0F, 0.0F, NewFakeBitmap(1, 1, ByteString({1, 2, 3})));
  EXPECT_EQ(TakeLog(), kFirst + Lines({"glIsEnabled(GL_COLOR_MATERIAL)", "glColor4f(1, 1, 1, 1)"}) + kTexture +
                           Tile(1, 1, 0, 0, 1, 1, 0) + kLast);
}

TEST_F(BitmapsTest, WithoutMemoryTheTextureIsOnlySwitchedOnAndOff) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableLight", true);
  const Variable bitmap = NewFakeBitmap(1, 1, ByteString({1, 2, 3}));
  TakeLog();
  const FailingAllocation failing(1);
  Call(renderer, "DrawBitmap", 0.0F, 0.0F, 0.0F, bitmap);
  EXPECT_TRUE(failing.Happened());
  EXPECT_EQ(TakeLog(), kFirst +
                           Lines({"glIsEnabled(GL_COLOR_MATERIAL)", "glEnable(GL_COLOR_MATERIAL)",
                                  "glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE)", "glColor4f(1, 1, 1, 1)",
                                  "glTexEnvf(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE)"}) +
                           kLast + "glDisable(GL_COLOR_MATERIAL)\n");
  EXPECT_EQ(BytesOf(Bitmap().pixels), Bytes({1, 2, 3}));
}

TEST_F(BitmapsTest, EmptyAndNegativeSizesDrawNoTile) {
  Variable renderer = OpenRenderer();
  const Bytes pixels = Pixels(3, 4);
  for (const auto& [width, height] :
       std::initializer_list<std::pair<int, int>>{{0, 4}, {3, 0}, {0, 0}, {-3, 4}, {3, -4}, {-3, -4}}) {
    Call(renderer, "DrawBitmap", 0.0F, 0.0F, 0.0F, NewFakeBitmap(width, height, ByteString(pixels)));
    EXPECT_EQ(TakeLog(), Drawn("")) << width << " x " << height;
    EXPECT_EQ(BytesOf(Bitmap().pixels), pixels) << width << " x " << height;
  }
}

TEST_F(BitmapsTest, WithoutPixelsNothingIsDrawn) {
  Variable renderer = OpenRenderer();
  Call(renderer, "DrawBitmap", 0.0F, 0.0F, 0.0F, NewFakeBitmap(2, 2, Variable()));
  Call(renderer, "DrawBitmap", Point3(1, 2, 3), NewFakeBitmap(2, 2, Variable()));
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(BitmapsTest, ClosedOrUnboundRendererOnlyAsksTheBitmap) {
  Variable renderer = NewRenderer();
  for (const bool wasOpened : {false, true}) {
    if (wasOpened) {
      Call(renderer, "Open", NewObject("MDC"));
      Call(renderer, "FreeMDC");
      TakeLog();
    }
    Call(renderer, "DrawBitmap", 0.0F, 0.0F, 0.0F, NewFakeBitmap(1, 1, ByteString({1, 2, 3})));
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(Bitmap().requests.size(), 3U);
    EXPECT_EQ(BytesOf(Bitmap().pixels), Bytes({1, 2, 3}));
  }
}

TEST_F(BitmapsTest, WithoutRendererTheBitmapIsNotAsked) {
  Variable renderer = Unjoined("TOpenGL");
  Call(renderer, "DrawBitmap", 0.0F, 0.0F, 0.0F, NewFakeBitmap(1, 1, ByteString({1, 2, 3})));
  ExpectNoNative("TOpenGL");
  EXPECT_TRUE(Bitmap().requests.empty());
}

TEST_F(BitmapsTest, HostsOwnBitmapIsDrawn) {
  Variable renderer = OpenRenderer();
  const Variable bitmap = NewObject("MBmp", {Variable(1), Variable(2), ByteString({1, 2, 3, 4, 5, 6})});
  Call(renderer, "DrawBitmap", 0.0F, 0.0F, 0.0F, bitmap);
  EXPECT_EQ(TexturesOf("glTexSubImage2D"), std::vector<Bytes>({{3, 2, 1, 6, 5, 4}}));
}

}  // namespace
