// Numbers of any type as C++ numbers.
#pragma once

#include "host/talq.h"

namespace devhost {

// Each takes a numeric value; a float outside an integer's range gives the nearest one, NaN gives 0, and an integer too
// wide for the result keeps its low bits.
double DoubleOf(const Variable& number);
long long Int64Of(const Variable& number);
int Int32Of(const Variable& number);

// The type in which two numbers of these types are computed: the wider one, floats above integers.
TVARTYPE PromotedType(TVARTYPE a, TVARTYPE b);

}  // namespace devhost
