#include "devhost/script/source.h"

#include <algorithm>

#include "devhost/runtime/text.h"

namespace devhost::script {
namespace {

constexpr std::size_t kLongestExcerpt = 160;
constexpr std::size_t kContext = 60;  // bytes kept before the place when a line is cut

bool ContinuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// The place, or where the character begins that it lies in.
std::size_t CharacterStart(std::string_view text, std::size_t place) {
  while (place > 0 && place < text.size() && ContinuesCharacter(text[place])) --place;
  return place;
}

int CountCharacters(std::string_view text) {
  return static_cast<int>(std::count_if(text.begin(), text.end(), [](char c) { return !ContinuesCharacter(c); }));
}

}  // namespace

int LineOf(Position at) {
  const std::string_view before = std::string_view(at.source->text).substr(0, at.offset);
  return 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
}

Location Locate(Position at) {
  const std::string_view text = at.source->text;
  const std::size_t offset = std::min(at.offset, text.size());
  const std::string_view before = text.substr(0, offset);
  const std::size_t start = before.rfind('\n') + 1;  // npos + 1 is 0: the first line
  std::string_view line = text.substr(start, text.find('\n', offset) - start);
  std::size_t place = offset - start;

  Location location;
  location.file = at.source->name;
  location.line = LineOf(at);
  location.column = 1 + CountCharacters(line.substr(0, place));
  if (line.size() > kLongestExcerpt) {
    const std::size_t first = CharacterStart(line, place > kContext ? place - kContext : 0);
    line = line.substr(first, CharacterStart(line, first + kLongestExcerpt) - first);
    place -= first;
  }
  location.caret = CountCharacters(line.substr(0, place));
  location.excerpt = line;
  for (char& c : location.excerpt) {
    if (static_cast<unsigned char>(c) < ' ' || c == 0x7F) c = ' ';
  }
  location.excerpt.erase(location.excerpt.find_last_not_of(' ') + 1);
  return location;
}

std::string Describe(const Location& at, std::string_view message) {
  std::string text = at.file + ":" + Decimal(at.line) + ":" + Decimal(at.column) + ": ";
  text.append(message).append("\n  ").append(at.excerpt).append("\n  ");
  text.append(static_cast<std::size_t>(at.caret), ' ').append("^\n");
  return text;
}

}  // namespace devhost::script
