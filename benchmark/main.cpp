// Compares the module's work with its floor, each row side by side in one process and one context.
#include <cstdio>
#include <cstring>

#include "benchmark/platform.h"
#include "benchmark/rows.h"
#include "devhost/classes/register_classes.h"
#include "devhost/runtime/runtime.h"
#include "module/exports.h"
#include "tests/unit/support/values.h"

namespace {

bool Prepare(Scene& scene) {
  devhost::RegisterHostClasses();
  devhost::Module module;
  module.path = "TalqOpenGL";
  module.methods = GetMethodTable(nullptr);
  module.errors = GetErrorTable();
  if (!devhost::AddModule(module)) return false;
  if (!devhost::Construct(scene.object, "TOpenGL", {})) return false;
  scene.renderer = NativeOf<TOpenGL>(scene.object);
  // One pixel a unit at the origin, seen from where the viewer is at first.
  scene.renderer->SetViewPort(0, 0, 1024, 768);
  scene.renderer->SetClipping(-512, 512, -384, 384, 1000, 2000);
  return OpenFrame(*scene.renderer, 1024, 768, scene.onWindow);
}

}  // namespace

// Arguments: --window for a window in place of the memory bitmap; then parts of names of works, without any of which
// all rows are measured.
int main(int argc, char** argv) {
  PinToOneCore();
  Scene scene;
  if (argc > 1 && std::strcmp(argv[1], "--window") == 0) {
    scene.onWindow = true;
    --argc;
    ++argv;
  }
  if (!Prepare(scene)) {
    std::fprintf(stderr, "error: no renderer could be opened\n");
    return 1;
  }
  std::vector<Row> rows;
  AddBatches(rows, scene);
  AddImages(rows, scene);
  AddShapes(rows, scene);
  AddCalls(rows, scene);
  PrintHead();
  bool isAnyWanted = false;
  for (const Row& row : rows) {
    bool isWanted = argc < 2;
    for (int i = 1; i < argc; ++i) isWanted = isWanted || std::strstr(row.work.c_str(), argv[i]);
    if (!isWanted) continue;
    isAnyWanted = true;
    Ratio real{};
    Ratio stubs{};
    const bool hasReal = HasOpenGL() || !row.withStubs;
    if (hasReal) real = Measure(row);
    if (row.withStubs) {
      UseStubs(true);
      stubs = Measure(row);
      UseStubs(false);
    }
    PrintRow(row, hasReal ? &real : nullptr, row.withStubs ? &stubs : nullptr);
  }
  if (!isAnyWanted) std::fprintf(stderr, "error: no work has such a name\n");
  return isAnyWanted ? 0 : 1;
}
