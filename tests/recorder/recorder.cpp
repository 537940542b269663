#include "tests/recorder/recorder.h"

#include <tuple>
#include <utility>

namespace recorder {
namespace {

std::string Joined(const auto& lines) {
  std::string text;
  for (const auto& line : lines) text.append(line) += '\n';
  return text;
}

}  // namespace

std::string Call::Text() const {
  std::string text = name + "(";
  for (const std::string& argument : arguments) text += (&argument != &arguments.front() ? ", " : "") + argument;
  return text + ")";
}

std::vector<std::string> Balance::Problems() const {
  std::vector<std::string> problems = faults;
  if (insideBegin) problems.emplace_back("glBegin without glEnd");
  if (insideList) problems.emplace_back("glNewList without glEndList");
  for (const auto& [mode, depth] : matrixDepth) {
    if (depth != 0)
      problems.push_back("matrix stack " + gl_trace::Format(gl_trace::Enum{mode}) + " left " + gl_trace::Format(depth) +
                         " deep");
  }
  return problems;
}

std::vector<std::string> Balance::TakeUndeleted() {
  std::vector<std::string> lines;
  const auto take = [&](const char* kind, std::set<const void*>& objects) {
    if (!objects.empty()) lines.push_back(kind + (" not deleted: " + std::to_string(objects.size())));
    objects.clear();
  };
  take("contexts", contexts);
  take("quadrics", quadrics);
  take("NURBS renderers", nurbsRenderers);
  return lines;
}

Recorder& Get() {
  static Recorder recorder;
  return recorder;
}

void Reset() { Get() = {}; }

void SetCurrent(std::uintptr_t device, std::uintptr_t context) {
  Recorder& recorder = Get();
  const auto current = std::pair(reinterpret_cast<HDC>(device), reinterpret_cast<HGLRC>(context));
  std::tie(recorder.currentDevice, recorder.currentContext) = current;
  if (!context) return;
  recorder.contexts[current.second].pixelFormat = recorder.pixelFormats.try_emplace(current.first, 1).first->second;
  recorder.onceCurrent.insert(current);
}

std::string TakeLog() {
  std::vector<std::string> lines;
  for (const Call& call : Get().calls) lines.push_back(call.Text());
  Get().calls.clear();
  return Joined(lines);
}

std::string Lines(std::initializer_list<std::string_view> lines) { return Joined(lines); }

}  // namespace recorder
