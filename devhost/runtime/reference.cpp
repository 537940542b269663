#include "devhost/runtime/reference.h"

#include <algorithm>
#include <array>

#include "devhost/runtime/text.h"

namespace devhost {
namespace {

constexpr std::string_view kFence = "```\n";
constexpr std::string_view kFenceEnd = "\n```";
constexpr std::string_view kBlanks = " \r\n";

// Cuts the first line off, with its end.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end == text.npos ? text.size() : end + 1);
  text.remove_prefix(line.size());
  return line;
}

// Where the next heading's line begins, or the end.
std::size_t FindHeading(std::string_view text) {
  if (text.starts_with("##")) return 0;
  const std::size_t lineEnd = text.find("\n##");
  return lineEnd == text.npos ? text.size() : lineEnd + 1;
}

std::vector<ReferenceForm> FormsIn(std::string_view block) {
  std::vector<ReferenceForm> forms;
  while (!block.empty()) {
    const std::string_view call = Trimmed(TakeLine(block), kBlanks);
    forms.push_back({call, Trimmed(TakeLine(block), kBlanks)});
  }
  return forms;
}

ReferenceEntry MakeEntry(std::string_view name, std::string_view group, std::string_view body) {
  ReferenceEntry entry;
  entry.name = name;
  entry.group = group;
  body = Trimmed(body, kBlanks);
  const std::size_t blockEnd = body.find(kFenceEnd, kFence.size());
  if (body.starts_with(kFence) && blockEnd != body.npos) {
    entry.block = body.substr(kFence.size(), blockEnd - kFence.size());
    entry.forms = FormsIn(entry.block);
    body.remove_prefix(blockEnd + kFenceEnd.size());
  }
  entry.text = Trimmed(body, kBlanks);
  return entry;
}

// The cells of a table's row; none of any other line.
std::vector<std::string_view> CellsOf(std::string_view line) {
  std::vector<std::string_view> cells;
  for (std::size_t start = 1; line.starts_with('|') && start < line.size();) {
    const std::size_t end = std::min(line.find('|', start), line.size());
    cells.push_back(Trimmed(line.substr(start, end - start), kBlanks));
    start = end + 1;
  }
  return cells;
}

}  // namespace

std::vector<ReferenceEntry> ParseReference(std::string_view document) {
  std::vector<ReferenceEntry> entries;
  std::string_view group;
  for (document.remove_prefix(FindHeading(document)); !document.empty();) {
    const std::string_view heading = Trimmed(TakeLine(document), kBlanks);
    const std::string_view body = document.substr(0, FindHeading(document));
    document.remove_prefix(body.size());
    if (heading.starts_with("## ")) group = heading.substr(3);
    const std::string_view name = heading.starts_with("### ") ? heading.substr(4) : std::string_view();
    if (!name.empty() && name.find(' ') == name.npos) entries.push_back(MakeEntry(name, group, body));
  }
  return entries;
}

std::vector<ReferenceError> ParseReferenceErrors(std::string_view document) {
  constexpr std::size_t kCells = 5;
  std::vector<ReferenceError> errors;
  while (!document.empty()) {
    const std::vector<std::string_view> cells = CellsOf(Trimmed(TakeLine(document), kBlanks));
    if (cells.size() != kCells || !cells[1].starts_with('`')) continue;
    errors.push_back({cells[0], Trimmed(cells[1], "`"), cells[2], cells[3], cells[4]});
  }
  return errors;
}

std::span<const ReferenceDocument> References() {
  const auto parsed = [](std::string_view owner, std::string_view text) {
    return ReferenceDocument{owner, ParseReference(text), ParseReferenceErrors(text)};
  };
  static const auto& documents = *new std::array<ReferenceDocument, 2>{parsed("", ReferenceText()),
                                                                       parsed("development host", HostReferenceText())};
  return documents;
}

const std::vector<ReferenceEntry>& Reference() { return References().front().entries; }

const ReferenceEntry* FindInReference(std::string_view className, std::string_view method) {
  const std::vector<ReferenceEntry>& entries = Reference();
  const auto found = std::find_if(entries.begin(), entries.end(), [&](const ReferenceEntry& entry) {
    return entry.ClassName() == className && entry.MethodName() == method;
  });
  return found != entries.end() ? &*found : nullptr;
}

std::string_view ArgumentsInReference(std::string_view signature) {
  for (const ReferenceEntry& entry : Reference()) {
    for (const ReferenceForm& form : entry.forms) {
      if (form.signature != signature) continue;
      const std::size_t open = form.call.find('(');
      return open != form.call.npos && form.call.ends_with(')') ? form.call.substr(open) : std::string_view();
    }
  }
  return {};
}

std::string_view AdviceInReference(std::string_view errorName) {
  for (const ReferenceDocument& document : References()) {
    for (const ReferenceError& error : document.errors) {
      if (error.name == errorName) return error.advice;
    }
  }
  return {};
}

}  // namespace devhost
