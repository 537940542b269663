// Box and torus.
#include <cmath>
#include <numbers>

#include "classes/gl.h"
#include "geometry/array.h"
#include "render/topengl.h"

namespace {

// A face of a box: its normal, and its corners in units of the half sizes.
struct BoxFace {
  float normal[3];
  float corners[4][3];
};

constexpr BoxFace kBoxFaces[] = {
    {{0, 0, 1}, {{-1, -1, 1}, {1, -1, 1}, {1, 1, 1}, {-1, 1, 1}}},
    {{0, 0, -1}, {{-1, -1, -1}, {-1, 1, -1}, {1, 1, -1}, {1, -1, -1}}},
    {{-1, 0, 0}, {{-1, -1, 1}, {-1, 1, 1}, {-1, 1, -1}, {-1, -1, -1}}},
    {{1, 0, 0}, {{1, -1, 1}, {1, -1, -1}, {1, 1, -1}, {1, 1, 1}}},
    {{0, 1, 0}, {{-1, 1, 1}, {1, 1, 1}, {1, 1, -1}, {-1, 1, -1}}},
    {{0, -1, 0}, {{-1, -1, 1}, {-1, -1, -1}, {1, -1, -1}, {1, -1, 1}}},
};

constexpr double kTwoPi = 2.0 * std::numbers::pi;

// A direction in the plane of a circle.
struct Angle {
  double cosine;
  double sine;
};

Angle AngleOf(double radians) { return {cos(radians), sin(radians)}; }

// Required: the tube is turned by half a step.
Angle TubeAngle(int side, int sides) { return AngleOf((static_cast<double>(side) + 0.5) * kTwoPi / sides); }

// The two points of a strip at one angle of the ring.
void EmitTorusEdge(const Angle& u, const Angle (&edges)[2], double ringRadius, double tubeRadius) {
  for (const Angle& v : edges) {
    glNormal3d(u.cosine * v.cosine, u.sine * v.cosine, v.sine);
    const double distance = ringRadius + tubeRadius * v.cosine;
    glVertex3d(distance * u.cosine, distance * u.sine, tubeRadius * v.sine);
  }
}

}  // namespace

void TOpenGL::Box(float sizeX, float sizeZ, float sizeY) const {
  if (!CanDraw()) return;
  const float halfX = sizeX / 2.0F;
  const float halfY = sizeY / 2.0F;
  const float halfZ = sizeZ / 2.0F;
  ApplyPolygonMode();
  glBegin(GL_QUADS);
  for (const BoxFace& face : kBoxFaces) {
    glNormal3f(face.normal[0], face.normal[1], face.normal[2]);
    for (const float* corner : face.corners) glVertex3f(corner[0] * halfX, corner[1] * halfY, corner[2] * halfZ);
  }
  glEnd();
}

void TOpenGL::BoxAt(const OGLPoint& corner, float sizeX, float sizeZ, float sizeY) const {
  if (!CanDraw()) return;
  glMatrixMode(GL_MODELVIEW);
  glPushMatrix();
  glTranslatef(corner.x + sizeX / 2.0F, corner.y + sizeY / 2.0F, corner.z + sizeZ / 2.0F);
  Box(sizeX, sizeZ, sizeY);
  glPopMatrix();
}

void TOpenGL::Torus(float ringRadius, int segments, float tubeRadius, int sides) const {
  if (!CanDraw()) return;
  ApplyPolygonMode();
  if (segments < 1 || sides < 1) return;
  Array<Angle> ring(segments);
  if (!ring) return;
  for (int segment = 0; segment < segments; ++segment)
    ring[segment] = AngleOf(static_cast<double>(segment) * kTwoPi / segments);
  for (int side = 0; side < sides; ++side) {
    const Angle edges[] = {TubeAngle(side + 1 < sides ? side + 1 : 0, sides), TubeAngle(side, sides)};
    glBegin(GL_QUAD_STRIP);
    for (int i = 0; i < segments; ++i) EmitTorusEdge(ring[i], edges, ringRadius, tubeRadius);
    EmitTorusEdge(ring[0], edges, ringRadius, tubeRadius);
    glEnd();
  }
}
