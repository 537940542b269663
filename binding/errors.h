// The errors that the module raises. Raising returns to the caller, who frees what it holds and returns.
#pragma once

// Codes of the host, for TalqError.
enum HostErrorCode : int {
  kCountsDoNotFit = 8,  // arrays whose lengths do not fit together
  kDivisionByZero = 10,
  kNoNativeObject = 43,  // a script object without the native object that the call needs
};

// Codes of the module, relative to the base that the host gives it, for ModuleError.
enum ModuleErrorCode : unsigned {
  OGL_WRONG_DC = 0,              // no rendering context can be made for the device context
  OGL_NO_DC = 1,                 // no device context, or nothing open to bind to it
  OGL_CANTBIND_DC = 2,           // the rendering context cannot be made current
  OGL_NAME_STACK_OVERFLOW = 3,   // in the table alone: nothing raises it
  OGL_NAME_STACK_UNDERFLOW = 4,  // likewise
  OGL_NO_SELECTION_MODE = 5,     // a selection is ended that was not begun
  OGL_NURBS_ERROR = 6,           // GLU reports an error of a curve or surface
};

// Raises a module error with a text, or null for the table's own message. Does nothing while the host has given the
// module no error base. Defined in module/errors.cpp.
void ModuleError(unsigned code, char* text);
