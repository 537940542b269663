// Any text as an OBJ file: it is refused with a reason, or expands to whole triangles.
#include <cstdint>
#include <cstdlib>

#include "devhost/data/mesh_triangles.h"
#include "devhost/data/obj_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  devhost::ObjMesh mesh;
  std::string fault;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (!devhost::ParseObj(text, mesh, fault)) {
    if (fault.empty()) std::abort();
    return 0;
  }
  const devhost::MeshTriangles triangles = devhost::ExpandMesh(mesh);
  if (triangles.points.size() % 9 != 0 || triangles.points.size() != triangles.normals.size()) std::abort();
  return 0;
}
