// The time that passes.
#pragma once

namespace devhost {

// Seconds on a clock that only goes forward; its zero means nothing.
double Now();

}  // namespace devhost
