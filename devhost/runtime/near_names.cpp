#include "devhost/runtime/near_names.h"

#include <algorithm>

namespace devhost {
namespace {

constexpr std::size_t kMostNames = 3;

char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string InLowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), LowerCase);
  return lower;
}

// How many letters have to be inserted, removed, replaced, or swapped with the next.
std::size_t EditDistance(std::string_view a, std::string_view b) {
  // Distances between the beginnings of a and b: of the row before the last, of the last row, and of this one.
  std::vector<std::size_t> older(b.size() + 1);
  std::vector<std::size_t> old(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    older.swap(old);
    old.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      row[j] = std::min({old[j] + 1, row[j - 1] + 1, old[j - 1] + (a[i - 1] == b[j - 1] ? 0U : 1U)});
      const bool isSwap = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (isSwap) row[j] = std::min(row[j], older[j - 2] + 1);
    }
  }
  return row[b.size()];
}

// How far away a name of this length may lie: a short one has too many neighbours.
std::size_t Reach(std::size_t length) { return std::min<std::size_t>(length / 3, 2); }

}  // namespace

std::vector<std::string> NearNames(std::string_view name, const std::vector<std::string>& candidates) {
  const std::string wanted = InLowerCase(name);
  std::size_t reach = Reach(name.size());
  std::vector<std::string> nearest;
  for (const std::string& candidate : candidates) {
    if (candidate == name) continue;
    const std::size_t longer = std::max(candidate.size(), name.size());
    if (longer - std::min(candidate.size(), name.size()) > reach) continue;
    const std::size_t distance = EditDistance(wanted, InLowerCase(candidate));
    if (distance > reach || std::find(nearest.begin(), nearest.end(), candidate) != nearest.end()) continue;
    if (distance < reach) nearest.clear();
    reach = distance;
    if (nearest.size() < kMostNames) nearest.push_back(candidate);
  }
  return nearest;
}

std::string DidYouMean(std::string_view name, const std::vector<std::string>& candidates, std::string_view prefix) {
  const std::vector<std::string> names = NearNames(name, candidates);
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) text += i + 1 == names.size() ? " or " : ", ";
    text.append(prefix).append(names[i]);
  }
  return text.empty() ? text : "did you mean " + text + "?";
}

}  // namespace devhost
