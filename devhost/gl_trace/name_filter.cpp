#include "devhost/gl_trace/name_filter.h"

#include <algorithm>

#include "devhost/gl_trace/watch.h"

namespace gl_trace {
namespace {

// Cuts the first pattern off, with the comma behind it.
std::string_view TakePattern(std::string_view& patterns) {
  const std::size_t end = std::min(patterns.find(','), patterns.size());
  const std::string_view pattern = patterns.substr(0, end);
  patterns.remove_prefix(std::min(end + 1, patterns.size()));
  return pattern;
}

}  // namespace

bool Fits(std::string_view pattern, std::string_view name) {
  if (pattern.empty()) return name.empty();
  if (pattern.front() == '*') return Fits(pattern.substr(1), name) || (!name.empty() && Fits(pattern, name.substr(1)));
  return !name.empty() && pattern.front() == name.front() && Fits(pattern.substr(1), name.substr(1));
}

bool IsListed(std::string_view patterns, std::string_view name) {
  while (!patterns.empty()) {
    if (Fits(TakePattern(patterns), name)) return true;
  }
  return false;
}

std::string_view PatternWithoutFunction(std::string_view patterns) {
  while (!patterns.empty()) {
    const std::string_view pattern = TakePattern(patterns);
    if (std::none_of(std::begin(kFunctionNames), std::end(kFunctionNames),
                     [pattern](const char* name) { return Fits(pattern, name); })) {
      return pattern;
    }
  }
  return {};
}

}  // namespace gl_trace
