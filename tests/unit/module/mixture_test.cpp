// "GetDIBitsMixture": the frame blended into a String.
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "tests/unit/support/allocation_limit.h"
#include "tests/unit/support/fixture.h"

namespace {

class MixtureTest : public ModuleTest {
 protected:
  static void SetFrame(int width, int height, const Bytes& frame) {
    recorder::Get().answers.viewport = {0, 0, width, height};
    recorder::Get().answers.frame = frame;
  }
  static bool Mix(Variable& renderer, int width, int height, const Variable& string, float factor) {
    const Variable result = Call(renderer, "GetDIBitsMixture", 0.0F, 0.0F, width, height, string, factor);
    EXPECT_EQ(result.type, TVAR_INT32);
    return result.slot.int32 != 0;
  }
};

// The byte that the sum ends as: cut off towards zero, the low eight bits. Multiples of 256 are all that doubles past
// 64 bits hold.
unsigned char Blended(int before, int frame, float factor) {
  const volatile float weighted = static_cast<float>(before) * factor;
  const volatile float rest = 1.0F - factor;
  const double sum = static_cast<double>(weighted) + frame * static_cast<double>(rest);
  if (!std::isfinite(sum)) return 0;
  const double low = std::fmod(std::trunc(sum), 256);
  return static_cast<unsigned char>(low < 0 ? low + 256 : low);
}

TEST_F(MixtureTest, EveryPairOfBytesBlendsAsTheFormulaSays) {
  Variable renderer = OpenRenderer();
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const float nan = std::numeric_limits<float>::quiet_NaN();
  Bytes columns;
  Bytes rows;
  for (int row = 0; row < 256; ++row) {
    for (int column = 0; column < 3 * 256; ++column) {
      columns.push_back(static_cast<unsigned char>(column / 3));
      rows.push_back(static_cast<unsigned char>(row));
    }
  }
  SetFrame(256, 256, columns);
  for (const float factor : {0.0F, 1.0F, 0.25F, -1.0F, 2.5F, 0.5F, 0.1F, 0.9F, 1.0F / 3.0F, -0.001F, 1.001F, 1e10F,
                             -1e30F, nan, kInfinity, -kInfinity}) {
    const Variable string = ByteString(rows);
    EXPECT_TRUE(Mix(renderer, 256, 256, string, factor));
    const Bytes blended = BytesOf(string);
    int wrong = 0;
    for (std::size_t i = 0; i < blended.size(); ++i)
      wrong += blended[i] == Blended(rows[i], columns[i], factor) ? 0 : 1;
    EXPECT_EQ(wrong, 0) << factor;
  }
}

// No driver should answer so.
TEST_F(MixtureTest, ViewportOfNegativeSizeIsNotRead) {
  Variable renderer = OpenRenderer();
  for (const auto& [width, height] : std::initializer_list<std::pair<int, int>>{{-1, 2}, {2, -1}}) {
    SetFrame(width, height, {});
    TakeLog();
    EXPECT_FALSE(Mix(renderer, 1, 1, ByteString({1, 2, 3}), 0.5F));
    EXPECT_THAT(TakeLog(), Not(HasSubstr("glReadPixels")));
  }
}

TEST_F(MixtureTest, ViewportThatOpenGLDoesNotTellIsEmpty) {
  Variable renderer = OpenRenderer();
  SetFrame(1, 1, {100, 100, 100});
  const Variable string = ByteString({200, 200, 200});
  EXPECT_TRUE(Mix(renderer, 1, 1, string, 1.0F));
  recorder::Get().answers.viewport.reset();
  EXPECT_TRUE(Mix(renderer, 1, 1, string, 0.0F));
  EXPECT_EQ(BytesOf(string), Bytes({200, 200, 200}));
}

TEST_F(MixtureTest, QuarterOfTheOldAndThreeOfTheFrame) {
  Variable renderer = OpenRenderer();
  SetFrame(1, 1, {100, 100, 100});
  const Variable string = ByteString({200, 200, 200});
  EXPECT_TRUE(Mix(renderer, 1, 1, string, 0.25F));
  EXPECT_EQ(BytesOf(string), Bytes({125, 125, 125}));
}

// 1 - factor is rounded to single precision, here to 1.
TEST_F(MixtureTest, TinyFactorLeavesAllToTheFrame) {
  Variable renderer = OpenRenderer();
  SetFrame(1, 1, {255, 255, 255});
  const Variable string = ByteString({0, 0, 0});
  EXPECT_TRUE(Mix(renderer, 1, 1, string, 1e-9F));
  EXPECT_EQ(BytesOf(string), Bytes({255, 255, 255}));
}

TEST_F(MixtureTest, TopRowComesFirstBlueFirst) {
  Variable renderer = OpenRenderer();
  SetFrame(4, 2, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24});
  const Variable string = ByteString(Bytes(24, 0));
  EXPECT_TRUE(Mix(renderer, 4, 2, string, 0.0F));
  EXPECT_EQ(BytesOf(string),
            Bytes({15, 14, 13, 18, 17, 16, 21, 20, 19, 24, 23, 22, 3, 2, 1, 6, 5, 4, 9, 8, 7, 12, 11, 10}));
}

