// Batches with a normal, or a normal and a colour, for each vertex: quads, polygons and given strips.
#include "geometry/emit.h"
#include "render/topengl.h"

void TOpenGL::DrawNormals(unsigned mode, TripleSpan points, TripleSpan normals) const {
  if (!CanDraw()) return;
  ApplyPolygonMode();
  glBegin(mode);
  for (int i = 0; i < normals.count; ++i) {
    EmitNormal(normals[i]);
    EmitVertex(points[i]);
  }
  glEnd();
}

// Required: these colours go to glColor3f whether lit or not.
void TOpenGL::DrawColors(unsigned mode, TripleSpan points, TripleSpan normals, TripleSpan colors) const {
  if (!CanDraw()) return;
  ApplyPolygonMode();
  glBegin(mode);
  for (int i = 0; i < points.count; ++i) {
    EmitNormal(normals[i]);
    EmitColor(colors[i]);
    EmitVertex(points[i]);
  }
  glEnd();
}

void TOpenGL::TriangleStrip(TripleSpan points, TripleSpan normals) const {
  DrawNormals(GL_TRIANGLE_STRIP, points, normals);
}
void TOpenGL::QuadStrip(TripleSpan points, TripleSpan normals) const { DrawNormals(GL_QUAD_STRIP, points, normals); }
void TOpenGL::Quads(TripleSpan points, TripleSpan normals) const { DrawNormals(GL_QUADS, points, normals); }
void TOpenGL::Polygon(TripleSpan points, TripleSpan normals) const { DrawNormals(GL_POLYGON, points, normals); }

void TOpenGL::ColorQuads(TripleSpan points, TripleSpan normals, TripleSpan colors) const {
  DrawColors(GL_QUADS, points, normals, colors);
}
void TOpenGL::ColorPolygon(TripleSpan points, TripleSpan normals, TripleSpan colors) const {
  DrawColors(GL_POLYGON, points, normals, colors);
}
