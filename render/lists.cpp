// Display lists. They belong to the context: nothing here keeps track of their numbers.
#include "classes/gl.h"
#include "render/topengl.h"

int TOpenGL::GenLists(int count) const { return static_cast<int>(glGenLists(count)); }

void TOpenGL::NewList(int list) const {
  if (renderContext && list >= 1) glNewList(static_cast<GLuint>(list), GL_COMPILE);
}

void TOpenGL::EndList() const { glEndList(); }

void TOpenGL::CallList(int list) const {
  if (renderContext) glCallList(static_cast<GLuint>(list));
}

void TOpenGL::CallLists(std::span<const int> lists) const {
  if (renderContext) glCallLists(static_cast<GLsizei>(lists.size()), GL_INT, lists.data());
}

void TOpenGL::DeleteLists(int first, int count) const { glDeleteLists(static_cast<GLuint>(first), count); }
