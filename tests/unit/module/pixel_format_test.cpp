// The pixel format that opening asks for, and what shows a double-buffered frame.
#include <cstring>
#include <string>

#include "binding/errors.h"
#include "classes/gl.h"
#include "tests/unit/support/fixture.h"

namespace {

using PixelFormatTest = ModuleTest;

// The 40 bytes of the descriptor, written out by offset.
Bytes Descriptor(unsigned flags) {
  Bytes bytes(40, 0);
  bytes[0] = 40;  // nSize
  bytes[2] = 1;   // nVersion
  for (std::size_t i = 0; i < 4; ++i) bytes[4 + i] = static_cast<unsigned char>(flags >> (8 * i));
  bytes[8] = 24;   // iPixelType
  bytes[22] = 16;  // cAccumAlphaBits
  return bytes;
}

// Expects that the choice and the setting each had this descriptor.
void ExpectDescriptor(unsigned flags) {
  int found = 0;
  for (const recorder::Call& call : recorder::Get().calls) {
    if (!call.name.ends_with("PixelFormat")) continue;
    EXPECT_EQ(call.bytes, Descriptor(flags)) << call.Text();
    ++found;
  }
  EXPECT_EQ(found, 2);
  TakeLog();
}

TEST_F(PixelFormatTest, WindowFlagsFollowAccelerationAndDoubleBuffering) {
  const struct {
    bool accelerated, doubled;
    unsigned flags;
  } cases[] = {{false, false, 0x464}, {false, true, 0x465}, {true, false, 0x1424}, {true, true, 0x1425}};
  for (const auto& each : cases) {
    Variable renderer = NewRenderer();
    Call(renderer, "UseAccelerator", each.accelerated);
    Call(renderer, "EnableDoubleBuff", each.doubled);
    EXPECT_EQ(TakeLog(), "");
    Call(renderer, "Open", NewObject("MDC"));
    ExpectDescriptor(each.flags);
    Call(renderer, "BindMDC", NewObject("MDC"));
    ExpectDescriptor(each.flags);
    Call(renderer, "Close");
    TakeLog();
  }
}

TEST_F(PixelFormatTest, BitmapFlagsFollowNothing) {
  for (const bool on : {false, true}) {
    Variable renderer = NewRenderer();
    Call(renderer, "UseAccelerator", on);
    Call(renderer, "EnableDoubleBuff", on);
    Call(renderer, "OpenBitmap", NewObject("MDC"));
    ExpectDescriptor(0x438);
    Call(renderer, "Close");
    TakeLog();
  }
}

TEST_F(PixelFormatTest, ChosenNumberIsSetUnchecked) {
  recorder::Get().answers.pixelFormat = 0;
  Variable renderer = NewRenderer();
  Call(renderer, "Open", NewObject("MDC"));
  EXPECT_THAT(TakeLog(), HasSubstr("SetPixelFormat(0x1000, 0,"));
  ExpectModuleError(OGL_WRONG_DC, "The Device Context is not Valid System error #0");
  recorder::Get().answers.pixelFormat = 9;
  const Variable second = NewObject("MDC");
  Call(renderer, "Open", second);
  EXPECT_THAT(TakeLog(), HasSubstr("SetPixelFormat(0x2000, 9,"));
  // The window has its format, whatever is set.
  recorder::Get().answers.pixelFormat = 0;
  Call(renderer, "BindMDC", second);
  EXPECT_THAT(TakeLog(), HasSubstr("SetPixelFormat(0x2000, 0,"));
  EXPECT_EQ(static_cast<int>(Call(renderer, "IsBind")), 1);
}

TEST_F(PixelFormatTest, DoubleBufferingIsReported) {
  Variable renderer = NewRenderer();
  Call(renderer, "EnableDoubleBuff", true);
  EXPECT_EQ(static_cast<int>(Call(renderer, "GetDoubleBuff")), 1);
  Call(renderer, "EnableDoubleBuff", false);
  EXPECT_EQ(static_cast<int>(Call(renderer, "GetDoubleBuff")), 0);
}

TEST_F(PixelFormatTest, SwapNeedsADeviceAndDoubleBuffering) {
  Variable renderer = NewRenderer();
  Call(renderer, "EnableDoubleBuff", true);
  Call(renderer, "SwapBuffers");
  EXPECT_EQ(TakeLog(), "");
  Call(renderer, "Open", NewObject("MDC"));
  TakeLog();
  Call(renderer, "SwapBuffers");
  EXPECT_EQ(TakeLog(), "SwapBuffers(0x1000)\n");
  Call(renderer, "EnableDoubleBuff", false);
  Call(renderer, "SwapBuffers");
  EXPECT_EQ(TakeLog(), "");
  Call(renderer, "EnableDoubleBuff", true);
  Call(renderer, "FreeMDC");
  TakeLog();
  Call(renderer, "SwapBuffers");
  EXPECT_EQ(TakeLog(), "");
}

}  // namespace
