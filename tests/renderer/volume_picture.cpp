// Draws two volumes side by side, one of each kind, and leaves the picture volume.ppm, the volumes with their
// opacities, and on its output the view, from which a test computes where the voxels are.
#include <cstdio>
#include <string>

#include "tests/renderer/memory_frame.h"
#include "tests/renderer/volume.h"

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 720;
constexpr float kPointSize = 6;
constexpr float kFieldOfView = 26;
constexpr float kDistance = 300;

struct View {
  const char* name;
  int left;
  float turn;  // degrees to the right
  float tilt;  // degrees towards the eye
};

bool Draw(TOpenGL& renderer, const Volume& volume, const View& view) {
  const auto left = static_cast<float>(view.left);
  const float right = left + static_cast<float>(kWidth) / 2;
  renderer.SetViewPort(left, 0, right, kHeight);
  renderer.PushModelMatrix();
  renderer.Rotate({1, 0, 0, 1}, view.tilt);
  renderer.Rotate({0, 1, 0, 1}, view.turn);
  renderer.SetPointSize(kPointSize);
  // Slices from the back to the front: the eye looks against the z axis.
  const unsigned list =
      renderer.BuildVolumePoints(volume.data.data(), kSide, kSide, kSide, volume.tables[0], volume.tables[1],
                                 volume.tables[2], volume.tables[3], volume.mode, 2, 0, 1, volume.threshold);
  renderer.DrawVolumePoints(list);
  renderer.DeleteVolumePoints(list);
  renderer.PopModelMatrix();
  std::printf("%s %d %g %g %d %d\n", view.name, view.left, static_cast<double>(view.turn),
              static_cast<double>(view.tilt), volume.mode, volume.threshold);
  const std::string name = view.name;
  return list != 0 && SaveBytes((name + ".voxels").c_str(), volume.data) &&
         SaveBytes((name + ".opacities").c_str(), volume.tables[3]);
}

}  // namespace

int main() {
  const MemoryFrame frame(kWidth, kHeight);
  TOpenGL renderer;
  renderer.SetViewerPos(0, 0, kDistance, 0, 0, 0, 0, 1, 0);
  renderer.SetPerspective(kFieldOfView, float{kWidth} / 2 / kHeight, 100, 600);
  renderer.SetClearColor({0.045F, 0.05F, 0.085F, 1});
  if (!frame.Open(renderer)) return 1;
  renderer.EnableBlend(kOn);
  renderer.Clear();
  std::printf("%d %d %g %g %g %d\n", kWidth, kHeight, static_cast<double>(kPointSize),
              static_cast<double>(kFieldOfView), static_cast<double>(kDistance), kSide);
  const bool isDrawn = Draw(renderer, MakeHead(), {"head", 0, -28, 8}) &&
                       Draw(renderer, MakeMolecule(), {"molecule", kWidth / 2, 24, -18});
  renderer.Flush();
  return isDrawn && frame.Save(renderer, "volume.ppm") ? 0 : 1;
}
