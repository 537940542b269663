// What the DLL exports beside the arithmetic of value/; module/talqopengl.def gives the ordinals.
#pragma once

#include "host/talq.h"

// Ordinal 2: writes the module's version text with strncpy's rules: at most length characters, the rest filled with
// zeros, no terminator when the text fills the buffer. Returns the buffer.
char* WriteVersionText(char* buffer, unsigned length);

// Ordinal 3: the first row of the method table. The argument is ignored.
const MethodEntry* GetMethodTable(void* unused);

// Ordinal 4: the first row of the error table.
const ErrorEntry* GetErrorTable();

// Ordinal 5: a hook that the host calls and that is required to do nothing.
void DoNothing(void* unused);

// Ordinal 20: the module's instance handle; null before the library is attached to a process.
HINSTANCE__* TalqSystemGetLibInst();
