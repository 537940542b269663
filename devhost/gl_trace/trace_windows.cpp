// The module's own calls are caught where they leave it: at the table of what it imports.
#include <windows.h>

#include <algorithm>
#include <cstdio>

#include "devhost/gl_trace/name_filter.h"
#include "devhost/gl_trace/rows.h"
#include "devhost/gl_trace/traced.h"
#include "devhost/runtime/imports.h"
#include "devhost/runtime/near_names.h"
#include "devhost/runtime/place.h"
#include "devhost/runtime/runtime.h"

namespace gl_trace {
namespace {

struct State {
  std::string printedFunctions;  // patterns of their names
  devhost::Place lastPlace;      // of what was printed
  Watcher* watcher = nullptr;
};

State& CurrentState() {
  static auto& state = *new State;
  return state;
}

constexpr const char* kLibraries[] = {"opengl32.dll", "glu32.dll", "gdi32.dll"};

bool IsTraced(const char* library) {
  return std::any_of(std::begin(kLibraries), std::end(kLibraries),
                     [library](const char* traced) { return _stricmp(traced, library) == 0; });
}

const Row* FindRow(const std::string& function) {
  const auto row = std::find_if(kRows.begin(), kRows.end(), [&](const Row& each) { return each.name == function; });
  return row == kRows.end() ? nullptr : &*row;
}

// Puts the stand-ins in the place of all that the module imports of these libraries. False with an error raised when
// one is missing.
bool StandBetween(const devhost::Module& module) {
  const std::vector<devhost::Import> imports = devhost::ImportsOf(module.handle);
  return std::all_of(imports.begin(), imports.end(), [&](const devhost::Import& import) {
    if (!IsTraced(import.library)) return true;
    const Row* row = FindRow(import.function);
    if (row) {
      Redirect(import, row->replace(*import.address));
    } else {
      devhost::Raise(devhost::kErrorFile,
                     module.path + " calls " + import.function + " of " + import.library + ", which cannot be traced.");
    }
    return row != nullptr;
  });
}

}  // namespace

bool IsPrinted(const char* function) { return IsListed(CurrentState().printedFunctions, function); }
Watcher* CurrentWatcher() { return CurrentState().watcher; }

void PrintCall(const std::string& line) {
  const DWORD lastError = GetLastError();
  devhost::Place& lastPlace = CurrentState().lastPlace;
  const devhost::Place place = devhost::CurrentPlace();
  const std::string whole = (place == lastPlace ? "" : place.Text() + ":\n") + line + "\n";
  lastPlace = place;
  std::fflush(stdout);
  std::fwrite(whole.data(), 1, whole.size(), stderr);
  std::fflush(stderr);
  SetLastError(lastError);
}

bool WatchOpenGl(const devhost::Module& module, Watcher* watcher) {
  CurrentState().watcher = watcher;
  return StandBetween(module);
}

}  // namespace gl_trace

namespace devhost {

bool TraceOpenGl(const Module& module, std::string_view functions) {
  const std::string_view unknown = gl_trace::PatternWithoutFunction(functions);
  if (!unknown.empty()) {
    Raise(kErrorName, "No function that can be traced is called '" + std::string(unknown) + "'.",
          DidYouMean(unknown, {std::begin(gl_trace::kFunctionNames), std::end(gl_trace::kFunctionNames)}));
    return false;
  }
  gl_trace::CurrentState().printedFunctions = functions.empty() ? "*" : functions;
  return gl_trace::StandBetween(module);
}

}  // namespace devhost
