// The host's own classes and functions.
#pragma once

namespace devhost {

// Registers them (once).
void RegisterHostClasses();

}  // namespace devhost
