#include "benchmark/platform.h"

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "host/talq.h"
#include "module/exports.h"
#include "tests/renderer/memory_frame.h"

namespace {

long long calls = 0;
std::size_t charactersRead = 0;

// Whatever its arguments are: the caller clears them away.
long long CountCall() {
  ++calls;
  return 1;
}

// A word of this program's import table, and what stood there.
struct Import {
  std::uintptr_t* slot;
  std::uintptr_t original;
};

template <class T>
T* At(std::uintptr_t offset) {
  return reinterpret_cast<T*>(reinterpret_cast<std::uintptr_t>(GetModuleHandleA(nullptr)) + offset);
}

// Functions of OpenGL itself, but for those whose answer is needed.
bool IsReplaced(std::string_view name) {
  return name.starts_with("gl") && !name.starts_with("glu") && name != "glGetIntegerv";
}

std::vector<Import> FindImports() {
  std::vector<Import> imports;
  const auto* dos = At<IMAGE_DOS_HEADER>(0);
  const auto* headers = At<IMAGE_NT_HEADERS64>(static_cast<std::uintptr_t>(dos->e_lfanew));
  const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  for (const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(directory.VirtualAddress); library->Name; ++library) {
    const auto* names = At<std::uintptr_t>(library->OriginalFirstThunk);
    auto* slots = At<std::uintptr_t>(library->FirstThunk);
    for (; *names; ++names, ++slots) {
      if (*names >> 63) continue;  // by ordinal
      if (IsReplaced(At<IMAGE_IMPORT_BY_NAME>(*names)->Name)) imports.push_back({slots, *slots});
    }
  }
  return imports;
}

void LoadAndFree(const char* library, bool hasRows) {
  const HMODULE loaded = LoadLibraryA(library);
  const MethodEntry* row = nullptr;
  if (hasRows) {
    using GetRows = const MethodEntry* (*)(void*);
    row = reinterpret_cast<GetRows>(reinterpret_cast<void*>(GetProcAddress(loaded, MAKEINTRESOURCEA(3))))(nullptr);
  } else {
    row = GetMethodTable(nullptr);
  }
  std::size_t read = 0;
  for (; row->signature; ++row) read += std::strlen(row->signature);
  charactersRead += read;
  FreeLibrary(loaded);
}

}  // namespace

double Now() {
  LARGE_INTEGER frequency;
  LARGE_INTEGER count;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&count);
  return static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

void PinToOneCore() { SetProcessAffinityMask(GetCurrentProcess(), 2); }

bool OpenFrame(TOpenGL& renderer, int width, int height, bool onWindow) {
  if (!onWindow) {
    static const MemoryFrame frame(width, height);
    return frame.Open(renderer);
  }
  HWND window = CreateWindowA("STATIC", "benchmark", WS_POPUP | WS_VISIBLE, 0, 0, width, height, nullptr, nullptr,
                              nullptr, nullptr);
  renderer.Open(GetDC(window), {0, 0, width, height});
  return renderer.IsOpen() && renderer.IsBind();
}

bool HasOpenGL() { return true; }

void UseStubs(bool on) {
  static const std::vector<Import> imports = FindImports();
  for (const Import& import : imports) {
    DWORD access = 0;
    VirtualProtect(import.slot, sizeof *import.slot, PAGE_READWRITE, &access);
    *import.slot = on ? reinterpret_cast<std::uintptr_t>(&CountCall) : import.original;
    VirtualProtect(import.slot, sizeof *import.slot, access, &access);
  }
}

std::optional<LoadTimes> Loads() {
  // A host is there before its modules.
  LoadLibraryA("Talq.dll");
  return LoadTimes{[] { LoadAndFree("TalqOpenGL.dll", true); }, [] { LoadAndFree("benchmark_empty.dll", false); }};
}
