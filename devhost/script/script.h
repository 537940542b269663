// Runs programs.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "devhost/script/ast.h"

namespace devhost::script {

// A variable's place.
struct Slot {
  Variable value;
  bool assigned = false;
};

// The variables of the script's top level or of one call, and their names.
struct Scope {
  std::span<Slot> slots;
  std::span<const std::string> names;
};

// One run of a program: its script-level variables. Its functions can be called while it lives.
class Script {
 public:
  explicit Script(const Program& program);
  ~Script();
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;

  // Runs the statements with the arguments as `param` names them; missing ones are nothing. False when an error is
  // pending, with its place in CurrentTrace.
  bool Run(Variable& result, std::span<Variable> args);

  Scope Globals() { return {globals, program.globals}; }

 private:
  std::vector<Slot> globals;
  const Program& program;
  std::vector<Variable> functions;
};

}  // namespace devhost::script
