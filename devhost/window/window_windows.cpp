#include "devhost/window/window.h"

#include <algorithm>

#include "devhost/runtime/clock.h"
#include "devhost/runtime/wide_text.h"
#include "devhost/window/window_input.h"

namespace devhost {
namespace {

constexpr const wchar_t* kClassName = L"TalqWindow";
// OpenGL asks for the clipping.
constexpr DWORD kStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;

// A window's format can be set once: what a module asks for later, without depth, changes nothing.
bool SetFormat(HDC device, bool isDoubleBuffered) {
  PIXELFORMATDESCRIPTOR format{};
  format.nSize = sizeof format;
  format.nVersion = 1;
  format.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | (isDoubleBuffered ? PFD_DOUBLEBUFFER : 0U);
  format.iPixelType = PFD_TYPE_RGBA;
  format.cColorBits = 24;
  format.cDepthBits = 24;
  format.cStencilBits = 8;
  return SetPixelFormat(device, ChoosePixelFormat(device, &format), &format) != 0;
}

// Of a window with this client area.
SIZE OuterSize(int width, int height) {
  RECT frame{0, 0, width, height};
  AdjustWindowRect(&frame, kStyle, FALSE);
  return {frame.right - frame.left, frame.bottom - frame.top};
}

SIZE ClientSize(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return {client.right, client.bottom};
}

// Where the mouse is before it has moved.
POINT MousePlace(HWND window) {
  POINT place{};
  GetCursorPos(&place);
  ScreenToClient(window, &place);
  return place;
}

}  // namespace

std::unique_ptr<Window> Window::Open(int width, int height, std::string_view title, bool isDoubleBuffered) {
  RegisterClassOnce();
  const SIZE size = OuterSize(width, height);
  const HWND handle = CreateWindowExW(0, kClassName, WideText(title).c_str(), kStyle, CW_USEDEFAULT, CW_USEDEFAULT,
                                      size.cx, size.cy, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  if (!handle) return nullptr;
  std::unique_ptr<Window> opened(new Window(handle, ClientSize(handle)));
  if (!SetFormat(opened->device, isDoubleBuffered)) {
    const DWORD error = GetLastError();
    opened.reset();
    SetLastError(error);
    return nullptr;
  }
  ShowWindow(handle, SW_SHOWNORMAL);
  return opened;
}

Window::Window(HWND handle, SIZE size) : window(handle), device(GetDC(handle)), input(size.cx, size.cy) {
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  const POINT mouse = MousePlace(window);
  input.MoveMouse(mouse.x, mouse.y);
  input.BeginMoment();
}

void Window::Close() {
  if (!window) return;
  // Nothing is drawn on what is gone.
  if (wglGetCurrentDC() == device) wglMakeCurrent(nullptr, nullptr);
  SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  ReleaseDC(window, device);
  DestroyWindow(window);
  window = nullptr;
  device = nullptr;
}

void Window::SetTitle(std::string_view title) { SetWindowTextW(window, WideText(title).c_str()); }

void Window::Pump() {
  AnswerMessages();
  input.BeginMoment();
}

void Window::Pump(double framesPerSecond) {
  const double due = clock.NextFrame(Now(), framesPerSecond);
  AnswerMessages();
  while (Now() < due) {
    constexpr double kLongestWait = 1e6;  // milliseconds; the loop goes on waiting
    const double wait = std::clamp((due - Now()) * 1000, 0.0, kLongestWait);
    MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(wait), QS_ALLINPUT);
    AnswerMessages();
  }
  input.BeginMoment();
}

void Window::AnswerMessages() {
  for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void Window::RegisterClassOnce() {
  WNDCLASSW description{};
  description.style = CS_OWNDC;
  description.lpfnWndProc = HandleMessage;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
  description.lpszClassName = kClassName;
  RegisterClassW(&description);  // fails harmlessly when it is registered already
}

LRESULT CALLBACK Window::HandleMessage(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_GETMINMAXINFO) {
    // Else a client area has at least the width that the buttons of the title need.
    const SIZE least = OuterSize(1, 1);
    reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.cx, least.cy};
    return 0;
  }
  auto* window = reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
  if (!window) return DefWindowProcW(handle, message, wParam, lParam);
  if (message == WM_CLOSE) {
    window->closeAsked = true;
    return 0;
  }
  // Alt and F10 are keys of the script's; the window has no menu that they could open.
  if (message == WM_SYSCOMMAND && (wParam & 0xFFF0U) == SC_KEYMENU) return 0;
  TakeInput(window->input, handle, message, wParam, lParam);
  return DefWindowProcW(handle, message, wParam, lParam);
}

}  // namespace devhost
