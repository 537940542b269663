// From Windows' messages to input. Windows only.
#pragma once

#include <windows.h>

#include "devhost/window/input.h"

namespace devhost {

// Takes what a message says of mouse, keys, focus and size. While a button is held, the window keeps the mouse.
void TakeInput(Input& input, HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace devhost
