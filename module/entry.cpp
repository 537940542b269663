// The library's entry point and what the host asks a module for by ordinal.
#include <cstring>

#include "classes/gl.h"
#include "module/exports.h"

namespace {

constexpr char kVersionText[] = "TALQ Support DLL v5.0 |TALQ version:5.03.04.a";

HINSTANCE moduleInstance = nullptr;

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) moduleInstance = instance;
  return TRUE;
}

HINSTANCE__* TalqSystemGetLibInst() { return moduleInstance; }

char* WriteVersionText(char* buffer, unsigned length) { return std::strncpy(buffer, kVersionText, length); }

void DoNothing(void* /*unused*/) {}
