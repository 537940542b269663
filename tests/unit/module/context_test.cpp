// Opening, binding, freeing and closing, and the contexts that were current before.
#include <string>

#include "binding/errors.h"
#include "classes/gl.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/opening.h"

namespace {

using ContextTest = ModuleTest;
using recorder::SetCurrent;

constexpr char kWindowFlags[] = "PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_GENERIC_FORMAT | PFD_SWAP_COPY";
constexpr char kBitmapFlags[] = "PFD_DRAW_TO_BITMAP | PFD_SUPPORT_GDI | PFD_SUPPORT_OPENGL | PFD_SWAP_COPY";

Variable Mdc() { return NewObject("MDC"); }
int Is(Variable& renderer, const char* query) { return Call(renderer, query); }

void ExpectState(Variable& renderer, bool open, bool bound) {
  EXPECT_EQ(Is(renderer, "IsOpen"), open ? 1 : 0);
  EXPECT_EQ(Is(renderer, "IsBind"), bound ? 1 : 0);
}

// The calls from asking for the current context to making the new one current.
std::string Creation(const std::string& device, const std::string& flags, const std::string& context) {
  return "wglGetCurrentDC()\nwglGetCurrentContext()\nChoosePixelFormat(" + device + ", " + flags +
         ")\nSetPixelFormat(" + device + ", 1, " + flags + ")\nwglCreateContext(" + device + ")\nwglMakeCurrent(" +
         device + ", " + context + ")\n";
}

std::string Binding(const std::string& device, const std::string& flags, const std::string& context) {
  return "wglGetCurrentDC()\nwglGetCurrentContext()\nChoosePixelFormat(" + device + ", " + flags +
         ")\nSetPixelFormat(" + device + ", 1, " + flags + ")\nwglMakeCurrent(" + device + ", " + context + ")\n";
}

void ExpectCurrent(std::uintptr_t device, std::uintptr_t context) {
  EXPECT_EQ(recorder::Get().currentDevice, reinterpret_cast<HDC>(device));
  EXPECT_EQ(recorder::Get().currentContext, reinterpret_cast<HGLRC>(context));
}

TEST_F(ContextTest, NewRendererIsClosed) {
  Variable renderer = NewRenderer();
  ExpectState(renderer, false, false);
  EXPECT_EQ(Is(renderer, "GetDoubleBuff"), 0);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(ContextTest, OpenAsksTheDeviceForHandleAndRectangle) {
  Variable renderer = NewRenderer();
  Call(renderer, "Open", Mdc());
  EXPECT_EQ(Device().requests, std::vector<std::string>({"GetID", "GetClientRect", "bottom", "right", "top", "left"}));
}

TEST_F(ContextTest, OpenCreatesAContextAndAppliesTheInitialState) {
  Variable renderer = NewRenderer();
  Call(renderer, "Open", Mdc());
  EXPECT_EQ(TakeLog(), Creation("0x1000", kWindowFlags, "0xc001") + Opening().Log());
  ExpectState(renderer, true, true);
}

TEST_F(ContextTest, OpenBitmapDoesTheSameWithItsOwnFlags) {
  Variable renderer = NewRenderer();
  Call(renderer, "OpenBitmap", Mdc());
  EXPECT_EQ(TakeLog(), Creation("0x1000", kBitmapFlags, "0xc001") + Opening().Log());
  ExpectState(renderer, true, true);
}

TEST_F(ContextTest, ResultIsTheClientRectangle) {
  Variable renderer = NewRenderer();
  EXPECT_EQ(devhost::KindOf(Call(renderer, "Open", Mdc())), "ClientRectangle");
  EXPECT_EQ(devhost::KindOf(Call(renderer, "BindMDC", Mdc())), "ClientRectangle");
  EXPECT_EQ(devhost::KindOf(Call(renderer, "OpenBitmap", Mdc())), "ClientRectangle");
}

TEST_F(ContextTest, HandleHas64Bits) {
  Device().id = 0x123456789ALL;
  Variable renderer = NewRenderer();
  Call(renderer, "Open", Mdc());
  EXPECT_THAT(TakeLog(), HasSubstr("wglCreateContext(0x123456789a)"));
}

TEST_F(ContextTest, DeviceWithoutHandleRaisesNoDcAndChangesNothing) {
  Variable closed = NewRenderer();
  Variable open = OpenRenderer();
  Device() = {.id = 0};
  for (const char* method : {"Open", "OpenBitmap", "BindMDC"}) {
    Device().requests.clear();
    Call(closed, method, Mdc());
    ExpectModuleError(OGL_NO_DC, "The Device Context is not Open");
    EXPECT_EQ(Device().requests, std::vector<std::string>{"GetID"});
    Call(open, method, Mdc());
    ExpectModuleError(OGL_NO_DC, "The Device Context is not Open");
  }
  EXPECT_EQ(TakeLog(), "");
  ExpectState(closed, false, false);
  ExpectState(open, true, true);
}

TEST_F(ContextTest, ContextThatCannotBeCreatedRaisesWrongDc) {
  recorder::Get().answers.createsContexts = false;
  recorder::Get().answers.lastError = 5;
  Variable renderer = NewRenderer();
  Call(renderer, "Open", Mdc());
  ExpectModuleError(OGL_WRONG_DC, "The Device Context is not Valid System error #5");
  EXPECT_TRUE(TakeLog().ends_with("wglCreateContext(0x1000)\n"));
  ExpectState(renderer, false, true);
  Call(renderer, "Close");
  EXPECT_EQ(TakeLog(), "");
  ExpectState(renderer, false, false);
}

TEST_F(ContextTest, ContextThatCannotBeMadeCurrentRaisesCantBindDcAndStays) {
  SetCurrent(0x77, 0x88);
  recorder::Get().answers.makesCurrent = false;
  recorder::Get().answers.lastError = 2000;
  Variable renderer = NewRenderer();
  Call(renderer, "OpenBitmap", Mdc());
  ExpectModuleError(OGL_CANTBIND_DC, "Can't bind Device Context System error #2000");
  EXPECT_EQ(TakeLog(), Creation("0x1000", kBitmapFlags, "0xc001"));
  ExpectState(renderer, true, true);
  Call(renderer, "Close");
  EXPECT_EQ(TakeLog(), Lines({"wglMakeCurrent(0x77, 0x88)", "wglDeleteContext(0xc001)"}));
}

TEST_F(ContextTest, SystemErrorIsASignedNumber) {
  recorder::Get().answers.createsContexts = false;
  recorder::Get().answers.lastError = 0xFFFFFFFF;
  Variable renderer = NewRenderer();
  Call(renderer, "Open", Mdc());
  ExpectModuleError(OGL_WRONG_DC, "The Device Context is not Valid System error #-1");
}

TEST_F(ContextTest, OpenWhileOpenClosesFirst) {
  SetCurrent(0x77, 0x88);
  Variable renderer = OpenRenderer();
  Call(renderer, "OpenBitmap", Mdc());
  EXPECT_EQ(TakeLog(), Lines({"wglMakeCurrent(0x77, 0x88)", "wglDeleteContext(0xc001)"}) +
                           Creation("0x2000", kBitmapFlags, "0xc002") + Opening().Log());
  ExpectState(renderer, true, true);
  Call(renderer, "Close");
  ExpectCurrent(0x77, 0x88);
}

TEST_F(ContextTest, OpenOfAnUnboundRendererClosesFirstToo) {
  Variable renderer = OpenRenderer();
  Call(renderer, "FreeMDC");
  TakeLog();
  Call(renderer, "Open", Mdc());
  EXPECT_TRUE(TakeLog().starts_with(Lines({"wglMakeCurrent(null, null)", "wglDeleteContext(0xc001)"})));
}

TEST_F(ContextTest, OpenKeepsNothingOfAnEarlierOne) {
  Variable renderer = OpenRenderer();
  Device().left = 7;
  Device().bottom = 500;
  Call(renderer, "OpenBitmap", Mdc());
  EXPECT_THAT(TakeLog(), HasSubstr("glViewport(7, 100, 400, 400)"));
  Call(renderer, "BindMDC", Mdc());
  EXPECT_TRUE(TakeLog().starts_with(Binding("0x3000", kBitmapFlags, "0xc002")));
}

TEST_F(ContextTest, OpenAfterAFailedOpenStartsAnew) {
  Variable renderer = NewRenderer();
  recorder::Get().answers.createsContexts = false;
  Call(renderer, "Open", Mdc());
  ExpectModuleError(OGL_WRONG_DC, "The Device Context is not Valid System error #0");
  recorder::Get().answers.createsContexts = true;
  TakeLog();
  Call(renderer, "Open", Mdc());
  EXPECT_EQ(TakeLog(), Creation("0x2000", kWindowFlags, "0xc001") + Opening().Log());
}

TEST_F(ContextTest, CloseMakesThePreviousContextCurrentAndDeletesItsOwn) {
  SetCurrent(0x77, 0x88);
  Variable renderer = OpenRenderer();
  ExpectCurrent(0x1000, 0xC001);
  Call(renderer, "Close");
  EXPECT_EQ(TakeLog(), Lines({"wglMakeCurrent(0x77, 0x88)", "wglDeleteContext(0xc001)"}));
  ExpectCurrent(0x77, 0x88);
  ExpectState(renderer, false, false);
}

TEST_F(ContextTest, CloseAndFreeOfAClosedRendererDoNothing) {
  Variable renderer = NewRenderer();
  Call(renderer, "Close");
  Call(renderer, "FreeMDC");
  EXPECT_EQ(TakeLog(), "");
  ExpectState(renderer, false, false);
}

TEST_F(ContextTest, CloseForgetsThePreviousContext) {
  SetCurrent(0x77, 0x88);
  Variable renderer = OpenRenderer();
  Call(renderer, "Close");
  SetCurrent(0, 0);
  Call(renderer, "Open", Mdc());
  TakeLog();
  Call(renderer, "Close");
  EXPECT_EQ(TakeLog(), Lines({"wglMakeCurrent(null, null)", "wglDeleteContext(0xc002)"}));
}

TEST_F(ContextTest, FreeKeepsTheContextOpenButUnbound) {
  SetCurrent(0x77, 0x88);
  Variable renderer = OpenRenderer();
  Call(renderer, "FreeMDC");
  EXPECT_EQ(TakeLog(), "wglMakeCurrent(0x77, 0x88)\n");
  ExpectState(renderer, true, false);
  ExpectCurrent(0x77, 0x88);
  Call(renderer, "FreeMDC");
  EXPECT_EQ(TakeLog(), "wglMakeCurrent(null, null)\n");
  Call(renderer, "Close");
  EXPECT_EQ(TakeLog(), Lines({"wglMakeCurrent(null, null)", "wglDeleteContext(0xc001)"}));
  ExpectState(renderer, false, false);
}

TEST_F(ContextTest, BindMovesTheContextAndAppliesViewportAndProjectionAlone) {
  Variable renderer = OpenRenderer();
  Call(renderer, "FreeMDC");
  TakeLog();
  SetCurrent(0x55, 0x66);
  Device() = {.id = 0x2000, .left = 7, .bottom = 500};
  Call(renderer, "BindMDC", Mdc());
  EXPECT_EQ(TakeLog(),
            Binding("0x2000", kWindowFlags, "0xc001") + "glViewport(7, 100, 400, 400)\n" + Opening().Projection());
  ExpectState(renderer, true, true);
  Call(renderer, "Close");
  ExpectCurrent(0x55, 0x66);
}

TEST_F(ContextTest, BindWhileBoundRemembersItsOwnContextAsThePrevious) {
  Variable renderer = OpenRenderer();
  Call(renderer, "BindMDC", Mdc());
  TakeLog();
  Call(renderer, "FreeMDC");
  EXPECT_EQ(TakeLog(), "wglMakeCurrent(0x1000, 0xc001)\n");
}

TEST_F(ContextTest, BindOfTheSameDeviceAppliesAllAgain) {
  Variable renderer = NewRenderer();
  const Variable device = Mdc();
  Call(renderer, "Open", device);
  for (int time = 0; time < 2; ++time) {
    TakeLog();
    Call(renderer, "BindMDC", device);
    EXPECT_EQ(TakeLog(),
              Binding("0x1000", kWindowFlags, "0xc001") + "glViewport(16, 80, 400, 400)\n" + Opening().Projection());
  }
}

TEST_F(ContextTest, BindAsksForThePixelFormatOfTheLastOpen) {
  Variable renderer = NewRenderer();
  Call(renderer, "OpenBitmap", Mdc());
  Call(renderer, "UseAccelerator", true);
  Call(renderer, "EnableDoubleBuff", true);
  TakeLog();
  Call(renderer, "BindMDC", Mdc());
  EXPECT_TRUE(TakeLog().starts_with(Binding("0x2000", kBitmapFlags, "0xc001")));
}

TEST_F(ContextTest, BindOfAClosedRendererRaisesNoDc) {
  Variable renderer = NewRenderer();
  Call(renderer, "BindMDC", Mdc());
  ExpectModuleError(OGL_NO_DC, "The Device Context is not Open");
  EXPECT_EQ(TakeLog(), "");
  ExpectState(renderer, false, false);
  EXPECT_EQ(Device().requests.back(), "left");
}

TEST_F(ContextTest, BindThatCannotMakeCurrentRaisesCantBindDc) {
  Variable renderer = OpenRenderer();
  recorder::Get().answers.makesCurrent = false;
  recorder::Get().answers.lastError = 6;
  Call(renderer, "BindMDC", Mdc());
  ExpectModuleError(OGL_CANTBIND_DC, "Can't bind Device Context System error #6");
  EXPECT_EQ(TakeLog(), Binding("0x2000", kWindowFlags, "0xc001"));
  ExpectState(renderer, true, true);
}

TEST_F(ContextTest, DestructorCloses) {
  SetCurrent(0x77, 0x88);
  {
    const Variable renderer = OpenRenderer();
    const Variable closed = NewRenderer();
  }
  EXPECT_EQ(TakeLog(), Lines({"wglMakeCurrent(0x77, 0x88)", "wglDeleteContext(0xc001)"}));
  ExpectCurrent(0x77, 0x88);
}

TEST_F(ContextTest, NestedRenderersGiveBackWhatTheyFound) {
  Variable outer = OpenRenderer();
  Variable inner = OpenRenderer();
  ExpectCurrent(0x2000, 0xC002);
  Call(inner, "Close");
  ExpectCurrent(0x1000, 0xC001);
  Call(outer, "Close");
  ExpectCurrent(0, 0);
}

}  // namespace
