#include "devhost/window/window_input.h"

#include <windowsx.h>

namespace devhost {
namespace {

void MoveMouse(Input& input, LPARAM place) { input.MoveMouse(GET_X_LPARAM(place), GET_Y_LPARAM(place)); }

void Press(Input& input, HWND window, MouseButton button, LPARAM place) {
  MoveMouse(input, place);
  input.Press(button);
  SetCapture(window);
}

void Release(Input& input, MouseButton button, LPARAM place) {
  MoveMouse(input, place);
  input.Release(button);
  if (!input.IsAnyButtonDown()) ReleaseCapture();
}

void TakeMouse(Input& input, HWND window, UINT message, WPARAM wide, LPARAM place) {
  switch (message) {
    case WM_MOUSEMOVE:
      return MoveMouse(input, place);
    case WM_LBUTTONDOWN:
      return Press(input, window, MouseButton::Left, place);
    case WM_MBUTTONDOWN:
      return Press(input, window, MouseButton::Middle, place);
    case WM_RBUTTONDOWN:
      return Press(input, window, MouseButton::Right, place);
    case WM_LBUTTONUP:
      return Release(input, MouseButton::Left, place);
    case WM_MBUTTONUP:
      return Release(input, MouseButton::Middle, place);
    case WM_RBUTTONUP:
      return Release(input, MouseButton::Right, place);
    case WM_MOUSEWHEEL:
      return input.TurnWheel(static_cast<double>(GET_WHEEL_DELTA_WPARAM(wide)) / WHEEL_DELTA);
    default:
      return;
  }
}

}  // namespace

void TakeInput(Input& input, HWND window, UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      return input.PressKey(wide);
    case WM_KEYUP:
    case WM_SYSKEYUP:
      return input.ReleaseKey(wide);
    case WM_CHAR:
      return input.Type(static_cast<wchar_t>(wide));
    case WM_KILLFOCUS:
      input.ReleaseAll();
      ReleaseCapture();
      return;
    case WM_SIZE:
      if (wide != SIZE_MINIMIZED) input.Resize(LOWORD(param), HIWORD(param));
      return;
    default:
      TakeMouse(input, window, message, wide, param);
  }
}

}  // namespace devhost
