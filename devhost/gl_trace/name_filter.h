// Which functions a list of names means.
#pragma once

#include <string_view>

namespace gl_trace {

// Whether the pattern, in which * stands for any letters, fits the whole name.
bool Fits(std::string_view pattern, std::string_view name);

// Whether one of the patterns, with commas between, fits the name.
bool IsListed(std::string_view patterns, std::string_view name);

// The first of the patterns that fits no function's name; empty when each fits one.
std::string_view PatternWithoutFunction(std::string_view patterns);

}  // namespace gl_trace
