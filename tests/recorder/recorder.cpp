#include "tests/recorder/recorder.h"

namespace recorder {
namespace {

std::string Count(const char* what, std::size_t count) { return what + (": " + std::to_string(count)); }

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
  if (!contexts.empty()) problems.push_back(Count("contexts not deleted", contexts.size()));
  if (!quadrics.empty()) problems.push_back(Count("quadrics not deleted", quadrics.size()));
  if (!nurbsRenderers.empty()) problems.push_back(Count("NURBS renderers not deleted", nurbsRenderers.size()));
  return problems;
}

Recorder& Get() {
  static Recorder recorder;
  return recorder;
}

void Reset() { Get() = {}; }

std::string TakeLog() {
  std::vector<std::string> lines;
  for (const Call& call : Get().calls) lines.push_back(call.Text());
  Get().calls.clear();
  return Joined(lines);
}

std::string Lines(std::initializer_list<std::string_view> lines) { return Joined(lines); }

}  // namespace recorder
