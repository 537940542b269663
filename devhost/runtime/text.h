// Small text helpers.
#pragma once

#include <string>
#include <string_view>

namespace devhost {

// An integer in decimal digits. (std::to_string is not part of every C++ runtime that the host is built with.)
std::string Decimal(long long number);

// The shortest decimal text that reads back as the same number.
std::string ShortestText(float number);
std::string ShortestText(double number);

// Without the blanks at both ends.
std::string_view Trimmed(std::string_view text, std::string_view blanks = " ");

// The words with one blank between each.
std::string Unwrapped(std::string_view text);

// Cuts the first word off, with the blanks before it; empty when none is left. Blanks are spaces, tabs and line ends.
std::string_view TakeWord(std::string_view& text);

}  // namespace devhost
