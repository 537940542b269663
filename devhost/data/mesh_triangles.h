// Meshes as they are drawn.
#pragma once

#include <array>
#include <vector>

#include "devhost/data/obj_reader.h"

namespace devhost {

// Three numbers a corner. Where the file has no normal, the corner takes its vertex's own, the sum of the normals of
// the faces around it, each as long as its face is large, brought to length 1.
struct MeshTriangles {
  std::vector<float> points;
  std::vector<float> normals;
  std::array<float, 3> min{};
  std::array<float, 3> max{};
};
MeshTriangles ExpandMesh(const ObjMesh& mesh);

}  // namespace devhost
