#include "devhost/window/input.h"

namespace devhost {
namespace {

std::size_t Index(MouseButton button) { return static_cast<std::size_t>(button); }

// As the moment is, with nothing happened since.
InputMoment QuietAfter(const InputMoment& moment) {
  InputMoment next;
  next.mouseX = moment.mouseX;
  next.mouseY = moment.mouseY;
  next.width = moment.width;
  next.height = moment.height;
  next.buttonsDown = moment.buttonsDown;
  next.keysDown = moment.keysDown;
  return next;
}

}  // namespace

Input::Input(int width, int height) {
  coming.width = width;
  coming.height = height;
  moment = coming;
}

void Input::MoveMouse(int x, int y) {
  coming.mouseX = x;
  coming.mouseY = y;
}

void Input::NoteButtonPlace() {
  if (!buttonPlace) buttonPlace = {coming.mouseX, coming.mouseY};
}

void Input::Press(MouseButton button) {
  NoteButtonPlace();
  coming.buttonsDown.set(Index(button));
  coming.buttonsPressed.set(Index(button));
}

void Input::Release(MouseButton button) {
  if (!coming.buttonsDown.test(Index(button))) return;
  NoteButtonPlace();
  coming.buttonsDown.reset(Index(button));
  coming.buttonsReleased.set(Index(button));
}

void Input::PressKey(std::size_t key) {
  if (key >= kKeys || coming.keysDown.test(key)) return;
  coming.keysDown.set(key);
  coming.keysPressed.set(key);
}

void Input::ReleaseKey(std::size_t key) {
  if (key < kKeys) coming.keysDown.reset(key);
}

void Input::ReleaseButtons() {
  coming.buttonsReleased |= coming.buttonsDown;
  coming.buttonsDown.reset();
}

void Input::ReleaseAll() {
  ReleaseButtons();
  coming.keysDown.reset();
}

void Input::TurnWheel(double notches) { coming.wheel += notches; }

void Input::Type(wchar_t character) {
  constexpr wchar_t kDelete = 0x7F;
  if (character >= L' ' && character != kDelete) coming.typed += character;
}

void Input::Resize(int width, int height) {
  if (width == coming.width && height == coming.height) return;
  coming.width = width;
  coming.height = height;
  coming.resized = true;
}

void Input::BeginMoment() {
  moment = coming;
  coming = QuietAfter(moment);
  if (!buttonPlace) return;
  moment.mouseX = buttonPlace->x;
  moment.mouseY = buttonPlace->y;
  buttonPlace.reset();
}

}  // namespace devhost
