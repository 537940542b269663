#include "devhost/runtime/modules.h"

#include <cstdio>
#include <memory>

#include "devhost/runtime/access.h"
#include "devhost/runtime/classes.h"
#include "devhost/runtime/computations.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"

namespace devhost {
namespace {

// Each module's codes lie in a range of their own, the first one's at 1000.
constexpr int kCodesPerModule = 1000;

using ModuleList = std::vector<std::unique_ptr<Module>>;

ModuleList& Modules() {
  static auto& modules = *new ModuleList;
  return modules;
}

}  // namespace

const ErrorEntry* FindModuleError(int code) {
  for (const auto& module : Modules()) {
    const int own = code - module->errorBase;
    if (own < 0 || own >= kCodesPerModule || !module->errors) continue;
    for (const ErrorEntry* entry = module->errors; entry->message; ++entry) {
      if (entry->code == own) return entry;
    }
  }
  return nullptr;
}

const Module* FindModule(HINSTANCE__* handle) {
  for (const auto& module : Modules()) {
    if (module->handle == handle) return module.get();
  }
  return nullptr;
}

const Module* AddModule(Module module) {
  if (!RegisterMethods(module.methods)) return nullptr;
  module.errorBase = static_cast<unsigned short>(kCodesPerModule * (Modules().size() + 1));
  Modules().push_back(std::make_unique<Module>(std::move(module)));
  return Modules().back().get();
}

int UnloadModules() {
  ClearScratch();
  DestroyAllObjects();
  const std::vector<std::string_view> joined = TakeJoinedNatives();
  for (const std::string_view name : joined) {
    std::fprintf(stderr, "talq: a native %.*s is still joined\n", static_cast<int>(name.size()), name.data());
  }
  UseComputations(kOwnComputations);
  for (const auto& module : Modules()) {
    UnregisterMethods(module->methods);
    FreeModuleLibrary(module->handle);
  }
  Modules().clear();
  return static_cast<int>(joined.size());
}

#if !defined(_WIN32)
const Module* LoadModule(const std::string& path) {
  Raise(kErrorFile, path + ": modules are Windows libraries and cannot be loaded here.");
  return nullptr;
}

bool UseArithmeticOf(const Module& module) {
  Raise(kErrorFile, module.path + ": modules are Windows libraries, which export nothing here.");
  return false;
}

bool TraceOpenGl(const Module& module, std::string_view) {
  Raise(kErrorFile, module.path + ": modules are Windows libraries, whose calls cannot be traced here.");
  return false;
}

bool StartCheck(const Module& module) { return TraceOpenGl(module, {}); }

std::string FinishCheck() { return {}; }

std::string ProbeOpenGl(const Module& module) {
  Raise(kErrorFile, module.path + ": modules are Windows libraries, whose OpenGL cannot be asked here.");
  return {};
}

void FreeModuleLibrary(HINSTANCE__*) {}
#endif

}  // namespace devhost

unsigned short GetErrorOffset(HINSTANCE__* module) {
  const devhost::Module* found = devhost::FindModule(module);
  return found ? found->errorBase : 0xFFFF;
}
