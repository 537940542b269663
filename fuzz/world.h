// What one round of random calls lives in: the loaded module, and script objects in every state.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "fuzz/random.h"
#include "host/talq.h"

struct HGLRC__;

class World {
 public:
  explicit World(Random& random);
  World(const World&) = delete;
  World& operator=(const World&) = delete;
  // Unloads the module and destroys what is left.
  ~World();

  // A script object of the class, mostly with a native object: "TOpenGL", "OglColor", "OglMaterial".
  Variable& ObjectOf(std::string_view className);
  // Any of them, whatever its class.
  Variable& AnyObject();
  // An object with a mesh behind it, now and then one without vertices.
  Variable& MeshObject();
  // A fresh object of the class without a native object.
  static Variable NewUnjoined(std::string_view className);

  // The driver answers otherwise from now on.
  void ChangeDriver();
  // Ends the selections that renderers left behind in contexts that were not current when they went, as a script has
  // to. One in this context, which was current before, is left to the module if the context still is.
  void EndAbandonedSelections(const HGLRC__* before) const;
  // How many renderers have a rendering context.
  std::size_t OpenRenderers() const;

 private:
  static constexpr int kObjects = 6;

  std::vector<Variable>& Pool(std::string_view className);

  Random& random;
  std::vector<Variable> renderers;
  std::vector<Variable> colors;
  std::vector<Variable> materials;
  std::array<float, 36> coordinates{};
  TriangleMesh mesh{coordinates.data(), 4, coordinates.data()};
  TriangleMesh emptyMesh{nullptr, 0, nullptr};
  Variable meshObject;
};
