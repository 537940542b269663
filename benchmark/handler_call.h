// A call of a handler as the host makes it, with its registers ready.
#pragma once

#include <string_view>
#include <vector>

#include "host/talq.h"
#include "tests/unit/support/handler_registers.h"

class HandlerCall {
 public:
  // signature: the whole row of the method table.
  HandlerCall(std::string_view signature, const std::vector<Variable>& args, Variable& object);
  // The module's handler, and any other in its place.
  void Run() { Run(handler); }
  void Run(ScriptHandler other);

 private:
  ScriptHandler handler;
  HandlerRegisters registers;
};

// The module's handler of a row.
ScriptHandler HandlerOf(std::string_view signature);
