// What a window's user does: single events make up moments, which a script asks about. No system is needed for it.
#pragma once

#include <bitset>
#include <cstddef>
#include <optional>
#include <string>

namespace devhost {

enum class MouseButton : unsigned char { Left, Middle, Right };
inline constexpr std::size_t kMouseButtons = 3;
inline constexpr std::size_t kKeys = 256;  // their numbers: devhost/window/input_names.h

// How the mouse, the keys and the window are, and what has happened since the moment before.
struct InputMoment {
  // Pixels of the client area, y down: where a button was first pressed or released since the moment before, else where
  // the mouse is now. They lie outside of the area while a button that is held keeps the mouse.
  int mouseX = 0;
  int mouseY = 0;
  int width = 0;
  int height = 0;
  std::bitset<kMouseButtons> buttonsDown;
  std::bitset<kKeys> keysDown;

  std::bitset<kMouseButtons> buttonsPressed;
  std::bitset<kMouseButtons> buttonsReleased;
  std::bitset<kKeys> keysPressed;
  double wheel = 0;    // notches; turned away from the user they are positive
  std::wstring typed;  // in the system's wide characters
  bool resized = false;
};

// Events that come while a moment lasts belong to the next one, so that a script sees one state until it asks for more.
class Input {
 public:
  Input(int width, int height);

  void MoveMouse(int x, int y);
  void Press(MouseButton button);
  void Release(MouseButton button);
  void PressKey(std::size_t key);  // a key that repeats while it is held is pressed once
  void ReleaseKey(std::size_t key);
  void ReleaseButtons();
  void ReleaseAll();  // buttons and keys
  void TurnWheel(double notches);
  void Type(wchar_t character);  // control characters are no text
  void Resize(int width, int height);

  // Whether a button is held by the events so far.
  bool IsAnyButtonDown() const { return coming.buttonsDown.any(); }
  void BeginMoment();
  const InputMoment& Moment() const { return moment; }

 private:
  struct Place {
    int x;
    int y;
  };
  void NoteButtonPlace();

  InputMoment moment;
  InputMoment coming;
  std::optional<Place> buttonPlace;  // of the coming moment
};

}  // namespace devhost
