// OpenGL's calls that only set something or draw.
#include <GL/gl.h>

#include "tests/recorder/recorder.h"

using gl_trace::ClearMask;
using gl_trace::Enum;
using gl_trace::Primitive;
using recorder::Get;
using recorder::Record;

namespace {

template <std::size_t size, class T>
std::span<const T> Array(const T* values) {
  return {values, size};
}

void Fault(const char* text) { Get().balance.faults.emplace_back(text); }

void MoveMatrixStack(int by) {
  if (Get().HasContext()) Get().balance.matrixDepth[Get().balance.matrixMode] += by;
}

}  // namespace

// ---- Begin and end

void glBegin(GLenum mode) {
  Record("glBegin", Primitive{mode});
  if (!Get().HasContext()) return;
  if (Get().balance.insideBegin) Fault("glBegin inside glBegin");
  Get().balance.insideBegin = true;
}

void glEnd() {
  Record("glEnd");
  if (!Get().HasContext()) return;
  if (!Get().balance.insideBegin) Fault("glEnd without glBegin");
  Get().balance.insideBegin = false;
}

void glVertex3f(GLfloat x, GLfloat y, GLfloat z) { Record("glVertex3f", x, y, z); }
void glVertex3d(GLdouble x, GLdouble y, GLdouble z) { Record("glVertex3d", x, y, z); }
void glNormal3f(GLfloat x, GLfloat y, GLfloat z) { Record("glNormal3f", x, y, z); }
void glNormal3d(GLdouble x, GLdouble y, GLdouble z) { Record("glNormal3d", x, y, z); }
void glColor3f(GLfloat red, GLfloat green, GLfloat blue) { Record("glColor3f", red, green, blue); }
void glColor4f(GLfloat red, GLfloat green, GLfloat blue, GLfloat alpha) {
  Record("glColor4f", red, green, blue, alpha);
}
void glTexCoord2f(GLfloat s, GLfloat t) { Record("glTexCoord2f", s, t); }

// ---- State

void glEnable(GLenum capability) {
  Record("glEnable", Enum{capability});
  if (Get().HasContext()) Get().answers.enabled.insert(capability);
}
void glDisable(GLenum capability) {
  Record("glDisable", Enum{capability});
  if (Get().HasContext()) Get().answers.enabled.erase(capability);
}
void glHint(GLenum target, GLenum mode) { Record("glHint", Enum{target}, Enum{mode}); }
void glShadeModel(GLenum mode) { Record("glShadeModel", Enum{mode}); }
void glFrontFace(GLenum mode) { Record("glFrontFace", Enum{mode}); }
void glDepthFunc(GLenum function) { Record("glDepthFunc", Enum{function}); }
void glPolygonMode(GLenum face, GLenum mode) { Record("glPolygonMode", Enum{face}, Enum{mode}); }
void glBlendFunc(GLenum source, GLenum destination) { Record("glBlendFunc", Enum{source}, Enum{destination}); }
void glPointSize(GLfloat size) { Record("glPointSize", size); }
void glLineWidth(GLfloat width) { Record("glLineWidth", width); }
void glViewport(GLint x, GLint y, GLsizei width, GLsizei height) { Record("glViewport", x, y, width, height); }
void glClearColor(GLclampf red, GLclampf green, GLclampf blue, GLclampf alpha) {
  Record("glClearColor", red, green, blue, alpha);
}
void glClear(GLbitfield mask) { Record("glClear", ClearMask{mask}); }
void glFlush() { Record("glFlush"); }
void glFinish() { Record("glFinish"); }

// ---- Light, material, fog

void glLightf(GLenum light, GLenum name, GLfloat value) { Record("glLightf", Enum{light}, Enum{name}, value); }
void glLightfv(GLenum light, GLenum name, const GLfloat* values) {
  // OpenGL reads three numbers of a direction; the callers here always pass four.
  Record("glLightfv", Enum{light}, Enum{name}, Array<4>(values));
}
void glLightModeli(GLenum name, GLint value) { Record("glLightModeli", Enum{name}, value); }
void glMaterialf(GLenum face, GLenum name, GLfloat value) { Record("glMaterialf", Enum{face}, Enum{name}, value); }
void glMaterialfv(GLenum face, GLenum name, const GLfloat* values) {
  Record("glMaterialfv", Enum{face}, Enum{name}, Array<4>(values));
}
void glColorMaterial(GLenum face, GLenum mode) { Record("glColorMaterial", Enum{face}, Enum{mode}); }
void glFogi(GLenum name, GLint value) { Record("glFogi", Enum{name}, Enum{static_cast<GLenum>(value)}); }
void glFogf(GLenum name, GLfloat value) { Record("glFogf", Enum{name}, value); }
void glFogfv(GLenum name, const GLfloat* values) { Record("glFogfv", Enum{name}, Array<4>(values)); }

// ---- Matrices

void glMatrixMode(GLenum mode) {
  Record("glMatrixMode", Enum{mode});
  if (Get().HasContext()) Get().balance.matrixMode = mode;
}
void glPushMatrix() {
  Record("glPushMatrix");
  MoveMatrixStack(1);
}
void glPopMatrix() {
  Record("glPopMatrix");
  MoveMatrixStack(-1);
}
void glLoadIdentity() { Record("glLoadIdentity"); }
void glMultMatrixd(const GLdouble* matrix) { Record("glMultMatrixd", Array<16>(matrix)); }
void glTranslatef(GLfloat x, GLfloat y, GLfloat z) { Record("glTranslatef", x, y, z); }
void glRotatef(GLfloat angle, GLfloat x, GLfloat y, GLfloat z) { Record("glRotatef", angle, x, y, z); }
void glScalef(GLfloat x, GLfloat y, GLfloat z) { Record("glScalef", x, y, z); }
void glFrustum(GLdouble left, GLdouble right, GLdouble bottom, GLdouble top, GLdouble zNear, GLdouble zFar) {
  Record("glFrustum", left, right, bottom, top, zNear, zFar);
}

// ---- Display lists and names

void glNewList(GLuint list, GLenum mode) {
  Record("glNewList", list, Enum{mode});
  if (!Get().HasContext()) return;
  if (Get().balance.insideList) Fault("glNewList inside glNewList");
  Get().balance.insideList = true;
}
void glEndList() {
  Record("glEndList");
  if (Get().HasContext()) Get().balance.insideList = false;
}
void glCallList(GLuint list) { Record("glCallList", list); }
void glCallLists(GLsizei count, GLenum type, const GLvoid* lists) {
  Record("glCallLists", count, Enum{type},
         std::span(static_cast<const GLint*>(lists), static_cast<std::size_t>(count)));
}
void glDeleteLists(GLuint list, GLsizei count) { Record("glDeleteLists", list, count); }

// ---- Textures

void glTexEnvf(GLenum target, GLenum name, GLfloat value) {
  Record("glTexEnvf", Enum{target}, Enum{name}, Enum{static_cast<GLenum>(value)});
}
void glTexParameteri(GLenum target, GLenum name, GLint value) {
  Record("glTexParameteri", Enum{target}, Enum{name}, Enum{static_cast<GLenum>(value)});
}
