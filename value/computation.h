// A computation that writes its result, turned into one that returns it.
#pragma once

#include "host/talq.h"

// Writes a op b into the result.
using Computation = void (*)(Variable& result, const Variable& a, const Variable& b);

// Required: what is returned is a copy that the host's constructor makes.
inline Variable ResultOf(Computation compute, const Variable& a, const Variable& b) {
  Variable result;
  compute(result, a, b);
  return Variable(result);
}
