// Triangles picked one by one, in runs of one material each.
#include "classes/material.h"
#include "geometry/emit.h"
#include "render/topengl.h"

void TOpenGL::BeginTriangleRuns() const { ApplyPolygonMode(); }

void TOpenGL::BeginTriangleRun(const OGLMaterial* material) const {
  if (material) material->Apply();
  glBegin(GL_TRIANGLES);
}

void TOpenGL::EndTriangleRun() const { glEnd(); }

void TOpenGL::Triangle(const float* points, const float* normals) const {
  for (int i = 0; i < 9; i += 3) {
    EmitNormal(normals + i);
    EmitVertex(points + i);
  }
}
