// How scripts name keys and buttons.
#include "devhost/window/input_names.h"

#include "tests/unit/support/devhost_fixture.h"

namespace {

using devhost::ButtonNamed;
using devhost::KeyNamed;
using devhost::MouseButton;

class InputNamesTest : public DevhostTest {};

TEST_F(InputNamesTest, KeysHaveTheNumbersOfWindows) {
  EXPECT_EQ(KeyNamed("A"), 0x41U);
  EXPECT_EQ(KeyNamed("Z"), 0x5AU);
  EXPECT_EQ(KeyNamed("0"), 0x30U);
  EXPECT_EQ(KeyNamed("9"), 0x39U);
  EXPECT_EQ(KeyNamed("F1"), 0x70U);
  EXPECT_EQ(KeyNamed("F12"), 0x7BU);
  EXPECT_EQ(KeyNamed("Left"), 0x25U);
  EXPECT_EQ(KeyNamed("Control"), 0x11U);
}

TEST_F(InputNamesTest, AnUnknownKeyIsAnErrorThatNamesNearOnes) {
  EXPECT_EQ(KeyNamed("a"), std::nullopt);
  EXPECT_EQ(TakeError(), "21 There is no key \"a\". hint: did you mean A?");
  EXPECT_EQ(KeyNamed("Pageup"), std::nullopt);
  EXPECT_EQ(TakeError(), "21 There is no key \"Pageup\". hint: did you mean PageUp?");
}

TEST_F(InputNamesTest, FarFromAllOfThemTheHintNamesAll) {
  EXPECT_EQ(KeyNamed("Esc"), std::nullopt);
  EXPECT_EQ(TakeError(),
            "21 There is no key \"Esc\". hint: keys are A to Z, 0 to 9, F1 to F12, Left, Right, Up, Down, Space, "
            "Enter, Escape, Tab, Backspace, Delete, Home, End, PageUp, PageDown, Shift, Control and Alt");
  for (const char* name : {"", "+", "AB", "F13", "\xC3\x84"}) {
    EXPECT_EQ(KeyNamed(name), std::nullopt) << name;
    EXPECT_NE(TakeError(), "") << name;
  }
}

TEST_F(InputNamesTest, ButtonsAreThree) {
  EXPECT_EQ(ButtonNamed("left"), MouseButton::Left);
  EXPECT_EQ(ButtonNamed("middle"), MouseButton::Middle);
  EXPECT_EQ(ButtonNamed("right"), MouseButton::Right);
  EXPECT_EQ(ButtonNamed("Right"), std::nullopt);
  EXPECT_EQ(TakeError(), "21 There is no mouse button \"Right\". hint: did you mean right?");
  EXPECT_EQ(ButtonNamed("1"), std::nullopt);
  EXPECT_EQ(TakeError(), "21 There is no mouse button \"1\". hint: buttons are left, middle and right");
}

}  // namespace
