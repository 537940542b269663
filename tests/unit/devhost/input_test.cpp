// What a script is told of a window's user.
#include "devhost/window/input.h"

#include <gtest/gtest.h>

namespace {

using devhost::Input;
using devhost::InputMoment;
using devhost::MouseButton;

constexpr std::size_t kLeft = 0;
constexpr std::size_t kRight = 2;
constexpr std::size_t kKey = 65;

class InputTest : public testing::Test {
 protected:
  const InputMoment& Next() {
    input.BeginMoment();
    return input.Moment();
  }

  Input input{300, 200};
};

TEST_F(InputTest, BeginsWithTheSizeOfTheWindowAndNothingDone) {
  const InputMoment& moment = input.Moment();
  EXPECT_EQ(moment.width, 300);
  EXPECT_EQ(moment.height, 200);
  EXPECT_FALSE(moment.resized);
  EXPECT_TRUE(moment.buttonsDown.none() && moment.keysDown.none());
  EXPECT_FALSE(Next().resized);
}

TEST_F(InputTest, EventsBelongToTheNextMoment) {
  input.MoveMouse(3, 4);
  input.Press(MouseButton::Left);
  input.PressKey(kKey);
  input.Type(L'a');
  EXPECT_EQ(input.Moment().mouseX, 0);
  EXPECT_TRUE(input.Moment().buttonsDown.none() && input.Moment().keysPressed.none());
  EXPECT_EQ(input.Moment().typed, L"");
  const InputMoment& moment = Next();
  EXPECT_EQ(moment.mouseX, 3);
  EXPECT_EQ(moment.mouseY, 4);
  EXPECT_TRUE(moment.buttonsDown[kLeft] && moment.buttonsPressed[kLeft] && !moment.buttonsReleased[kLeft]);
  EXPECT_TRUE(moment.keysDown[kKey] && moment.keysPressed[kKey]);
  EXPECT_EQ(moment.typed, L"a");
}

TEST_F(InputTest, WhatIsHeldStaysAndWhatHappenedIsOver) {
  input.Press(MouseButton::Right);
  input.PressKey(kKey);
  input.TurnWheel(1);
  input.Type(L'a');
  input.Resize(10, 20);
  Next();
  const InputMoment& moment = Next();
  EXPECT_TRUE(moment.buttonsDown[kRight] && !moment.buttonsPressed[kRight]);
  EXPECT_TRUE(moment.keysDown[kKey] && !moment.keysPressed[kKey]);
  EXPECT_EQ(moment.wheel, 0);
  EXPECT_EQ(moment.typed, L"");
  EXPECT_FALSE(moment.resized);
  EXPECT_EQ(moment.width, 10);
  EXPECT_EQ(moment.height, 20);
}

TEST_F(InputTest, APressAndReleaseWithinAMomentIsNotLost) {
  input.Press(MouseButton::Left);
  input.Release(MouseButton::Left);
  input.PressKey(kKey);
  input.ReleaseKey(kKey);
  const InputMoment& moment = Next();
  EXPECT_TRUE(moment.buttonsPressed[kLeft] && moment.buttonsReleased[kLeft] && !moment.buttonsDown[kLeft]);
  EXPECT_TRUE(moment.keysPressed[kKey] && !moment.keysDown[kKey]);
}

TEST_F(InputTest, AHeldKeyRepeatsItsTextButIsPressedOnce) {
  input.PressKey(kKey);
  Next();
  input.PressKey(kKey);
  input.Type(L'a');
  EXPECT_FALSE(Next().keysPressed[kKey]);
  EXPECT_EQ(input.Moment().typed, L"a");
}

TEST_F(InputTest, AMomentWithAButtonTellsItsPlaceAndTheNextOneTheMouses) {
  input.MoveMouse(20, 30);
  input.Press(MouseButton::Left);
  input.MoveMouse(25, 35);
  EXPECT_EQ(Next().mouseX, 20);
  EXPECT_EQ(input.Moment().mouseY, 30);
  EXPECT_EQ(Next().mouseX, 25);
  input.MoveMouse(-4, 35);
  input.Release(MouseButton::Left);
  input.MoveMouse(50, 60);
  EXPECT_EQ(Next().mouseX, -4);
  EXPECT_EQ(Next().mouseY, 60);
}

TEST_F(InputTest, ReleasingAllTellsOfButtonsThatWereHeld) {
  input.Press(MouseButton::Left);
  input.PressKey(kKey);
  Next();
  input.ReleaseAll();
  EXPECT_FALSE(input.IsAnyButtonDown());
  const InputMoment& moment = Next();
  EXPECT_TRUE(moment.buttonsReleased[kLeft] && !moment.buttonsReleased[kRight]);
  EXPECT_TRUE(moment.buttonsDown.none() && moment.keysDown.none());
  input.Release(MouseButton::Left);  // the user lets go only now
  EXPECT_FALSE(Next().buttonsReleased[kLeft]);
}

TEST_F(InputTest, AnotherWindowThatTakesTheMouseReleasesTheButtonsAlone) {
  input.Press(MouseButton::Left);
  input.PressKey(kKey);
  Next();
  input.ReleaseButtons();
  const InputMoment& moment = Next();
  EXPECT_TRUE(moment.buttonsReleased[kLeft] && moment.buttonsDown.none());
  EXPECT_TRUE(moment.keysDown[kKey]);
}

TEST_F(InputTest, TheMouseIsKeptUntilTheLastButtonIsReleased) {
  input.Press(MouseButton::Left);
  input.Press(MouseButton::Right);
  input.Release(MouseButton::Left);
  EXPECT_TRUE(input.IsAnyButtonDown());
  input.Release(MouseButton::Right);
  EXPECT_FALSE(input.IsAnyButtonDown());
}

TEST_F(InputTest, TheWheelAddsUp) {
  input.TurnWheel(1);
  input.TurnWheel(0.5);
  input.TurnWheel(-2);
  EXPECT_EQ(Next().wheel, -0.5);
}

TEST_F(InputTest, ControlCharactersAreNoText) {
  for (const wchar_t character : {L'\b', L'\r', L'\x1B', L'\x7F', L'\x1F', L' ', L'\x20AC'}) input.Type(character);
  EXPECT_EQ(Next().typed, L" \x20AC");
}

TEST_F(InputTest, OnlyAnotherSizeIsANewOne) {
  input.Resize(300, 200);
  EXPECT_FALSE(Next().resized);
  input.Resize(300, 201);
  EXPECT_TRUE(Next().resized);
}

TEST_F(InputTest, KeysBeyondTheLastAreNone) {
  input.PressKey(devhost::kKeys);
  input.ReleaseKey(devhost::kKeys);
  EXPECT_TRUE(Next().keysDown.none());
}

}  // namespace
