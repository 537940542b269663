#include "devhost/script/path.h"

#include <algorithm>

#include "devhost/script/console.h"

namespace devhost::script {
namespace {

bool IsSeparator(char c) { return c == '/' || c == '\\'; }

// Length of what makes a path absolute: "/", "C:" or "C:/"; 0 for a relative one.
std::size_t RootLength(std::string_view path) {
  if (path.size() >= 2 && path[1] == ':') return path.size() > 2 && IsSeparator(path[2]) ? 3 : 2;
  return !path.empty() && IsSeparator(path[0]) ? 1 : 0;
}

}  // namespace

std::string ResolvePath(std::string_view includingFile, std::string_view path) {
  const std::size_t folderEnd = includingFile.find_last_of("/\\");
  std::string whole;
  if (RootLength(path) == 0 && folderEnd != includingFile.npos) whole = includingFile.substr(0, folderEnd + 1);
  whole += path;

  const std::size_t root = RootLength(whole);
  std::vector<std::string> parts;
  for (std::size_t start = root; start < whole.size();) {
    std::size_t end = start;
    while (end < whole.size() && !IsSeparator(whole[end])) ++end;
    const std::string part = whole.substr(start, end - start);
    const bool goesUp = part == "..";
    if (goesUp && !parts.empty() && parts.back() != "..") {
      parts.pop_back();
    } else if (!part.empty() && part != "." && (!goesUp || root == 0)) {
      parts.push_back(part);
    }
    start = end + 1;
  }
  std::string resolved = whole.substr(0, root);
  for (const std::string& part : parts) {
    if (&part != &parts.front()) resolved += '/';
    resolved += part;
  }
  return resolved;
}

std::vector<std::string> IncludeFolders() {
  std::vector<std::string> folders;
  const std::string list = EnvironmentText("TALQ_PATH");
  for (std::size_t start = 0, end = 0; start < list.size(); start = end + 1) {
    end = std::min(list.find(';', start), list.size());
    if (end > start) folders.push_back(list.substr(start, end - start));
  }
  if (const std::string program = ProgramFolder(); !program.empty()) folders.push_back(program + "examples");
  return folders;
}

}  // namespace devhost::script
