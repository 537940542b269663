#include "devhost/script/builtins.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace devhost::script {
namespace {

constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

bool Print(Variable&, std::span<Variable> args, std::string_view) {
  std::string line;
  for (const Variable& arg : args) {
    if (&arg != args.data()) line += ' ';
    line += TextOf(arg);
  }
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stdout);
  return PendingError() == nullptr;
}

bool Assert(Variable&, std::span<Variable> args, std::string_view source) {
  if (IsTrue(args[0])) return true;
  std::string text = "Assertion failed: " + std::string(source);
  if (args.size() > 1) text += " (" + TextOf(args[1]) + ")";
  Raise(kErrorAssertion, std::move(text));
  return false;
}

bool Fail(Variable&, std::span<Variable> args, std::string_view) {
  Raise(kErrorFailed, TextOf(args[0]));
  return false;
}

bool RaiseCode(Variable&, std::span<Variable> args, std::string_view) {
  const int code = static_cast<int>(args[0]);
  if (PendingError() == nullptr) Raise(code, TextOf(args[1]));
  return false;
}

bool NameOfError(Variable& result, std::span<Variable> args, std::string_view) {
  const int code = static_cast<int>(args[0]);
  AssignText(result, ErrorName(code));
  return PendingError() == nullptr;
}

bool TypeOf(Variable& result, std::span<Variable> args, std::string_view) {
  AssignText(result, KindOf(args[0]));
  return true;
}

constexpr Builtin kBuiltins[] = {
    {"(value, ...)", "Print", 0, kAnyNumber, Print},
    {"(condition[, message])", "Assert", 1, 2, Assert},
    {"(text)", "Fail", 1, 1, Fail},
    {"(code, text)", "Raise", 2, 2, RaiseCode},
    {"(code)", "ErrorName", 1, 1, NameOfError},
    {"(value)", "TypeOf", 1, 1, TypeOf},
};

}  // namespace

std::vector<std::string> BuiltinNames() {
  std::vector<std::string> names;
  for (const Builtin& builtin : kBuiltins) names.emplace_back(builtin.name);
  return names;
}

const Builtin* FindBuiltin(std::string_view name) {
  const auto found = std::find_if(std::begin(kBuiltins), std::end(kBuiltins),
                                  [name](const Builtin& builtin) { return builtin.name == name; });
  return found != std::end(kBuiltins) ? found : nullptr;
}

bool CallBuiltin(const Builtin& builtin, Variable& result, std::span<Variable> args, std::string_view source) {
  if (args.size() >= builtin.fewest && args.size() <= builtin.most) return builtin.call(result, args, source);
  const std::string name(builtin.name);
  Raise(kErrorNoOverload, name + " takes other arguments.", name + " takes " + std::string(builtin.arguments));
  return false;
}

}  // namespace devhost::script
