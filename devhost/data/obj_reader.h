// Wavefront OBJ meshes.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace devhost {

// A triangle mesh; indices count from 0.
struct ObjMesh {
  struct Corner {
    int vertex;
    int normal;  // -1: the file gives none
  };

  std::vector<float> vertices;  // x, y, z
  std::vector<float> normals;   // x, y, z, as the file lists them
  std::vector<Corner> corners;  // three a triangle
};

// Parses the text of an OBJ file: vertices, normals and faces; polygons become fans. Texture coordinates, groups and
// materials are skipped. False with the fault in words, its line included, when the text is malformed.
bool ParseObj(std::string_view text, ObjMesh& mesh, std::string& fault);

// The mesh as drawn: three numbers a corner. Where the file has no normal, the corner takes its vertex's own, the sum
// of the normals of the faces around it, each as long as its face is large, brought to length 1.
struct MeshTriangles {
  std::vector<float> points;
  std::vector<float> normals;
  std::array<float, 3> min{};
  std::array<float, 3> max{};
};
MeshTriangles ExpandMesh(const ObjMesh& mesh);

}  // namespace devhost
