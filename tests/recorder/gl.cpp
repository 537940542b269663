// OpenGL's calls that keep a state, and one that has a length of its own.
#include <GL/gl.h>

#include "tests/recorder/recorder.h"

using gl_trace::Enum;
using gl_trace::Primitive;
using recorder::Get;
using recorder::Record;

namespace {

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

// ---- State

void glEnable(GLenum capability) {
  Record("glEnable", Enum{capability});
  if (Get().HasContext()) Get().answers.enabled.insert(capability);
}
void glDisable(GLenum capability) {
  Record("glDisable", Enum{capability});
  if (Get().HasContext()) Get().answers.enabled.erase(capability);
}

// ---- Light

void glLightfv(GLenum light, GLenum name, const GLfloat* values) {
  // OpenGL reads three numbers of a direction; the callers here always pass four.
  Record("glLightfv", Enum{light}, Enum{name}, std::span<const GLfloat>(values, 4));
}

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

// ---- Display lists

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
