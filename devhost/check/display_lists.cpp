#include "devhost/check/display_lists.h"

#include <optional>

namespace devhost::check {
namespace {

// As deep as OpenGL replays lists within lists.
constexpr int kMaxDepth = 64;

}  // namespace

void DisplayLists::Begin(unsigned name) {
  recorded = &lists[name];
  *recorded = {};
}

void DisplayLists::Add(const Step& step) {
  if (recorded) recorded->steps.push_back(step);
}

void DisplayLists::Vertex(double x, double y, double z) {
  Add({Step::Kind::Vertex, static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)});
}

void DisplayLists::Multiply(const Transform& transform) {
  if (!recorded) return;
  recorded->transforms.push_back(transform);
  Add({.kind = Step::Kind::Multiply, .number = static_cast<unsigned>(recorded->transforms.size() - 1)});
}

void DisplayLists::LoadIdentity() { Add({Step::Kind::LoadIdentity}); }
void DisplayLists::Push() { Add({Step::Kind::Push}); }
void DisplayLists::Pop() { Add({Step::Kind::Pop}); }
void DisplayLists::CallList(unsigned name) { Add({.kind = Step::Kind::Call, .number = name}); }

void DisplayLists::Delete(unsigned first, unsigned count) {
  const auto begin = lists.lower_bound(first);
  const auto end = first + count < first ? lists.end() : lists.lower_bound(first + count);
  lists.erase(begin, end);
}

void DisplayLists::Count(unsigned name, const Transform& modelView, const Transform& projection,
                         ViewCount& count) const {
  Replay replay{{modelView}, projection, count};
  Run(name, replay);
}

void DisplayLists::Run(unsigned name, Replay& replay) const {
  const auto found = lists.find(name);
  if (found == lists.end() || replay.depth == kMaxDepth) return;
  ++replay.depth;
  std::optional<View> view;  // until the matrix changes
  for (const Step& step : found->second.steps) {
    if (step.kind == Step::Kind::Vertex) {
      if (!view) view.emplace(replay.stack.back(), replay.projection);
      view->Count(step.x, step.y, step.z, replay.count);
      continue;
    }
    view.reset();
    if (step.kind == Step::Kind::Multiply) {
      replay.stack.back() = Product(replay.stack.back(), found->second.transforms[step.number]);
    } else if (step.kind == Step::Kind::LoadIdentity) {
      replay.stack.back() = kIdentity;
    } else if (step.kind == Step::Kind::Push) {
      replay.stack.push_back(replay.stack.back());
    } else if (step.kind == Step::Kind::Pop) {
      if (replay.stack.size() > 1) replay.stack.pop_back();
    } else {
      Run(step.number, replay);
    }
  }
  --replay.depth;
}

}  // namespace devhost::check
