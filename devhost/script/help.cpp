#include "devhost/script/help.h"

#include <algorithm>
#include <vector>

#include "devhost/runtime/near_names.h"
#include "devhost/runtime/text.h"

namespace devhost::script {
namespace {

// The text without its pictures, each of which is a line with an empty one behind it: a terminal shows none.
std::string WithoutPictures(std::string_view text) {
  std::string rest;
  bool isBehindPicture = false;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
    text.remove_prefix(line.size());
    const bool isPicture = line.starts_with("![");
    if (!isPicture && !(isBehindPicture && Trimmed(line, "\r\n").empty())) rest += line;
    isBehindPicture = isPicture;
  }
  return rest;
}

// Behind a name of what is not the module's: whose it is.
std::string MarkOf(const ReferenceDocument& document) {
  return document.owner.empty() ? "" : " (" + std::string(document.owner) + ")";
}

// Behind what was found before, with an empty line between both.
void Append(std::string& text, const std::string& found) {
  if (!text.empty()) text += "\n";
  text += found;
}

// The entry as in the document, without its marks and pictures.
std::string TextOfEntry(const ReferenceDocument& document, const ReferenceEntry& entry) {
  const std::string description = WithoutPictures(entry.text);
  const std::string title = std::string(entry.name) + MarkOf(document);
  std::string text;
  for (const std::string_view part : {std::string_view(title), entry.block, std::string_view(description)}) {
    Append(text, std::string(part) + "\n");
  }
  return text;
}

// The row of the table, a cell a paragraph. A finding of a check has no number.
std::string TextOfError(const ReferenceDocument& document, const ReferenceError& error) {
  const bool hasNumber = !error.code.empty() && error.code.front() >= '0' && error.code.front() <= '9';
  std::string text = std::string(error.name) + MarkOf(document) + "\n";
  Append(text,
         (hasNumber ? "error " + std::string(error.code) : "found by --check") + ": " + std::string(error.text) + "\n");
  Append(text, std::string(error.meaning) + "\n");
  if (!error.advice.empty()) Append(text, "hint: " + std::string(error.advice) + "\n");
  return text;
}

// The calls of the class's methods under the titles of their groups; "" for a class that has none.
std::string CallsOfClass(const ReferenceDocument& document, std::string_view className) {
  std::string text;
  std::string_view group;
  for (const ReferenceEntry& entry : document.entries) {
    if (!entry.IsMethod() || entry.ClassName() != className) continue;
    if (text.empty()) text.append(className).append(MarkOf(document)).append("\n");
    if (entry.group != group) text.append("\n").append(entry.group).append("\n");
    group = entry.group;
    for (const ReferenceForm& form : entry.forms) text.append("  ").append(form.call).append("\n");
  }
  return text;
}

// Everything of the document that has the topic's name; "" where nothing has.
std::string FindIn(const ReferenceDocument& document, std::string_view topic) {
  std::string text = CallsOfClass(document, topic);
  if (!text.empty()) return text;
  for (const ReferenceEntry& entry : document.entries) {
    if (entry.name == topic || entry.MethodName() == topic) Append(text, TextOfEntry(document, entry));
  }
  for (const ReferenceError& error : document.errors) {
    if (error.name == topic) Append(text, TextOfError(document, error));
  }
  return text;
}

// The topic may be a class, a method's name, both together, or an error.
std::string Suggestion(std::span<const ReferenceDocument> documents, std::string_view topic) {
  std::vector<std::string> names;
  const bool isMethod = topic.find("::") != topic.npos;
  for (const ReferenceDocument& document : documents) {
    for (const ReferenceEntry& entry : document.entries) {
      names.emplace_back(isMethod ? entry.name : entry.MethodName());
      if (!isMethod && entry.IsMethod()) names.emplace_back(entry.ClassName());
    }
    for (const ReferenceError& error : document.errors) names.emplace_back(error.name);
  }
  return DidYouMean(topic, names);
}

}  // namespace

bool FindHelp(std::span<const ReferenceDocument> documents, std::string_view topic, std::string& text,
              std::string& message) {
  text.clear();
  for (const ReferenceDocument& document : documents) {
    const std::string found = FindIn(document, topic);
    if (!found.empty()) Append(text, found);
  }
  if (!text.empty()) return true;
  message = "the reference has no entry '" + std::string(topic) + "'";
  const std::string suggestion = Suggestion(documents, topic);
  if (!suggestion.empty()) message += "; " + suggestion;
  return false;
}

}  // namespace devhost::script
