// The loaded modules, as the rest of the runtime asks for them.
#pragma once

#include "devhost/runtime/runtime.h"
#include "host/talq.h"

namespace devhost {

// The row of a module's error table that a raised code means, or null.
const ErrorEntry* FindModuleError(int code);

// The loaded module with this library handle, or null.
const Module* FindModule(HINSTANCE__* handle);

// Gives the library back to the system. Defined beside LoadModule; natively there are no libraries.
void FreeModuleLibrary(HINSTANCE__* handle);

}  // namespace devhost
