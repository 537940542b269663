// OpenGL, GLU, WGL and GDI. The one header that includes <windows.h>; only .cpp files that call OpenGL include it.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <GL/gl.h>
#include <GL/glu.h>
