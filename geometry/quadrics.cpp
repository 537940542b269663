// The solids that GLU draws.
#include <memory>

#include "classes/gl.h"
#include "render/arithmetic.h"
#include "render/topengl.h"

namespace {

struct QuadricDeleter {
  void operator()(GLUquadric* quadric) const { gluDeleteQuadric(quadric); }
};

// A filled quadric, outside outwards, or null. Outlines come from the polygon mode alone.
std::unique_ptr<GLUquadric, QuadricDeleter> NewQuadric() {
  GLUquadric* quadric = gluNewQuadric();
  // Required: before the quadric is tested.
  gluQuadricDrawStyle(quadric, GLU_FILL);
  gluQuadricOrientation(quadric, GLU_OUTSIDE);
  return std::unique_ptr<GLUquadric, QuadricDeleter>(quadric);
}

}  // namespace

void TOpenGL::Sphere(const OGLPoint& center, float radius, int slices) const {
  if (!CanDraw()) return;
  ApplyPolygonMode();
  const auto quadric = NewQuadric();
  if (!quadric) return;
  glMatrixMode(GL_MODELVIEW);
  glPushMatrix();
  glTranslatef(center.x, center.y, center.z);
  gluSphere(quadric.get(), radius, slices, slices);
  glPopMatrix();
}

void TOpenGL::Cylinder(float baseRadius, float topRadius, float height, int slices, int stacks) const {
  if (!CanDraw()) return;
  ApplyPolygonMode();
  if (const auto quadric = NewQuadric()) gluCylinder(quadric.get(), baseRadius, topRadius, height, slices, stacks);
}

void TOpenGL::Disk(float innerRadius, float outerRadius, int slices) const {
  if (!CanDraw()) return;
  ApplyPolygonMode();
  if (const auto quadric = NewQuadric()) gluDisk(quadric.get(), innerRadius, outerRadius, slices, slices);
}

void TOpenGL::PartialDisk(float innerRadius, float outerRadius, float slices, float loops, int degrees) const {
  if (!CanDraw()) return;
  ApplyPolygonMode();
  if (const auto quadric = NewQuadric()) {
    gluPartialDisk(quadric.get(), innerRadius, outerRadius, Truncate(slices), Truncate(loops), degrees, degrees);
  }
}
