// Runs programs.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "devhost/script/ast.h"

namespace devhost::script {

// A variable's place.
struct Slot {
  Variable value;
  bool assigned = false;
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

  std::vector<Slot> globals;

 private:
  const Program& program;
  std::vector<Variable> functions;
};

}  // namespace devhost::script
