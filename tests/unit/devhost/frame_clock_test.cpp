// When frames are due.
#include "devhost/window/frame_clock.h"

#include <gtest/gtest.h>

namespace {

TEST(FrameClockTest, TheFirstFrameIsDueAtOnce) {
  devhost::FrameClock clock;
  EXPECT_EQ(clock.NextFrame(100, 4), 100);
}

TEST(FrameClockTest, FramesAreEvenlySpacedHoweverLateTheyCome) {
  devhost::FrameClock clock;
  clock.NextFrame(100, 4);
  EXPECT_EQ(clock.NextFrame(100.125, 4), 100.25);
  EXPECT_EQ(clock.NextFrame(100.375, 4), 100.5);  // late by half a frame
  EXPECT_EQ(clock.NextFrame(100.5, 2), 101);
}

TEST(FrameClockTest, MissedFramesAreNotCaughtUp) {
  devhost::FrameClock clock;
  clock.NextFrame(100, 4);
  EXPECT_EQ(clock.NextFrame(105, 4), 105);
  EXPECT_EQ(clock.NextFrame(105, 4), 105.25);
}

}  // namespace
