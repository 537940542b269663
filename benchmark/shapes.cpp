// The torus and the volume, against the same OpenGL calls from ready arrays.
#include <cmath>
#include <cstddef>
#include <numbers>

#include "benchmark/rows.h"
#include "classes/gl.h"

namespace {

constexpr int kSides = 64;
constexpr int kVolume = 256;
constexpr float kUnit = 0.003921569F;

// Normal and vertex of each point, strip by strip.
std::vector<double> TorusPoints() {
  std::vector<double> points;
  const auto angle = [](double step) { return step * 2.0 * std::numbers::pi / kSides; };
  for (int side = 0; side < kSides; ++side) {
    for (int segment = 0; segment <= kSides; ++segment) {
      for (const int edge : {1, 0}) {
        const double u = angle(segment % kSides);
        const double v = angle((side + edge) % kSides + 0.5);
        const double distance = 2.0 + 0.5 * std::cos(v);
        points.insert(points.end(), {std::cos(u) * std::cos(v), std::sin(u) * std::cos(v), std::sin(v),
                                     distance * std::cos(u), distance * std::sin(u), 0.5 * std::sin(v)});
      }
    }
  }
  return points;
}

void DrawTorus(const std::vector<double>& points) {
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  const double* p = points.data();
  for (int side = 0; side < kSides; ++side) {
    glBegin(GL_QUAD_STRIP);
    for (int i = 0; i < 2 * (kSides + 1); ++i, p += 6) {
      glNormal3d(p[0], p[1], p[2]);
      glVertex3d(p[3], p[4], p[5]);
    }
    glEnd();
  }
}

struct Volume {
  std::vector<unsigned char> data;
  unsigned char colors[256];
  unsigned char alpha[256];
};

// One voxel in twenty has a value other than 0, and an opacity.
const Volume* MakeVolume() {
  auto* const volume = Keep<Volume>();
  volume->data.resize(std::size_t{kVolume} * kVolume * kVolume);
  unsigned seed = 1;
  for (unsigned char& voxel : volume->data) {
    seed = seed * 1664525U + 1013904223U;
    voxel = (seed >> 16) % 20 == 0 ? static_cast<unsigned char>(1 + (seed >> 24) % 255) : 0;
  }
  for (int i = 0; i < 256; ++i) {
    volume->colors[i] = static_cast<unsigned char>(i);
    volume->alpha[i] = i == 0 ? 0 : 128;
  }
  return volume;
}

// Colour and place of each visible voxel, in the order in which slices along the axis are walked.
std::vector<float> VolumePoints(const Volume& volume, int axis) {
  std::vector<float> points;
  const int middle = axis == 2 ? 1 : 2;
  const int inner = axis == 0 ? 1 : 0;
  int at[3];
  for (at[axis] = 0; at[axis] < kVolume; ++at[axis]) {
    for (at[middle] = 0; at[middle] < kVolume; ++at[middle]) {
      for (at[inner] = 0; at[inner] < kVolume; ++at[inner]) {
        const int voxel = at[0] + kVolume * (at[1] + kVolume * at[2]);
        const unsigned char value = volume.data[static_cast<std::size_t>(voxel)];
        if (value == 0) continue;
        const float color = static_cast<float>(value) * kUnit;
        points.insert(points.end(), {color, color, color, 128 * kUnit});
        for (const int place : at) points.push_back(static_cast<float>(place) - kVolume * 0.5F);
      }
    }
  }
  return points;
}

void CompilePoints(const std::vector<float>& points) {
  const unsigned list = glGenLists(1);
  glNewList(list, GL_COMPILE);
  glEnable(GL_DEPTH_TEST);
  glEnable(GL_BLEND);
  glBegin(GL_POINTS);
  glPointSize(2.0F);
  for (std::size_t i = 0; i < points.size(); i += 7) {
    const float* p = points.data() + i;
    glColor4f(p[0], p[1], p[2], p[3]);
    glVertex3f(p[4], p[5], p[6]);
  }
  glEnd();
  glEndList();
  glDeleteLists(list, 1);
}

}  // namespace

void AddShapes(std::vector<Row>& rows, Scene& scene) {
  rows.push_back({"Torus 64 x 64", "GL calls from ready arrays", 2.0,
                  [&scene] { scene.renderer->Torus(2.0F, kSides, 0.5F, kSides); },
                  [points = TorusPoints()] { DrawTorus(points); }});
  const Volume* const volume = MakeVolume();
  const char* works[] = {"BuildVolumePoints 256^3, along x", "BuildVolumePoints 256^3, along y",
                         "BuildVolumePoints 256^3, along z"};
  for (int axis = 0; axis < 3; ++axis) {
    rows.push_back({works[axis], "GL calls from a ready list", axis == 0 ? 2.3 : 1.25,
                    [volume, axis, &scene] {
                      const Volume& v = *volume;
                      scene.renderer->DeleteVolumePoints(
                          scene.renderer->BuildVolumePoints(v.data.data(), kVolume, kVolume, kVolume, v.colors,
                                                            v.colors, v.colors, v.alpha, 1, axis, 0, 1, 0));
                    },
                    [points = VolumePoints(*volume, axis)] { CompilePoints(points); }});
  }
}
