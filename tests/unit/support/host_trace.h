// The module's calls of the host, in the recorder's log between those of OpenGL.
#pragma once

#include "host/talq.h"

// While it lives, these are noted, one call a line: "argument 1: float()", "object: GetAssID()", "Init(1024, 4)".
// Native objects are numbered as they are made: "TalqAss(0)", and at its end "~TalqAss(0)". What the host calls itself
// is not noted. The linker leads the calls here (cmake/wrapped-calls.cmake).
class HostTrace {
 public:
  // Registers of a call are named by their place: argument 1 and so on, then the object; the others are "register".
  HostTrace() : HostTrace(nullptr, 0, nullptr) {}
  HostTrace(VarRegister* args, int argc, VarRegister* result);
  HostTrace(const HostTrace&) = delete;
  HostTrace& operator=(const HostTrace&) = delete;
  ~HostTrace();
};

// While it lives, a register that is read as bytes gives these in place of its value's.
class RegisterBytes {
 public:
  explicit RegisterBytes(unsigned char* bytes);
  RegisterBytes(const RegisterBytes&) = delete;
  RegisterBytes& operator=(const RegisterBytes&) = delete;
  ~RegisterBytes();
};
