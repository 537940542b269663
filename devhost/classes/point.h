// POINT3 values as the host's own handlers make them.
#pragma once

#include "host/talq.h"

namespace devhost {

// target = a POINT3 of these coordinates.
void MakePoint(Variable& target, double x, double y, double z);

}  // namespace devhost
