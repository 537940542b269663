// Small text helpers.
#pragma once

#include <string>

namespace devhost {

// An integer in decimal digits. (std::to_string is not part of every C++ runtime that the host is built with.)
std::string Decimal(long long number);

}  // namespace devhost
