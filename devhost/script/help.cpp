#include "devhost/script/help.h"

#include <algorithm>

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

// The entry as in the document, without its marks and pictures.
std::string TextOfEntry(const ReferenceEntry& entry) {
  const std::string description = WithoutPictures(entry.text);
  std::string text;
  for (const std::string_view part : {entry.name, entry.block, std::string_view(description)}) {
    if (!text.empty()) text += "\n";
    text.append(part).append("\n");
  }
  return text;
}

// The calls of the class's methods under the titles of their groups; "" for a class that has none.
std::string CallsOfClass(const std::vector<ReferenceEntry>& reference, std::string_view className) {
  std::string text;
  std::string_view group;
  for (const ReferenceEntry& entry : reference) {
    if (entry.ClassName() != className) continue;
    if (text.empty()) text.append(className).append("\n");
    if (entry.group != group) text.append("\n").append(entry.group).append("\n");
    group = entry.group;
    for (const ReferenceForm& form : entry.forms) text.append("  ").append(form.call).append("\n");
  }
  return text;
}

// The topic may be a class, a method's name, or both together.
std::string Suggestion(const std::vector<ReferenceEntry>& reference, std::string_view topic) {
  std::vector<std::string> names;
  for (const ReferenceEntry& entry : reference) {
    if (topic.find("::") != topic.npos) {
      names.emplace_back(entry.name);
    } else {
      names.emplace_back(entry.ClassName());
      names.emplace_back(entry.MethodName());
    }
  }
  return DidYouMean(topic, names);
}

}  // namespace

bool FindHelp(const std::vector<ReferenceEntry>& reference, std::string_view topic, std::string& text,
              std::string& message) {
  text = CallsOfClass(reference, topic);
  if (!text.empty()) return true;
  for (const ReferenceEntry& entry : reference) {
    if (entry.name != topic && entry.MethodName() != topic) continue;
    if (!text.empty()) text += "\n";
    text += TextOfEntry(entry);
  }
  if (!text.empty()) return true;
  message = "the reference has no entry '" + std::string(topic) + "'";
  const std::string suggestion = Suggestion(reference, topic);
  if (!suggestion.empty()) message += "; " + suggestion;
  return false;
}

}  // namespace devhost::script
