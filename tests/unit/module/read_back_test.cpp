// "GetDIBits".
#include <array>
#include <climits>
#include <limits>
#include <string>
#include <vector>

#include "render/topengl.h"
#include "tests/unit/support/allocation.h"
#include "tests/unit/support/allocation_limit.h"
#include "tests/unit/support/fixture.h"

namespace {

using ReadBackTest = ModuleTest;

// A frame of count bytes 1, 2, 3, ...
Bytes Frame(int count) {
  Bytes bytes;
  for (int i = 1; i <= count; ++i) bytes.push_back(static_cast<unsigned char>(i));
  return bytes;
}

TEST_F(ReadBackTest, BottomRowComesFirstBlueFirst) {
  recorder::Get().answers.frame = Frame(24);
  Variable renderer = OpenRenderer();
  const Bytes pixels = BytesOf(Call(renderer, "GetDIBits", 0.0F, 0.0F, 4, 2));
  EXPECT_EQ(pixels, Bytes({3, 2, 1, 6, 5, 4, 9, 8, 7, 12, 11, 10, 15, 14, 13, 18, 17, 16, 21, 20, 19, 24, 23, 22}));
  EXPECT_EQ(TakeLog(),
            Lines({"glPixelStorei(GL_UNPACK_ALIGNMENT, 1)", "glReadPixels(0, 0, 4, 2, GL_RGB, GL_UNSIGNED_BYTE)"}));
}

// OpenGL pads rows of 15 bytes to 16: the buffer holds the first 45 of the 47 bytes that it writes, as they lie.
TEST_F(ReadBackTest, RowsOfOtherWidthsKeepOpenGLsPadding) {
  const Bytes frame = Frame(45);
  recorder::Get().answers.frame = frame;
  Variable renderer = OpenRenderer();
  const Bytes pixels = BytesOf(Call(renderer, "GetDIBits", 0.0F, 0.0F, 5, 3));
  ASSERT_EQ(pixels.size(), 45U);
  for (std::size_t i = 0; i < 45; ++i) {
    const std::size_t padded = i - i % 3 + (2 - i % 3);  // the byte that the swap brought here
    const std::size_t row = padded / 16;
    const std::size_t column = padded % 16;
    // OpenGL does not write the padding, which is zero.
    EXPECT_EQ(pixels[i], column < 15 ? frame[15 * row + column] : 0) << i;
  }
  EXPECT_EQ(TakeLog(),
            Lines({"glPixelStorei(GL_UNPACK_ALIGNMENT, 1)", "glReadPixels(0, 0, 5, 3, GL_RGB, GL_UNSIGNED_BYTE)"}));
}

TEST_F(ReadBackTest, SingleColumnsAreReadToo) {
  recorder::Get().answers.frame = Frame(3);
  Variable renderer = OpenRenderer();
  EXPECT_EQ(BytesOf(Call(renderer, "GetDIBits", 0.0F, 0.0F, 1, 1)), Bytes({3, 2, 1}));
}

TEST_F(ReadBackTest, EveryWidthStaysInsideItsBuffer) {
  Variable renderer = OpenRenderer();
  for (int width = 1; width <= 9; ++width) {
    for (int height = 1; height <= 4; ++height) {
      const Bytes pixels = BytesOf(Call(renderer, "GetDIBits", 0.0F, 0.0F, width, height));
      EXPECT_EQ(pixels.size(), static_cast<std::size_t>(3 * width * height));
    }
  }
}

TEST_F(ReadBackTest, PositionIsCutOffTowardsZero) {
  Variable renderer = OpenRenderer();
  Call(renderer, "GetDIBits", 10.9F, -3.9F, 4, 1);
  EXPECT_THAT(TakeLog(), HasSubstr("glReadPixels(10, -3, 4, 1,"));
  Call(renderer, "GetDIBits", -10.9F, 3.9F, 5, 1);
  EXPECT_THAT(TakeLog(), HasSubstr("glReadPixels(-10, 3, 5, 1,"));
  Call(renderer, "GetDIBits", 1e30F, std::numeric_limits<float>::quiet_NaN(), 4, 1);
  EXPECT_THAT(TakeLog(), HasSubstr("glReadPixels(-2147483648, -2147483648, 4, 1,"));
}

TEST_F(ReadBackTest, NothingIsReadUnlessOpenAndBound) {
  Variable renderer = NewRenderer();
  EXPECT_TRUE(IsUntouched(Call(renderer, "GetDIBits", 0.0F, 0.0F, 4, 2)));
  Call(renderer, "Open", NewObject("MDC"));
  Call(renderer, "FreeMDC");
  TakeLog();
  EXPECT_TRUE(IsUntouched(Call(renderer, "GetDIBits", 0.0F, 0.0F, 4, 2)));
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(ReadBackTest, ZeroSizesGiveNoBytes) {
  Variable renderer = OpenRenderer();
  EXPECT_EQ(BytesOf(Call(renderer, "GetDIBits", 0.0F, 0.0F, 0, 7)), Bytes());
  EXPECT_EQ(TakeLog(),
            Lines({"glPixelStorei(GL_UNPACK_ALIGNMENT, 1)", "glReadPixels(0, 0, 0, 7, GL_RGB, GL_UNSIGNED_BYTE)"}));
  EXPECT_EQ(BytesOf(Call(renderer, "GetDIBits", 0.0F, 0.0F, 7, 0)), Bytes());
  EXPECT_EQ(TakeLog(),
            Lines({"glPixelStorei(GL_UNPACK_ALIGNMENT, 1)", "glReadPixels(0, 0, 7, 0, GL_RGB, GL_UNSIGNED_BYTE)"}));
}

TEST_F(ReadBackTest, NoRowsOfAHugeWidthNeedNoScratch) {
  Variable renderer = OpenRenderer();
  EXPECT_EQ(BytesOf(Call(renderer, "GetDIBits", 0.0F, 0.0F, 2147483647, 0)).size(), 0U);
  EXPECT_LT(LastAllocationSize(), 64U);  // the byte string's
  TakeLog();
}

TEST_F(ReadBackTest, ScratchHoldsThePaddedRowsAndNoMore) {
  Variable renderer = OpenRenderer();
  for (const auto& [width, height, bytes] :
       std::initializer_list<std::array<int, 3>>{{1, 1, 4}, {2, 3, 24}, {3, 1, 12}, {5, 3, 48}}) {
    Call(renderer, "GetDIBits", 0.0F, 0.0F, width, height);
    EXPECT_EQ(LastAllocationSize(), static_cast<std::size_t>(bytes)) << width << " x " << height;
  }
}

TEST_F(ReadBackTest, NegativeSizesReadNothing) {
  Variable renderer = OpenRenderer();
  EXPECT_EQ(BytesOf(Call(renderer, "GetDIBits", 0.0F, 0.0F, -4, 2)), Bytes());
  EXPECT_EQ(BytesOf(Call(renderer, "GetDIBits", 0.0F, 0.0F, 4, -2)), Bytes());
  // The product is positive, yet there is no such rectangle.
  EXPECT_EQ(BytesOf(Call(renderer, "GetDIBits", 0.0F, 0.0F, -4, -2)), Bytes(24, 0));
  EXPECT_EQ(BytesOf(Call(renderer, "GetDIBits", 0.0F, 0.0F, INT_MIN, 1)), Bytes());
  EXPECT_EQ(BytesOf(Call(renderer, "GetDIBits", 0.0F, 0.0F, 0, -2)), Bytes());
  EXPECT_EQ(BytesOf(Call(renderer, "GetDIBits", 0.0F, 0.0F, -2, 0)), Bytes());
  EXPECT_THAT(TakeLog(), Not(HasSubstr("glReadPixels")));
}

TEST_F(ReadBackTest, SizesWhoseByteCountOverflowsWriteNothingPastTheBuffer) {
  Variable renderer = OpenRenderer();
  Call(renderer, "GetDIBits", 0.0F, 0.0F, 65536, 65536);      // 2^32 pixels: no bytes
  Call(renderer, "GetDIBits", 0.0F, 0.0F, 40000, 40000);      // the byte count turns negative
  Call(renderer, "GetDIBits", 0.0F, 0.0F, 0x55555556, 2);     // a few bytes
  Call(renderer, "GetDIBits", 0.0F, 0.0F, INT_MAX, INT_MAX);  // three bytes
  EXPECT_EQ(devhost::RaisedCount(), 0);
}

#ifdef TALQ_ALLOCATION_LIMIT_MIB
constexpr int kLimit = TALQ_ALLOCATION_LIMIT_MIB << 20;

TEST_F(ReadBackTest, WithoutByteStringNothingIsRead) {
  Variable renderer = OpenRenderer();
  Variable result = Call(renderer, "GetDIBits", 0.0F, 0.0F, 4, kLimit / 12 + 1);
  EXPECT_EQ(static_cast<unsigned char*>(result), nullptr);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(ReadBackTest, WithoutScratchTheBytesStayUnfilled) {
  Variable renderer = OpenRenderer();
  // The bytes lie under the limit, the padded rows above it.
  const int height = kLimit / 4 + 1;
  Variable result = Call(renderer, "GetDIBits", 0.0F, 0.0F, 1, height);
  const unsigned char* bytes = result;
  ASSERT_TRUE(bytes);
  EXPECT_EQ(result.GetString()->length, 3 * height);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(bytes[0] | bytes[1] | bytes[2], 0);
}
#endif

TEST_F(ReadBackTest, NativeCallFillsExactlyItsPixels) {
  recorder::SetCurrent(0x1000, 0x77);
  recorder::Get().answers.frame = Frame(24);
  const TOpenGL renderer;
  Bytes pixels(26, 0xEE);
  const FailingAllocation failing(1);
  renderer.GetDIBits(0, 0, 4, 2, pixels.data() + 1);
  EXPECT_FALSE(failing.Happened());
  Bytes expected = RedAndBlueSwapped(Frame(24));
  expected.insert(expected.begin(), 0xEE);
  expected.push_back(0xEE);
  EXPECT_EQ(pixels, expected);
}

}  // namespace
