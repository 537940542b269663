// A window that shows what OpenGL draws, and its user's input. Windows only.
#pragma once

#include <windows.h>

#include <memory>
#include <string_view>

#include "devhost/window/frame_clock.h"
#include "devhost/window/input.h"

namespace devhost {

// Its device context has a pixel format with depth and stencil, which a later SetPixelFormat leaves as it is. Its user
// can only ask to close it: it stays until Close, since a renderer may be bound to it.
class Window {
 public:
  // Null when the system gives none, which GetLastError explains. The client area has the size, if the screen has room
  // for it; the title is UTF-8. A double-buffered window shows what is drawn after SwapBuffers, another one after
  // glFlush.
  static std::unique_ptr<Window> Open(int width, int height, std::string_view title, bool isDoubleBuffered);
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  ~Window() { Close(); }

  // Destroys the window. A context that is current on it is so no longer.
  void Close();
  // False once it is closed, or its user asked for it.
  bool IsOpen() const { return window && !closeAsked; }
  // Null once it is closed.
  HDC DeviceContext() const { return device; }
  void SetTitle(std::string_view title);

  // Handles the pending messages of all the program's windows, and begins this window's next moment.
  void Pump();
  // The same, and goes on handling messages until the next frame is due.
  void Pump(double framesPerSecond);
  const InputMoment& Moment() const { return input.Moment(); }

 private:
  Window(HWND handle, SIZE size);
  static void RegisterClassOnce();
  static LRESULT CALLBACK HandleMessage(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
  static void AnswerMessages();

  HWND window;
  HDC device;
  Input input;
  FrameClock clock;
  bool closeAsked = false;
};

}  // namespace devhost
