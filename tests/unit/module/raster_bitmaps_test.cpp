// "PutBitmap" and "Put2bBitmap": pixels and bits at the raster position.
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "tests/unit/support/fake_bitmap.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/host_trace.h"

namespace {

using RasterBitmapsTest = ModuleTest;

const Bytes& LastImage() { return recorder::Get().calls.back().bytes; }

// ---- PutBitmap

TEST_F(RasterBitmapsTest, PixelsAreCopiedToThePosition) {
  Variable renderer = OpenRenderer();
  Call(renderer, "PutBitmap", 1.0F, 2.5F, 3.0F, NewFakeBitmap(1, 2, ByteString({1, 2, 3, 4, 5, 6})));
  EXPECT_EQ(LastImage(), Bytes({3, 2, 1, 6, 5, 4}));
  EXPECT_EQ(TakeLog(), Lines({"glRasterPos3f(1, 2.5, 3)", "glPixelStorei(GL_UNPACK_ALIGNMENT, 1)",
                              "glDrawPixels(1, 2, GL_RGB, GL_UNSIGNED_BYTE)"}));
  EXPECT_EQ(BytesOf(Bitmap().pixels), Bytes({3, 2, 1, 6, 5, 4}));
  EXPECT_EQ(Bitmap().requests, std::vector<std::string>({"GetWidth", "GetHeight", "GetDIBits"}));
}

TEST_F(RasterBitmapsTest, PixelsAreCopiedToAPointOnce) {
  Variable renderer = OpenRenderer();
  Call(renderer, "PutBitmap", Point3(4, 5, 6), NewFakeBitmap(1, 1, ByteString({1, 2, 3})));
  EXPECT_EQ(LastImage(), Bytes({3, 2, 1}));
  EXPECT_EQ(TakeLog(), Lines({"glRasterPos3f(4, 5, 6)", "glPixelStorei(GL_UNPACK_ALIGNMENT, 1)",
                              "glDrawPixels(1, 1, GL_RGB, GL_UNSIGNED_BYTE)"}));
}

TEST_F(RasterBitmapsTest, EmptyAndNegativeSizesTouchNoPixel) {
  Variable renderer = OpenRenderer();
  for (const auto& [width, height] : std::initializer_list<std::pair<int, int>>{{0, 2}, {-1, 2}, {-1, -2}}) {
    Call(renderer, "PutBitmap", 0.0F, 0.0F, 0.0F, NewFakeBitmap(width, height, ByteString({1, 2, 3, 4, 5, 6})));
    EXPECT_EQ(recorder::Get().calls.size(), 3U);
    EXPECT_EQ(BytesOf(Bitmap().pixels), Bytes({1, 2, 3, 4, 5, 6}));
    TakeLog();
  }
}

TEST_F(RasterBitmapsTest, WithoutPixelsNothingIsCopied) {
  Variable renderer = OpenRenderer();
  Call(renderer, "PutBitmap", 0.0F, 0.0F, 0.0F, NewFakeBitmap(1, 1, Variable()));
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(RasterBitmapsTest, ClosedRendererOnlyAsksTheBitmap) {
  Variable renderer = NewRenderer();
  Call(renderer, "PutBitmap", Point3(1, 2, 3), NewFakeBitmap(1, 1, ByteString({1, 2, 3})));
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(Bitmap().requests.size(), 3U);
  EXPECT_EQ(BytesOf(Bitmap().pixels), Bytes({1, 2, 3}));
}

// ---- Put2bBitmap

TEST_F(RasterBitmapsTest, BitsMoveThePositionByTheirWidth) {
  Variable renderer = OpenRenderer();
  const Bytes bits = {0x81, 0, 0, 0, 0x42};
  Call(renderer, "Put2bBitmap", 1.0F, 2.0F, 3.0F, 8, 2, ByteString(bits));
  EXPECT_EQ(LastImage(), bits);
  EXPECT_EQ(TakeLog(),
            Lines({"glRasterPos3f(1, 2, 3)", "glPixelStorei(GL_UNPACK_ALIGNMENT, 4)", "glBitmap(8, 2, 0, 0, 8, 0)"}));
}

TEST_F(RasterBitmapsTest, MaskOfNegativeSizeNeedsNoBits) {
  Variable renderer = OpenRenderer();
  for (const auto& [width, height] : std::initializer_list<std::pair<int, int>>{{-40, 2}, {40, -2}, {-40, -2}}) {
    Call(renderer, "Put2bBitmap", 1.0F, 2.0F, 3.0F, width, height, ByteString({}));
    EXPECT_THAT(TakeLog(), HasSubstr(Line("glBitmap", width, height, 0, 0, width, 0)));
  }
}

TEST_F(RasterBitmapsTest, BitsAtAPoint) {
  Variable renderer = OpenRenderer();
  const Bytes bits = {1, 2, 3, 4, 5};
  Call(renderer, "Put2bBitmap", Point3(4, 5, 6), 33, 1, ByteString(bits));
  EXPECT_EQ(LastImage(), bits);
  EXPECT_EQ(TakeLog(),
            Lines({"glRasterPos3f(4, 5, 6)", "glPixelStorei(GL_UNPACK_ALIGNMENT, 4)", "glBitmap(33, 1, 0, 0, 33, 0)"}));
}

TEST_F(RasterBitmapsTest, EmptyAndNegativeSizesShowNoBits) {
  Variable renderer = OpenRenderer();
  for (const auto& [width, height] : std::initializer_list<std::pair<int, int>>{{0, 0}, {5, 0}, {-5, 3}, {5, -3}}) {
    Call(renderer, "Put2bBitmap", 0.0F, 0.0F, 0.0F, width, height, Text(""));
    EXPECT_TRUE(LastImage().empty());
    TakeLog();
  }
}

TEST_F(RasterBitmapsTest, BitsThatTheStringDoesNotHoldAreZeros) {
  Variable renderer = OpenRenderer();
  const std::string drawn =
      Lines({"glRasterPos3f(0, 0, 0)", "glPixelStorei(GL_UNPACK_ALIGNMENT, 4)", "glBitmap(33, 2, 0, 0, 33, 0)"});
  Call(renderer, "Put2bBitmap", 0.0F, 0.0F, 0.0F, 33, 2, ByteString({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
  EXPECT_EQ(LastImage(), Bytes({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 0}));
  EXPECT_EQ(TakeLog(), drawn);
  Call(renderer, "Put2bBitmap", 0.0F, 0.0F, 0.0F, 33, 2, Variable());
  EXPECT_EQ(LastImage(), Bytes(13));
  EXPECT_EQ(TakeLog(), drawn);
}

// A record that does not say where its bytes are, or how many.
TEST_F(RasterBitmapsTest, StringWithoutMemoryHasNoBits) {
  Variable renderer = OpenRenderer();
  Variable bits = ByteString({1, 2, 3, 4});
  String* record = bits.GetString();
  unsigned char* const bytes = std::exchange(record->bytes, nullptr);
  Call(renderer, "Put2bBitmap", 0.0F, 0.0F, 0.0F, 8, 1, bits);
  EXPECT_EQ(LastImage(), Bytes(1));
  record->bytes = bytes;
  record->length = -1;
  Call(renderer, "Put2bBitmap", 0.0F, 0.0F, 0.0F, 8, 1, bits);
  EXPECT_EQ(LastImage(), Bytes(1));
  record->length = 4;
}

// A host may hand out bytes of its own making, of which the value's record knows nothing.
TEST_F(RasterBitmapsTest, BytesWithoutARecordAreUsedAsTheyAre) {
  Variable renderer = OpenRenderer();
  Bytes bytes = {1, 2, 3, 4, 5};
  const RegisterBytes answer(bytes.data());
  for (const Variable& value : {Variable(), ByteString({7})}) {
    const FailingAllocation noCopy(1);
    Call(renderer, "Put2bBitmap", 0.0F, 0.0F, 0.0F, 33, 1, value);
    EXPECT_EQ(LastImage(), bytes);
    EXPECT_FALSE(noCopy.Happened());
  }
  TakeLog();
}

// The record has bytes, but the host gives none.
TEST_F(RasterBitmapsTest, NullCountsAsZeros) {
  Variable renderer = OpenRenderer();
  const RegisterBytes none(nullptr);
  Call(renderer, "Put2bBitmap", 0.0F, 0.0F, 0.0F, 8, 2, ByteString({1, 2, 3, 4, 5}));
  EXPECT_EQ(LastImage(), Bytes(5));
  TakeLog();
}

// Whether the call allocates: only for a copy, without which nothing is drawn.
bool NeedsACopy(Variable& renderer, int width, int height, int bytes) {
  const Variable bits = ByteString(Bytes(static_cast<std::size_t>(bytes)));
  const FailingAllocation failing(1);
  Call(renderer, "Put2bBitmap", 0.0F, 0.0F, 0.0F, width, height, bits);
  EXPECT_EQ(TakeLog().empty(), failing.Happened());
  return failing.Happened();
}

TEST_F(RasterBitmapsTest, StringIsCopiedOnlyWhenItIsTooShort) {
  Variable renderer = OpenRenderer();
  for (const auto& [width, height, bytes] : std::initializer_list<std::array<int, 3>>{
           {1, 1, 1}, {8, 1, 1}, {9, 1, 2}, {1, 2, 5}, {32, 2, 8}, {33, 2, 13}, {64, 3, 24}, {65, 3, 33}}) {
    EXPECT_FALSE(NeedsACopy(renderer, width, height, bytes)) << width << " x " << height;
    EXPECT_TRUE(NeedsACopy(renderer, width, height, bytes - 1)) << width << " x " << height;
  }
  for (const auto& [width, height] : std::initializer_list<std::pair<int, int>>{{0, 0}, {5, 0}, {0, 5}, {5, -3}}) {
    EXPECT_FALSE(NeedsACopy(renderer, width, height, 0)) << width << " x " << height;
  }
}

// Its rows of 64 KiB are 4 GiB and 64 KiB.
TEST_F(RasterBitmapsTest, SizeOfAMaskHas64Bits) {
  Variable renderer = OpenRenderer();
  const Variable bits = ByteString(Bytes(65536));
  const FailingAllocation failing(1);
  Call(renderer, "Put2bBitmap", 0.0F, 0.0F, 0.0F, 524288, 65537, bits);
  EXPECT_EQ(LastAllocationSize(), (std::size_t{1} << 32) + 65536);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(RasterBitmapsTest, WithoutMemoryForMissingBitsNothingIsDrawn) {
  Variable renderer = OpenRenderer();
  const Variable bits = ByteString(Bytes(12));
  {
    const FailingAllocation failing(1);
    Call(renderer, "Put2bBitmap", 0.0F, 0.0F, 0.0F, 33, 2, bits);
    EXPECT_TRUE(failing.Happened());
  }
  Call(renderer, "Put2bBitmap", 0.0F, 0.0F, 0.0F, 2147483647, 2147483647, ByteString(Bytes(16)));
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(RasterBitmapsTest, ClosedOrUnboundRendererShowsNothing) {
  Variable renderer = NewRenderer();
  Call(renderer, "Put2bBitmap", 0.0F, 0.0F, 0.0F, 8, 1, ByteString({1, 0, 0, 0}));
  EXPECT_EQ(TakeLog(), "");
  Call(renderer, "Open", NewObject("MDC"));
  Call(renderer, "FreeMDC");
  TakeLog();
  Call(renderer, "Put2bBitmap", Point3(0, 0, 0), 8, 1, ByteString({1, 0, 0, 0}));
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(RasterBitmapsTest, WithoutRendererErrorsAreRaised) {
  Variable renderer = Unjoined("TOpenGL");
  Call(renderer, "Put2bBitmap", 0.0F, 0.0F, 0.0F, 8, 1, ByteString({1, 0, 0, 0}));
  ExpectNoNative("TOpenGL");
  Call(renderer, "PutBitmap", 0.0F, 0.0F, 0.0F, NewFakeBitmap(1, 1, ByteString({1, 2, 3})));
  ExpectNoNative("TOpenGL");
  EXPECT_TRUE(Bitmap().requests.empty());
}

}  // namespace
