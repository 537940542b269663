// The library's entry point and what the host asks a module for by ordinal.
#include <cstdio>
#include <cstring>

#include "classes/gl.h"
#include "module/exports.h"

namespace {

HINSTANCE moduleInstance = nullptr;

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) moduleInstance = instance;
  return TRUE;
}

HINSTANCE__* TalqSystemGetLibInst() { return moduleInstance; }

char* WriteVersionText(char* buffer, unsigned length) {
  char text[64];
  std::snprintf(text, sizeof(text), "TALQ Support DLL v5.0 |TALQ version:%d.%02d.%02d", 5, 3, 4);
  std::strcat(text, ".a");
  return std::strncpy(buffer, text, length);
}

void DoNothing(void* /*unused*/) {}
