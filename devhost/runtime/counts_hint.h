// What helps against Vectors whose lengths do not fit together.
#pragma once

#include <string>
#include <string_view>

#include "devhost/runtime/call_observer.h"

namespace devhost {

// "9 and 6 numbers": the lengths of the Vectors among the call's arguments; "" when there are none.
std::string VectorLengths(const MethodCall& call);

// What a method takes, by the sentence of its reference entry that ends with "; else error 8.": "takes points in
// threes, and as many normals". "" where there is none.
std::string CountsRule(std::string_view entryText);

// When the call has raised kErrorBadCounts, gives that error a hint: the lengths that came, and the method's rule.
void HintAtCounts(const MethodCall& call);

}  // namespace devhost
