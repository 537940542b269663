// Runs programs.
#pragma once

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

// A run of a program: its script-level variables. Its functions can be called while it lives.
class Script {
 public:
  explicit Script(const Program& program);
  ~Script();
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;

  // Runs the statements that have not run, all at first, with the arguments as `param` names them; missing ones are
  // nothing. False when an error is pending, with its place in CurrentTrace.
  bool Run(Variable& result, std::span<Variable> args);

  Scope Globals() { return {globals, program.globals}; }

 private:
  void TakeUp();

  const Program& program;
  std::vector<Slot> globals;
  std::vector<Variable> functions;
  std::size_t nextStatement = 0;
};

}  // namespace devhost::script
