// Who computes for scripts when both operands are numbers of one type: the host itself, or what a module exports.
#pragma once

#include <array>

#include "host/talq.h"

namespace devhost {

// result = a op b; raises an error where that does not exist.
using Computation = void (*)(Variable& result, const Variable& a, const Variable& b);

// One for each Operator, in their order: Add to Xor.
using Computations = std::array<Computation, 8>;

// The host's own general routines, which never use those of a module.
extern const Computations kOwnComputations;

// From now on these compute for scripts.
void UseComputations(const Computations& table);

}  // namespace devhost
