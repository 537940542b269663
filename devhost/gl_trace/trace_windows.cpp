// The module's own calls are caught where they leave it: at the table of what it imports.
#include <windows.h>

#include <algorithm>
#include <cstdio>

#include "devhost/gl_trace/rows.h"
#include "devhost/gl_trace/traced.h"
#include "devhost/runtime/imports.h"
#include "devhost/runtime/runtime.h"

namespace gl_trace {
namespace {

constexpr const char* kLibraries[] = {"opengl32.dll", "glu32.dll", "gdi32.dll"};

bool IsTraced(const char* library) {
  return std::any_of(std::begin(kLibraries), std::end(kLibraries),
                     [library](const char* traced) { return _stricmp(traced, library) == 0; });
}

const Row* FindRow(const std::string& function) {
  const auto row = std::find_if(kRows.begin(), kRows.end(), [&](const Row& each) { return each.name == function; });
  return row == kRows.end() ? nullptr : &*row;
}

}  // namespace

void PrintLine(const std::string& line) {
  const DWORD lastError = GetLastError();
  std::fflush(stdout);
  const std::string whole = line + "\n";
  std::fwrite(whole.data(), 1, whole.size(), stderr);
  std::fflush(stderr);
  SetLastError(lastError);
}

}  // namespace gl_trace

namespace devhost {

bool TraceOpenGl(const Module& module) {
  const std::vector<Import> imports = ImportsOf(module.handle);
  return std::all_of(imports.begin(), imports.end(), [&](const Import& import) {
    if (!gl_trace::IsTraced(import.library)) return true;
    const gl_trace::Row* row = gl_trace::FindRow(import.function);
    if (row) {
      Redirect(import, row->replace(*import.address));
    } else {
      Raise(kErrorFile,
            module.path + " calls " + import.function + " of " + import.library + ", which cannot be traced.");
    }
    return row != nullptr;
  });
}

}  // namespace devhost