TEST_F(MixtureTest, ReadsAsMuchAsTheViewportFromThePosition) {
  Variable renderer = OpenRenderer();
  SetFrame(4, 2, {});
  Call(renderer, "GetDIBitsMixture", 10.9F, -3.9F, 7, 9, ByteString(Bytes(189)), 0.5F);
  EXPECT_EQ(TakeLog(), Lines({"glGetIntegerv(GL_VIEWPORT)", "glPixelStorei(GL_UNPACK_ALIGNMENT, 1)",
                              "glReadPixels(10, -3, 4, 2, GL_RGB, GL_UNSIGNED_BYTE)"}));
}

TEST_F(MixtureTest, StringLargerThanTheViewportChangesOnlyInItsCorner) {
  Variable renderer = OpenRenderer();
  SetFrame(4, 2, Bytes(24, 50));
  const Variable string = ByteString(Bytes(72, 9));
  EXPECT_TRUE(Mix(renderer, 6, 4, string, 0.0F));
  const Bytes bytes = BytesOf(string);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const bool isInside = i / 18 < 2 && i % 18 < 12;
    EXPECT_EQ(bytes[i], isInside ? 50 : 9) << i;
  }
}

TEST_F(MixtureTest, StringSmallerThanTheViewportTakesItsUpperLeftPart) {
  Variable renderer = OpenRenderer();
  Bytes frame;
  for (int pixel = 0; pixel < 12; ++pixel) frame.insert(frame.end(), 3, static_cast<unsigned char>(pixel));
  SetFrame(4, 3, frame);
  const Variable string = ByteString(Bytes(12, 99));
  EXPECT_TRUE(Mix(renderer, 2, 2, string, 0.0F));
  EXPECT_EQ(BytesOf(string), Bytes({8, 8, 8, 9, 9, 9, 4, 4, 4, 5, 5, 5}));
}

// OpenGL pads rows of 15 bytes to 16; the bytes are taken as they lie, in rows of 15.
TEST_F(MixtureTest, FramesOfOtherWidthsKeepOpenGLsPadding) {
  Variable renderer = OpenRenderer();
  Bytes frame;
  for (int i = 1; i <= 45; ++i) frame.push_back(static_cast<unsigned char>(i));
  SetFrame(5, 3, frame);
  const Variable string = ByteString(Bytes(45, 0));
  EXPECT_TRUE(Mix(renderer, 5, 3, string, 0.0F));
  const Bytes bytes = BytesOf(string);
  for (std::size_t i = 0; i < 45; ++i) {
    const std::size_t mirrored = i / 3 * 3 + 2 - i % 3;
    const std::size_t lies = 15 * (2 - i / 15) + mirrored % 15;
    if (lies % 16 < 15) EXPECT_EQ(bytes[i], frame[lies / 16 * 15 + lies % 16]) << i;
  }
}

TEST_F(MixtureTest, OnlyTheBytesInsideTheStringAreBlended) {
  Variable renderer = OpenRenderer();
  SetFrame(4, 2, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24});
  const Bytes whole = {15, 14, 13, 18, 17, 16, 21, 20, 19, 24, 23, 22, 3, 2, 1, 6, 5, 4, 9, 8, 7, 12, 11, 10};
  for (std::ptrdiff_t length = 0; length <= 24; ++length) {
    const Variable string = ByteString(Bytes(static_cast<std::size_t>(length), 99));
    EXPECT_TRUE(Mix(renderer, 4, 2, string, 0.0F));
    EXPECT_EQ(BytesOf(string), Bytes(whole.begin(), whole.begin() + length));
  }
}

