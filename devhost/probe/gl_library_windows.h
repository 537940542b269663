// OpenGL, GLU and WGL as the system loads them for a module; the host itself links with none of them.
#pragma once

#include <windows.h>

#include <GL/gl.h>
#include <GL/glu.h>

namespace devhost {

// A library's function; null where it has none of this name.
template <class F>
F* LibraryFunction(const char* library, const char* name) {
  const HMODULE handle = LoadLibraryA(library);
  return handle ? reinterpret_cast<F*>(reinterpret_cast<void*>(GetProcAddress(handle, name))) : nullptr;
}

// Calls a function of the libraries by its own name, as GL_CALL("opengl32.dll", glGetString)(GL_VENDOR); it is part of
// Windows.
#define GL_CALL(library, function) (*devhost::LibraryFunction<decltype(function)>(library, #function))

}  // namespace devhost
