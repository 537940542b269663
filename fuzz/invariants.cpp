#include "fuzz/invariants.h"

#include <algorithm>

#include "binding/errors.h"
#include "devhost/runtime.h"

namespace {

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
      matrixDepth(recorder::Get().balance.matrixDepth) {
  recorder::Get().calls.clear();
  recorder::Get().balance.faults.clear();
}

std::optional<std::string> Invariants::Violation() {
  if (DrewInSpiteOfError()) return "OpenGL was called in spite of an error: " + recorder::TakeLog();
  return Unbalanced();
}

bool Invariants::DrewInSpiteOfError() const {
  if (recorder::Get().calls.empty()) return false;
  const devhost::Error* error = devhost::PendingError();
  if (wasPending) return std::ranges::find(kBatches, method) != std::end(kBatches);
  return error && (error->code == kNoNativeObject || error->code == kCountsDoNotFit);
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
