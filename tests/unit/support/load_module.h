// The module under test, loaded into the development host as a library would be.
#pragma once

#include "devhost/runtime/runtime.h"

// Tells the module its instance handle and the host its tables; registers the host's classes and the fake device
// first. The record is the host's own: its error base can be changed. Null with an error raised when the host refuses.
devhost::Module* LoadTestedModule();
