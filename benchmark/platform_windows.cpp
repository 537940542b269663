#include "benchmark/platform.h"

#include <windows.h>

#include <cstring>
#include <string_view>
#include <vector>

#include "devhost/runtime/imports.h"
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

// Functions of OpenGL itself, except those whose answer is needed.
bool IsReplaced(std::string_view name) {
  return name.starts_with("gl") && !name.starts_with("glu") && name != "glGetIntegerv";
}

// An import, and the function that it found.
struct OpenGlFunction {
  devhost::Import import;
  void* original;
};

std::vector<OpenGlFunction> ReplacedFunctions() {
  std::vector<OpenGlFunction> functions;
  for (const devhost::Import& import : devhost::ImportsOf(GetModuleHandleA(nullptr))) {
    if (IsReplaced(import.function)) functions.push_back({import, *import.address});
  }
  return functions;
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
  static const std::vector<OpenGlFunction> functions = ReplacedFunctions();
  for (const OpenGlFunction& function : functions) {
    devhost::Redirect(function.import, on ? reinterpret_cast<void*>(&CountCall) : function.original);
  }
}

std::optional<LoadRuns> Loads() {
  // A host is there before its modules.
  LoadLibraryA("Talq.dll");
  return LoadRuns{[] { LoadAndFree("TalqOpenGL.dll", true); }, [] { LoadAndFree("benchmark_empty.dll", false); }};
}
