// A call of a handler as the host makes it, with its registers ready.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "host/talq.h"

class HandlerCall {
 public:
  // signature: the whole row of the method table.
  HandlerCall(std::string_view signature, const std::vector<Variable>& args, Variable& object);
  // The module's handler, and any other in its place.
  void Run() { Run(handler); }
  void Run(ScriptHandler other);

 private:
  ScriptHandler handler;
  int count;
  std::unique_ptr<VarRegister[]> registers;
};

// The module's handler of a row.
ScriptHandler HandlerOf(std::string_view signature);
