#include "fuzz/invariants.h"

#include <algorithm>

#include "binding/errors.h"
#include "devhost/runtime/access.h"
#include "devhost/runtime/modules.h"
#include "devhost/runtime/runtime.h"
#include "tests/unit/support/allocation.h"

namespace {

// What the module has allocated; the host may hold back some of what it was given.
std::size_t AllocatedNow() {
  devhost::ClearScratch();
  return LiveAllocations();
}

constexpr std::string_view kBatches[] = {"SetPoints",   "LineStrip",     "Lines",          "ColorLines",    "Triangles",
                                         "TrianglesEx", "TrianglesExFB", "ColorTriangles", "TriangleStrip", "QuadStrip",
                                         "Quads",       "ColorQuads",    "Polygon",        "ColorPolygon"};

// The methods that leave a matrix stack one deeper or less deep.
struct StackMove {
  std::string_view method;
  GLenum mode;
  int by;
};
constexpr StackMove kStackMoves[] = {{"PushModelMatrix", GL_MODELVIEW, 1},
                                     {"PopModelMatrix", GL_MODELVIEW, -1},
                                     {"BeginSelection", GL_PROJECTION, 1},
                                     {"EndSelection", GL_PROJECTION, -1}};

// Errors that a call raises before it does anything else.
bool EndsTheCall(const devhost::Error& error) {
  if (error.code == kNoNativeObject || error.code == kCountsDoNotFit) return true;
  const ErrorEntry* entry = devhost::FindModuleError(error.code);
  return entry && (entry->code == OGL_NO_DC || entry->code == OGL_NO_SELECTION_MODE);
}

bool IsBatch(std::string_view method) { return std::ranges::find(kBatches, method) != std::end(kBatches); }

// OpenGL's own complaints about calls that scripts may make in any order.
bool IsTheScripts(std::string_view method, std::string_view fault) {
  return (method == "TrianglesExFB" && fault == "glEnd without glBegin") ||
         (method == "NewList" && fault == "glNewList inside glNewList");
}

}  // namespace

Invariants::Invariants(std::string_view method)
    : method(method),
      wasPending(devhost::PendingError() != nullptr),
      wasInsideList(recorder::Get().balance.insideList),
      wasAllocated(AllocatedNow()),
      matrixDepth(recorder::Get().balance.matrixDepth) {
  recorder::Get().calls.clear();
  recorder::Get().balance.faults.clear();
}

std::optional<std::string> Invariants::Violation() {
  if (DrewInSpiteOfError()) return "OpenGL was called in spite of an error: " + recorder::TakeLog();
  if (!MakesObjects() && AllocatedNow() != wasAllocated) return "an allocation was kept, or one too many freed";
  return Unbalanced();
}

bool Invariants::DrewInSpiteOfError() const {
  if (recorder::Get().calls.empty()) return false;
  const devhost::Error* error = devhost::PendingError();
  if (!error) return false;
  // The indexed batches read indices and materials behind their last look at the error.
  if (IsBatch(method)) return wasPending || EndsTheCall(*error) || !method.starts_with("TrianglesEx");
  return !wasPending && EndsTheCall(*error);
}

// Constructors, which keep what they allocate, and destructors.
bool Invariants::MakesObjects() const {
  return method.starts_with('~') || method == "TOpenGL" || method == "OglColor" || method == "OglMaterial";
}

bool Invariants::MayMove(GLenum mode, int by) const {
  return by == 0 || std::ranges::any_of(kStackMoves, [&](const StackMove& move) {
           return move.method == method && move.mode == mode && move.by == by;
         });
}

std::optional<std::string> Invariants::Unbalanced() {
  recorder::Balance& balance = recorder::Get().balance;
  std::erase_if(balance.faults, [&](const std::string& fault) { return IsTheScripts(method, fault); });
  if (!balance.faults.empty()) return balance.faults.front();
  if (balance.insideBegin) return "glBegin without glEnd";
  if (balance.insideList != wasInsideList && method != "NewList" && method != "EndList") return "a display list";
  for (const auto& [mode, depth] : balance.matrixDepth) {
    if (!MayMove(mode, depth - matrixDepth[mode]))
      return "matrix stack moved by " + std::to_string(depth - matrixDepth[mode]);
  }
  if (!balance.quadrics.empty()) return "a quadric was not deleted";
  if (!balance.nurbsRenderers.empty()) return "a NURBS renderer was not deleted";
  return std::nullopt;
}
