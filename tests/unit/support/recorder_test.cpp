// The recorder itself: what other tests rely on.
#include "tests/recorder/recorder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

HDC const kDevice = reinterpret_cast<HDC>(std::uintptr_t{0x1000});

class RecorderTest : public testing::Test {
 protected:
  void SetUp() override {
    recorder::Reset();
    recorder::SetCurrent(0x1000, 0x77);
  }
  void TearDown() override { recorder::Reset(); }
};

using Problems = std::vector<std::string>;

Problems TheProblems() { return recorder::Get().balance.Problems(); }

TEST_F(RecorderTest, CallsReadAsLines) {
  glBegin(GL_TRIANGLES);
  glVertex3f(1, -2.5F, 0.1F);
  glEnd();
  gluLookAt(0.1F, 0, 0, 0, 0, 0, 0, 1, 0);
  glEnable(0x1234);
  EXPECT_EQ(recorder::TakeLog(),
            recorder::Lines({"glBegin(GL_TRIANGLES)", "glVertex3f(1, -2.5, 0.1)", "glEnd()",
                             "gluLookAt(0.10000000149011612, 0, 0, 0, 0, 0, 0, 1, 0)", "glEnable(0x1234)"}));
  EXPECT_EQ(recorder::TakeLog(), "");
}

TEST_F(RecorderTest, NumbersThatDifferInOneBitReadDifferently) {
  EXPECT_NE(gl_trace::Format(0.1F), gl_trace::Format(std::nextafterf(0.1F, 1)));
  EXPECT_NE(gl_trace::Format(0.1), gl_trace::Format(std::nextafter(0.1, 1)));
  EXPECT_NE(gl_trace::Format(0.0F), gl_trace::Format(-0.0F));
}

TEST_F(RecorderTest, MasksNameTheirBits) {
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  glClear(0);
  glClear(GL_DEPTH_BUFFER_BIT | 1);
  EXPECT_EQ(recorder::TakeLog(), recorder::Lines({"glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT)", "glClear(0)",
                                                  "glClear(GL_DEPTH_BUFFER_BIT | 1)"}));
}

TEST_F(RecorderTest, PixelsAreWrittenInRowsOfWholeWords) {
  recorder::Get().answers.frame = {1, 2, 3, 4, 5, 6};
  std::vector<unsigned char> pixels(7, 0xEE);
  glReadPixels(0, 0, 1, 2, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
  EXPECT_EQ(pixels, std::vector<unsigned char>({1, 2, 3, 0xEE, 4, 5, 6}));
}

TEST_F(RecorderTest, UnbalancedCallsAreProblems) {
  EXPECT_EQ(TheProblems(), Problems());
  glBegin(GL_LINES);
  EXPECT_EQ(TheProblems(), Problems({"glBegin without glEnd"}));
  glEnd();
  glMatrixMode(GL_PROJECTION);
  glPushMatrix();
  EXPECT_EQ(TheProblems(), Problems({"matrix stack GL_PROJECTION left 1 deep"}));
  glPopMatrix();
  EXPECT_EQ(TheProblems(), Problems());
  glEnd();
  EXPECT_EQ(TheProblems(), Problems({"glEnd without glBegin"}));
}

TEST_F(RecorderTest, ObjectsAreUndeletedUntilTheyAreDeletedOrTaken) {
  recorder::Balance& balance = recorder::Get().balance;
  auto* const context = wglCreateContext(kDevice);
  auto* const quadric = gluNewQuadric();
  auto* const nurbs = gluNewNurbsRenderer();
  wglDeleteContext(context);
  gluDeleteQuadric(quadric);
  gluDeleteNurbsRenderer(nurbs);
  EXPECT_EQ(balance.TakeUndeleted(), Problems());
  wglCreateContext(kDevice);
  gluNewQuadric();
  gluNewQuadric();
  gluNewNurbsRenderer();
  EXPECT_EQ(balance.TakeUndeleted(),
            Problems({"contexts not deleted: 1", "quadrics not deleted: 2", "NURBS renderers not deleted: 1"}));
  EXPECT_EQ(balance.TakeUndeleted(), Problems());
  wglDeleteContext(context);
  EXPECT_EQ(TheProblems(), Problems({"deleted a context not its own"}));
}

TEST_F(RecorderTest, SelectionAnswersOncePerSelectMode) {
  recorder::Get().answers.hits = 1;
  recorder::Get().answers.hitRecords = {1, 10, 20, 7};
  GLuint buffer[8] = {};
  glSelectBuffer(8, buffer);
  glRenderMode(GL_SELECT);
  EXPECT_EQ(glRenderMode(GL_RENDER), 1);
  EXPECT_EQ(buffer[3], 7U);
  EXPECT_EQ(glRenderMode(GL_RENDER), 0);
}

}  // namespace
