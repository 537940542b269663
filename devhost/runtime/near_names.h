// Names that somebody may have meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace devhost {

// The candidates nearest to the name, at most three, in their order: those that differ in letters' case alone, or by a
// letter or two for names long enough. Each comes once; the name itself is none.
std::vector<std::string> NearNames(std::string_view name, const std::vector<std::string>& candidates);

// "did you mean a, b or c?" of the candidates nearest to the name, with `prefix` before each; "" when none is near.
std::string DidYouMean(std::string_view name, const std::vector<std::string>& candidates, std::string_view prefix = {});

}  // namespace devhost
