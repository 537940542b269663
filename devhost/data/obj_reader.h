// Wavefront OBJ meshes.
#pragma once

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

}  // namespace devhost