TEST_F(MixtureTest, EmptyAndNegativeSizesBlendNothing) {
  Variable renderer = OpenRenderer();
  for (const auto& [width, height] :
       std::initializer_list<std::pair<int, int>>{{0, 2}, {4, 0}, {-4, 2}, {4, -2}, {-4, -2}, {INT32_MIN, INT32_MIN}}) {
    SetFrame(4, 2, Bytes(24, 50));
    const Variable string = ByteString(Bytes(24, 9));
    EXPECT_TRUE(Mix(renderer, width, height, string, 0.0F));
    EXPECT_EQ(BytesOf(string), Bytes(24, 9)) << width << " x " << height;
  }
  SetFrame(0, 0, {});
  const Variable string = ByteString(Bytes(24, 9));
  EXPECT_TRUE(Mix(renderer, 4, 2, string, 0.0F));
  EXPECT_EQ(BytesOf(string), Bytes(24, 9));
}

TEST_F(MixtureTest, WidthsWhoseRowsLieFarApartStayInsideTheString) {
  Variable renderer = OpenRenderer();
  SetFrame(4, 2, Bytes(24, 50));
  const Variable string = ByteString(Bytes(24, 9));
  EXPECT_TRUE(Mix(renderer, INT32_MAX, INT32_MAX, string, 0.0F));
  Bytes expected(24, 9);
  std::fill_n(expected.begin(), 12, 50);
  EXPECT_EQ(BytesOf(string), expected);
}

TEST_F(MixtureTest, ClosedOrUnboundRendererAnswersFalse) {
  Variable renderer = NewRenderer();
  const Variable string = ByteString(Bytes(24, 9));
  EXPECT_FALSE(Mix(renderer, 4, 2, string, 0.0F));
  Call(renderer, "Open", NewObject("MDC"));
  Call(renderer, "FreeMDC");
  TakeLog();
  EXPECT_FALSE(Mix(renderer, 4, 2, string, 0.0F));
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(BytesOf(string), Bytes(24, 9));
}

// The error names the renderer, even when the String is at fault.
TEST_F(MixtureTest, WithoutRendererOrStringAnErrorIsRaised) {
  Variable none = Unjoined("TOpenGL");
  EXPECT_TRUE(IsUntouched(Call(none, "GetDIBitsMixture", 0.0F, 0.0F, 4, 2, ByteString(Bytes(24)), 0.0F)));
  ExpectNoNative("TOpenGL");
  Variable renderer = OpenRenderer();
  EXPECT_TRUE(IsUntouched(Call(renderer, "GetDIBitsMixture", 0.0F, 0.0F, 4, 2, Variable(), 0.0F)));
  ExpectNoNative("TOpenGL");
  EXPECT_TRUE(IsUntouched(Call(renderer, "GetDIBitsMixture", 0.0F, 0.0F, 4, 2, Numbers({1, 2}), 0.0F)));
  ExpectNoNative("TOpenGL");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(MixtureTest, StringWithoutBytesIsAnError) {
  Variable renderer = OpenRenderer();
  Variable string = ByteString({1, 2, 3});
  unsigned char*& bytes = string.GetString()->bytes;
  unsigned char* const kept = bytes;
  bytes = nullptr;
  EXPECT_TRUE(IsUntouched(Call(renderer, "GetDIBitsMixture", 0.0F, 0.0F, 1, 1, string, 0.0F)));
  ExpectNoNative("TOpenGL");
  bytes = kept;
}

#ifdef TALQ_ALLOCATION_LIMIT_MIB
TEST_F(MixtureTest, WithoutMemoryForTheFrameTheAnswerIsFalse) {
  Variable renderer = OpenRenderer();
  SetFrame(32768, TALQ_ALLOCATION_LIMIT_MIB * 32 / 3 + 1, {});
  const Variable string = ByteString(Bytes(24, 9));
  EXPECT_FALSE(Mix(renderer, 4, 2, string, 0.0F));
  EXPECT_EQ(TakeLog(), "glGetIntegerv(GL_VIEWPORT)\n");
  EXPECT_EQ(BytesOf(string), Bytes(24, 9));
}
#endif

}  // namespace
