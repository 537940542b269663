// The time that passes.
#pragma once

namespace devhost {

// Seconds on a clock that only goes forward; where it began, nobody knows.
double Now();

}  // namespace devhost
