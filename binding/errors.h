// The errors that the module raises. Raising returns to the caller, who frees what it holds and returns.
#pragma once

// Codes of the host, for TalqError.
enum HostErrorCode : int {
  kCountsDoNotFit = 8,
  kDivisionByZero = 10,
  kNoNativeObject = 43,
};

// Codes of the module, relative to the base that the host gives it, for ModuleError.
enum ModuleErrorCode : unsigned {
  OGL_WRONG_DC = 0,
  OGL_NO_DC = 1,
  OGL_CANTBIND_DC = 2,
  OGL_NAME_STACK_OVERFLOW = 3,
  OGL_NAME_STACK_UNDERFLOW = 4,
  OGL_NO_SELECTION_MODE = 5,
  OGL_NURBS_ERROR = 6,
};

// Raises a module error with a text, or null for the table's own message. Does nothing while the host has given the
// module no error base. Defined in module/errors.cpp.
void ModuleError(unsigned code, char* text);
