// Small text helpers.
#pragma once

#include <string>

namespace devhost {

// An integer in decimal digits. (std::to_string is not part of every C++ runtime that the host is built with.)
std::string Decimal(long long number);

// The shortest decimal text that reads back as the same number.
std::string ShortestText(float number);
std::string ShortestText(double number);

}  // namespace devhost
