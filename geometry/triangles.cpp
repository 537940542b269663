// Triangles and triangle strips.
#include "classes/material.h"
#include "geometry/emit.h"
#include "render/face_normal.h"
#include "render/topengl.h"

namespace {

// The face normal from point k on, times the sign.
void EmitFaceNormal(TripleSpan points, int k, float sign = 1.0F) {
  glNormal3f(sign * FaceNormalX(points, k), sign * FaceNormalY(points, k), sign * FaceNormalZ(points, k));
}

void EmitFace(TripleSpan points, int face) {
  EmitVertex(points[3 * face]);
  EmitVertex(points[3 * face + 1]);
  EmitVertex(points[3 * face + 2]);
}

// The colour of a lit mesh goes into a material, which lives no longer than the call.
void EmitMeshColor(const float* color, Flag lit) {
  if (lit) {
    OGLMaterial(color[0], color[1], color[2], 1.0F).Apply();
  } else {
    EmitColor(color);
  }
}

}  // namespace

void TOpenGL::Triangles(TripleSpan points) const {
  if (!CanDraw()) return;
  ApplyPolygonMode();
  glBegin(GL_TRIANGLES);
  for (int face = 0; face < points.count / 3; ++face) {
    EmitFaceNormal(points, 3 * face);
    EmitFace(points, face);
  }
  glEnd();
}

void TOpenGL::Triangles(TripleSpan points, TripleSpan normals) const {
  if (!CanDraw()) return;
  ApplyPolygonMode();
  glBegin(GL_TRIANGLES);
  if (normals.count == points.count) {
    for (int i = 0; i < points.count; ++i) {
      EmitNormal(normals[i]);
      EmitVertex(points[i]);
    }
  } else {
    for (int face = 0; face < normals.count; ++face) {
      EmitNormal(normals[face]);
      EmitFace(points, face);
    }
  }
  glEnd();
}

void TOpenGL::ColorTriangles(TripleSpan points, TripleSpan normals, TripleSpan colors) const {
  if (!CanDraw()) return;
  ApplyPolygonMode();
  glBegin(GL_TRIANGLES);
  if (normals.count == points.count) {
    for (int i = 0; i < points.count; ++i) {
      EmitMeshColor(colors[i], lightEnabled);
      EmitNormal(normals[i]);
      EmitVertex(points[i]);
    }
  } else {
    // Required: a face takes the colour with its own number, though there are as many colours as points.
    for (int face = 0; face < normals.count; ++face) {
      EmitMeshColor(colors[face], lightEnabled);
      EmitNormal(normals[face]);
      EmitFace(points, face);
    }
  }
  glEnd();
}

void TOpenGL::TriangleStrip(TripleSpan points) const {
  if (!CanDraw()) return;
  ApplyPolygonMode();
  glBegin(GL_TRIANGLE_STRIP);
  for (int i = 0; i < 3; ++i) {
    EmitFaceNormal(points, 0);
    EmitVertex(points[i]);
  }
  // Every second triangle of a strip is wound the other way round.
  float sign = 1.0F;
  for (int i = 3; i < points.count; ++i) {
    sign = -sign;
    EmitFaceNormal(points, i - 2, sign);
    EmitVertex(points[i]);
  }
  glEnd();
}
