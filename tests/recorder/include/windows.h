// The little of <windows.h> that the module needs, for builds against the recorder.
#pragma once

using BOOL = int;
using BYTE = unsigned char;
using WORD = unsigned short;
using DWORD = unsigned int;
using LPVOID = void*;
using HINSTANCE = struct HINSTANCE__*;
using HDC = struct HDC__*;
using HGLRC = struct HGLRC__*;

#define WINAPI
#define CALLBACK
#define TRUE 1
#define FALSE 0
#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define DLL_THREAD_ATTACH 2
#define DLL_THREAD_DETACH 3

#define PFD_DOUBLEBUFFER 0x00000001
#define PFD_DRAW_TO_WINDOW 0x00000004
#define PFD_DRAW_TO_BITMAP 0x00000008
#define PFD_SUPPORT_GDI 0x00000010
#define PFD_SUPPORT_OPENGL 0x00000020
#define PFD_GENERIC_FORMAT 0x00000040
#define PFD_SWAP_COPY 0x00000400
#define PFD_GENERIC_ACCELERATED 0x00001000

struct PIXELFORMATDESCRIPTOR {
  WORD nSize;
  WORD nVersion;
  DWORD dwFlags;
  BYTE iPixelType;
  BYTE cColorBits;
  BYTE cRedBits;
  BYTE cRedShift;
  BYTE cGreenBits;
  BYTE cGreenShift;
  BYTE cBlueBits;
  BYTE cBlueShift;
  BYTE cAlphaBits;
  BYTE cAlphaShift;
  BYTE cAccumBits;
  BYTE cAccumRedBits;
  BYTE cAccumGreenBits;
  BYTE cAccumBlueBits;
  BYTE cAccumAlphaBits;
  BYTE cDepthBits;
  BYTE cStencilBits;
  BYTE cAuxBuffers;
  BYTE iLayerType;
  BYTE bReserved;
  DWORD dwLayerMask;
  DWORD dwVisibleMask;
  DWORD dwDamageMask;
};
static_assert(sizeof(PIXELFORMATDESCRIPTOR) == 40);

extern "C" {
DWORD GetLastError();
int ChoosePixelFormat(HDC device, const PIXELFORMATDESCRIPTOR* descriptor);
BOOL SetPixelFormat(HDC device, int format, const PIXELFORMATDESCRIPTOR* descriptor);
BOOL SwapBuffers(HDC device);
HGLRC wglCreateContext(HDC device);
BOOL wglDeleteContext(HGLRC context);
BOOL wglMakeCurrent(HDC device, HGLRC context);
HDC wglGetCurrentDC();
HGLRC wglGetCurrentContext();
}
