#include "tests/unit/support/load_module.h"

#include <utility>

#include "classes/gl.h"
#include "devhost/classes/register_classes.h"
#include "module/exports.h"
#include "tests/unit/support/fake_device.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved);

devhost::Module* LoadTestedModule() {
  static const bool kHostIsReady = [] {
    devhost::RegisterHostClasses();
    RegisterFakeDevice();
    return true;
  }();
  if (!kHostIsReady) return nullptr;
  auto* const instance = reinterpret_cast<HINSTANCE>(std::uintptr_t{0x400000});
  DllMain(instance, DLL_PROCESS_ATTACH, nullptr);
  devhost::Module module;
  module.path = "TalqOpenGL.dll";
  module.methods = GetMethodTable(nullptr);
  module.errors = GetErrorTable();
  module.handle = instance;
  return const_cast<devhost::Module*>(devhost::AddModule(std::move(module)));
}
