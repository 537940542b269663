#include "devhost/runtime/text.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace devhost {
namespace {

template <class Number>
std::string ShortestTextOf(Number number) {
  char text[40];
  for (int digits = 6; digits <= 17; ++digits) {
    std::snprintf(text, sizeof text, "%.*g", digits, static_cast<double>(number));
    if (static_cast<Number>(std::strtod(text, nullptr)) == number) break;
  }
  return text;
}

}  // namespace

std::string Decimal(long long number) {
  char text[24];
  std::snprintf(text, sizeof text, "%lld", number);
  return text;
}

std::string ShortestText(float number) { return ShortestTextOf(number); }
std::string ShortestText(double number) { return ShortestTextOf(number); }

std::string_view Trimmed(std::string_view text, std::string_view blanks) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::string_view TakeWord(std::string_view& text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(word.size());
  return word;
}

std::string Unwrapped(std::string_view text) {
  std::string unwrapped(TakeWord(text));
  for (std::string_view word = TakeWord(text); !word.empty(); word = TakeWord(text)) {
    unwrapped.append(" ").append(word);
  }
  return unwrapped;
}

}  // namespace devhost
