// Volumes as clouds of translucent points, which are drawn in the order in which their slices are walked.
#include <cstddef>
#include <cstdlib>
#include <optional>

#include "classes/gl.h"
#include "render/topengl.h"

namespace {

constexpr float kByteToUnit = 0.003921569F;  // 1 / 255

// The loop over one axis: from `first`, `count` times, `step` apart.
struct AxisWalk {
  int first;
  int count;
  int step;
};

// All of an axis of at least one voxel.
AxisWalk Ascending(int size, int step) { return {0, (size - 1) / step + 1, step}; }
AxisWalk Descending(int size, int step) { return {size - 1, (size - 1) / step + 1, -step}; }

float Unit(unsigned char byte) { return static_cast<float>(byte) * kByteToUnit; }

// A volume of one byte a voxel, coloured by tables.
struct IndexedVolume {
  const unsigned char* data;
  const unsigned char* red;
  const unsigned char* green;
  const unsigned char* blue;
  const unsigned char* alpha;

  static constexpr std::size_t kVoxelBytes = 1;

  unsigned char Opacity(const unsigned char* voxel) const { return alpha[*voxel]; }
  void EmitColor(const unsigned char* voxel, unsigned char opacity) const {
    glColor4f(Unit(red[*voxel]), Unit(green[*voxel]), Unit(blue[*voxel]), Unit(opacity));
  }
};

// A volume of blue, green and red bytes, whose near-grey voxels are invisible.
struct ColorVolume {
  const unsigned char* data;
  const unsigned char* alpha;
  int threshold;

  static constexpr std::size_t kVoxelBytes = 3;

  unsigned char Opacity(const unsigned char* voxel) const {
    const int blue = voxel[0];
    const int green = voxel[1];
    const int red = voxel[2];
    // Required: blue and red are not compared.
    const bool grey = threshold > std::abs(blue - green) && threshold > std::abs(green - red);
    return grey ? 0 : alpha[(blue + green + red) / 3];
  }
  static void EmitColor(const unsigned char* voxel, unsigned char opacity) {
    glColor4f(Unit(voxel[2]), Unit(voxel[1]), Unit(voxel[0]), Unit(opacity));
  }
};

// The three loops of a walk: which axis (0, 1, 2 for x, y, z) each runs along, and how.
struct VolumeWalk {
  int axes[3];
  AxisWalk loops[3];
};

// Slices along the axis, stepped, in the direction; nothing for an axis or direction that does not exist, or where
// there is no voxel.
std::optional<VolumeWalk> WalkOf(const int (&sizes)[3], int axis, int direction, int step) {
  if (axis < 0 || axis > 2 || direction < 0 || direction > 1 || step < 1) return std::nullopt;
  if (sizes[0] < 1 || sizes[1] < 1 || sizes[2] < 1) return std::nullopt;
  const int middle = axis == 2 ? 1 : 2;
  const int inner = axis == 0 ? 1 : 0;
  // Required: only the descending walk along z turns its inner loops round.
  const auto within = axis == 2 && direction == 1 ? Descending : Ascending;
  const auto slices = direction == 1 ? Descending : Ascending;
  return VolumeWalk{{axis, middle, inner},
                    {slices(sizes[axis], step), within(sizes[middle], 1), within(sizes[inner], 1)}};
}

template <class Volume>
void EmitVoxels(const Volume& volume, const int (&sizes)[3], const VolumeWalk& walk) {
  // Offsets of voxels that there are fit; those of sizes that no memory holds wrap and are not used.
  const std::size_t row = Volume::kVoxelBytes * static_cast<std::size_t>(sizes[0]);
  const std::size_t strides[3] = {Volume::kVoxelBytes, row, row * static_cast<std::size_t>(sizes[1])};
  const float center[3] = {static_cast<float>(sizes[0]) * 0.5F, static_cast<float>(sizes[1]) * 0.5F,
                           static_cast<float>(sizes[2]) * 0.5F};
  const auto& [outer, middle, inner] = walk.loops;
  const auto& [outerAxis, middleAxis, innerAxis] = walk.axes;
  const std::size_t innerStride = strides[innerAxis] * static_cast<std::size_t>(inner.step);
  int at[3];
  for (int i = 0; i < outer.count; ++i) {
    at[outerAxis] = outer.first + i * outer.step;
    for (int j = 0; j < middle.count; ++j) {
      at[middleAxis] = middle.first + j * middle.step;
      std::size_t offset = static_cast<std::size_t>(at[outerAxis]) * strides[outerAxis] +
                           static_cast<std::size_t>(at[middleAxis]) * strides[middleAxis] +
                           static_cast<std::size_t>(inner.first) * strides[innerAxis];
      for (int k = 0; k < inner.count; ++k, offset += innerStride) {
        const unsigned char* voxel = volume.data + offset;
        const unsigned char opacity = volume.Opacity(voxel);
        if (opacity == 0) continue;
        at[innerAxis] = inner.first + k * inner.step;
        volume.EmitColor(voxel, opacity);
        glVertex3f(static_cast<float>(at[0]) - center[0], static_cast<float>(at[1]) - center[1],
                   static_cast<float>(at[2]) - center[2]);
      }
    }
  }
}

}  // namespace

unsigned TOpenGL::BuildVolumePoints(const unsigned char* data, int width, int height, int depth,
                                    const unsigned char* redTable, const unsigned char* greenTable,
                                    const unsigned char* blueTable, const unsigned char* alphaTable, int mode, int axis,
                                    int direction, int step, int threshold) const {
  const unsigned list = glGenLists(1);
  glNewList(list, GL_COMPILE);
  glEnable(GL_DEPTH_TEST);
  glEnable(GL_BLEND);
  glBegin(GL_POINTS);
  // Required: inside the pair, where OpenGL rejects it, so that points have the current size.
  glPointSize(2.0F);
  const int sizes[3] = {width, height, depth};
  if (const auto walk = WalkOf(sizes, axis, direction, step)) {
    if (mode == 1) {
      EmitVoxels(IndexedVolume{data, redTable, greenTable, blueTable, alphaTable}, sizes, *walk);
    } else if (mode == 3) {
      EmitVoxels(ColorVolume{data, alphaTable, threshold}, sizes, *walk);
    }
  }
  glEnd();
  glEndList();
  return list;
}

void TOpenGL::DeleteVolumePoints(unsigned list) const { glDeleteLists(list, 1); }

void TOpenGL::DrawVolumePoints(unsigned list) const {
  glCallList(list);
  glFlush();
}
