// The functions of the language itself: Print, Assert, Fail, Raise, ErrorName, TypeOf, Beside.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "devhost/runtime/runtime.h"

namespace devhost::script {

// What the script says where it calls.
struct CallSite {
  std::string_view firstArgument;  // as it is written
  std::string_view file;           // the script's path
};

struct Builtin {
  std::string_view arguments;  // for messages: "(condition, message)"
  std::string_view name;
  std::size_t fewest;  // arguments
  std::size_t most;
  // False with an error raised.
  bool (*call)(Variable& result, std::span<Variable> args, const CallSite& site);
};

std::vector<std::string> BuiltinNames();
// Null for a name that is none of them.
const Builtin* FindBuiltin(std::string_view name);

// Checks the number of the arguments, then calls.
bool CallBuiltin(const Builtin& builtin, Variable& result, std::span<Variable> args, const CallSite& site);

}  // namespace devhost::script
