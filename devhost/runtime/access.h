// Fields, and the values that an access yields when there is no place to point at.
#pragma once

#include <string_view>

#include "host/talq.h"

namespace devhost {

// An empty value to hand out by reference; it stays as it is until a dozen later ones were handed out.
Variable& Scratch();
// Empties all of them.
void ClearScratch();

// The field of an object, or the scratch result of its getter; null with an error raised when it has neither.
Variable* FindField(Variable& object, unsigned short name);

// Gives an object a field (empty until it is assigned to). Places of earlier fields move. A scratch value for what is
// no object.
Variable& DefineField(Variable& object, std::string_view name);

}  // namespace devhost
