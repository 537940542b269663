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

void TakeMouse(Input& input, HWND window, UINT message, WPARAM wParam, LPARAM place) {
  switch (message) {
    case WM_MOUSEMOVE:
      MoveMouse(input, place);
      break;
    case WM_LBUTTONDOWN:
      Press(input, window, MouseButton::Left, place);
      break;
    case WM_MBUTTONDOWN:
      Press(input, window, MouseButton::Middle, place);
      break;
    case WM_RBUTTONDOWN:
      Press(input, window, MouseButton::Right, place);
      break;
    case WM_LBUTTONUP:
      Release(input, MouseButton::Left, place);
      break;
    case WM_MBUTTONUP:
      Release(input, MouseButton::Middle, place);
      break;
    case WM_RBUTTONUP:
      Release(input, MouseButton::Right, place);
      break;
    case WM_MOUSEWHEEL:
      input.TurnWheel(static_cast<double>(GET_WHEEL_DELTA_WPARAM(wParam)) / WHEEL_DELTA);
      break;
    default:
      break;
  }
}

}  // namespace

void TakeInput(Input& input, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      input.PressKey(wParam);
      break;
    case WM_KEYUP:
    case WM_SYSKEYUP:
      input.ReleaseKey(wParam);
      break;
    case WM_CHAR:
      input.Type(static_cast<wchar_t>(wParam));
      break;
    case WM_KILLFOCUS:
      input.ReleaseAll();
      ReleaseCapture();
      break;
    case WM_CAPTURECHANGED:
      // Where another window takes the mouse, no release will come.
      if (reinterpret_cast<HWND>(lParam) != window) input.ReleaseButtons();
      return;
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) input.Resize(LOWORD(lParam), HIWORD(lParam));
      break;
    default:
      TakeMouse(input, window, message, wParam, lParam);
  }
}

}  // namespace devhost
