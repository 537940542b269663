// Points and lines.
#include "geometry/emit.h"
#include "render/topengl.h"

namespace {

void Smooth(GLenum capability, Flag on) {
  if (on) {
    glEnable(capability);
  } else {
    glDisable(capability);
  }
}

void EmitVertices(GLenum mode, TripleSpan points) {
  glBegin(mode);
  for (int i = 0; i < points.count; ++i) EmitVertex(points[i]);
  glEnd();
}

}  // namespace

void TOpenGL::SetPoints(TripleSpan points) const {
  if (!CanDraw()) return;
  Smooth(GL_POINT_SMOOTH, smoothPoint);
  EmitVertices(GL_POINTS, points);
}

void TOpenGL::DrawLines(unsigned mode, TripleSpan points) const {
  if (!CanDraw()) return;
  Smooth(GL_LINE_SMOOTH, smoothLine);
  EmitVertices(mode, points);
}

void TOpenGL::LineStrip(TripleSpan points) const { DrawLines(GL_LINE_STRIP, points); }
void TOpenGL::Lines(TripleSpan points) const { DrawLines(GL_LINES, points); }

void TOpenGL::ColorLines(TripleSpan points, TripleSpan colors) const {
  if (!CanDraw() || colors.count != points.count) return;
  Smooth(GL_LINE_SMOOTH, smoothLine);
  glBegin(GL_LINES);
  for (int i = 0; i < points.count; ++i) {
    EmitColor(colors[i]);
    EmitVertex(points[i]);
  }
  glEnd();
}
