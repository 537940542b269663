// The recorder's WGL, as Microsoft documents it, and its OpenGL without a current context.
#include <gtest/gtest.h>

#include "tests/recorder/recorder.h"

namespace {

const HDC kWindow = reinterpret_cast<HDC>(std::uintptr_t{0x1000});
const HDC kOther = reinterpret_cast<HDC>(std::uintptr_t{0x2000});
constexpr PIXELFORMATDESCRIPTOR kDescriptor{};

bool SetFormat(HDC device, int format) { return SetPixelFormat(device, format, &kDescriptor) != FALSE; }

class RecorderContextsTest : public testing::Test {
 protected:
  void SetUp() override { recorder::Reset(); }
  void TearDown() override {
    recorder::Get().balance.TakeUndeleted();
    recorder::Reset();
  }
};

void ExpectCurrent(HDC device, HGLRC context) {
  EXPECT_EQ(wglGetCurrentDC(), device);
  EXPECT_EQ(wglGetCurrentContext(), context);
}

TEST_F(RecorderContextsTest, AWindowTakesOnePixelFormatOnce) {
  EXPECT_FALSE(SetFormat(kWindow, 0));
  EXPECT_TRUE(SetFormat(kWindow, 2));
  EXPECT_FALSE(SetFormat(kWindow, 3));
  EXPECT_EQ(recorder::Get().pixelFormats.at(kWindow), 2);
  EXPECT_TRUE(SetFormat(kWindow, 2));
  EXPECT_EQ(recorder::Get().pixelFormats.at(kWindow), 2);
}

TEST_F(RecorderContextsTest, AMemoryBitmapTakesOneFormatBehindTheOther) {
  recorder::Get().answers.bitmaps = {kWindow};
  EXPECT_TRUE(SetFormat(kWindow, 2));
  EXPECT_TRUE(SetFormat(kWindow, 3));
  EXPECT_FALSE(SetFormat(kWindow, 0));
  EXPECT_EQ(recorder::Get().pixelFormats.at(kWindow), 3);
}

TEST_F(RecorderContextsTest, FramesAndContextsNeedAPixelFormat) {
  EXPECT_FALSE(SwapBuffers(kWindow));
  EXPECT_EQ(wglCreateContext(kWindow), nullptr);
  SetFormat(kWindow, 2);
  EXPECT_TRUE(SwapBuffers(kWindow));
  EXPECT_NE(wglCreateContext(kWindow), nullptr);
}

TEST_F(RecorderContextsTest, AContextBecomesCurrentOnDevicesOfItsPixelFormat) {
  SetFormat(kWindow, 2);
  HGLRC const context = wglCreateContext(kWindow);
  EXPECT_TRUE(wglMakeCurrent(kWindow, context));
  ExpectCurrent(kWindow, context);
  SetFormat(kOther, 2);
  EXPECT_TRUE(wglMakeCurrent(kOther, context));
  ExpectCurrent(kOther, context);
  EXPECT_TRUE(wglMakeCurrent(kWindow, nullptr));
  ExpectCurrent(nullptr, nullptr);
}

TEST_F(RecorderContextsTest, WhereAContextCannotBecomeCurrentNoneIs) {
  SetFormat(kWindow, 2);
  SetFormat(kOther, 3);
  HGLRC const context = wglCreateContext(kWindow);
  HGLRC const deleted = wglCreateContext(kWindow);
  wglDeleteContext(deleted);
  recorder::Recorder& recorder = recorder::Get();
  const auto expectFailure = [&](HDC device, HGLRC failing) {
    recorder.answers.makesCurrent = true;
    ASSERT_TRUE(wglMakeCurrent(kWindow, context));
    recorder.answers.makesCurrent = false;
    EXPECT_FALSE(wglMakeCurrent(device, failing));
    ExpectCurrent(nullptr, nullptr);
  };
  expectFailure(kOther, context);                     // another pixel format
  expectFailure(nullptr, context);                    // no device
  expectFailure(kWindow, deleted);                    // no context any more
  expectFailure(kWindow, wglCreateContext(kWindow));  // a driver that fails
}

TEST_F(RecorderContextsTest, AContextThatIsDeletedIsCurrentNoLonger) {
  SetFormat(kWindow, 2);
  HGLRC const context = wglCreateContext(kWindow);
  HGLRC const other = wglCreateContext(kWindow);
  wglMakeCurrent(kWindow, context);
  EXPECT_TRUE(wglDeleteContext(other));
  ExpectCurrent(kWindow, context);
  EXPECT_TRUE(wglDeleteContext(context));
  ExpectCurrent(nullptr, nullptr);
  EXPECT_FALSE(wglDeleteContext(context));
}

// Calls whatever answers or changes something, each answer's place holding 7 before.
void ExpectNothingWithoutAContext() {
  GLint integers[4] = {7, 7, 7, 7};
  GLdouble doubles[16] = {7};
  void* pointer = integers;
  unsigned char pixel[4] = {7, 7, 7, 7};
  GLuint names[1] = {7};
  EXPECT_EQ(glGetString(GL_VENDOR), nullptr);
  EXPECT_EQ(glGenLists(1), 0U);
  glGetIntegerv(GL_VIEWPORT, integers);
  EXPECT_EQ(integers[0], 7);
  glGetDoublev(GL_MODELVIEW_MATRIX, doubles);
  EXPECT_EQ(doubles[0], 7);
  glGetPointerv(GL_SELECTION_BUFFER_POINTER, &pointer);
  EXPECT_EQ(pointer, integers);
  glReadPixels(0, 0, 1, 1, GL_RGB, GL_UNSIGNED_BYTE, pixel);
  EXPECT_EQ(pixel[0], 7);
  glSelectBuffer(1, names);
  EXPECT_EQ(glRenderMode(GL_SELECT), 0);
  glInitNames();
  EXPECT_EQ(glRenderMode(GL_RENDER), 0);
  EXPECT_EQ(names[0], 7U);
  EXPECT_EQ(glIsEnabled(GL_FOG), GL_FALSE);
  glEnable(GL_LIGHTING);
  glDisable(GL_FOG);
  glEnd();
  glBegin(GL_LINES);
  glNewList(1, GL_COMPILE);
  glMatrixMode(GL_PROJECTION);
  glPushMatrix();
}

TEST_F(RecorderContextsTest, OpenGLWithoutAContextAnswersAndChangesNothing) {
  recorder::Recorder& recorder = recorder::Get();
  recorder.answers.strings = {{GL_VENDOR, "vendor"}};
  recorder.answers.viewport = {1, 2, 3, 4};
  recorder.answers.modelViews = {{1}};
  recorder.answers.frame = {1, 2, 3};
  recorder.answers.enabled = {GL_FOG};
  recorder.answers.hits = 1;
  recorder.answers.hitRecords = {1};
  ExpectNothingWithoutAContext();
  EXPECT_EQ(recorder.answers.modelViews.size(), 1U);
  EXPECT_EQ(recorder.answers.enabled, std::set<GLenum>{GL_FOG});
  EXPECT_EQ(recorder.balance.matrixMode, GLenum{GL_MODELVIEW});
  EXPECT_EQ(recorder.balance.Problems(), std::vector<std::string>());
  recorder.balance.insideList = true;
  glEndList();
  EXPECT_TRUE(recorder.balance.insideList);
}

}  // namespace
