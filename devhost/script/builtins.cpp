#include "devhost/script/builtins.h"

#include <algorithm>
#include <string>

#include "devhost/runtime/payload.h"
#include "devhost/script/console.h"
#include "devhost/script/path.h"

namespace devhost::script {
namespace {

constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

bool Print(Variable&, std::span<Variable> args, const CallSite&) {
  std::string line;
  for (const Variable& arg : args) {
    if (&arg != args.data()) line += ' ';
    line += TextOf(arg);
  }
  line += '\n';
  script::Print(line);
  return !PendingError();
}

bool Assert(Variable&, std::span<Variable> args, const CallSite& site) {
  if (IsTrue(args[0])) return true;
  std::string text = "Assertion failed: " + std::string(site.firstArgument);
  if (args.size() > 1) text += " (" + TextOf(args[1]) + ")";
  Raise(kErrorAssertion, std::move(text));
  return false;
}

bool Fail(Variable&, std::span<Variable> args, const CallSite&) {
  Raise(kErrorFailed, TextOf(args[0]));
  return false;
}

bool RaiseCode(Variable&, std::span<Variable> args, const CallSite&) {
  const int code = static_cast<int>(args[0]);
  if (!PendingError()) Raise(code, TextOf(args[1]));
  return false;
}

bool NameOfError(Variable& result, std::span<Variable> args, const CallSite&) {
  const int code = static_cast<int>(args[0]);
  AssignText(result, ErrorName(code));
  return !PendingError();
}

bool TypeOf(Variable& result, std::span<Variable> args, const CallSite&) {
  AssignText(result, KindOf(args[0]));
  return true;
}

bool Beside(Variable& result, std::span<Variable> args, const CallSite& site) {
  if (args[0].type != TVAR_BYTES) {
    Raise(kErrorConversion, "A path is a text, not a " + KindOf(args[0]) + ".");
    return false;
  }
  AssignText(result, ResolvePath(site.file, TextIn(args[0])));
  return true;
}

constexpr Builtin kBuiltins[] = {
    {"(value, ...)", "Print", 0, kAnyNumber, Print},
    {"(condition[, message])", "Assert", 1, 2, Assert},
    {"(text)", "Fail", 1, 1, Fail},
    {"(code, text)", "Raise", 2, 2, RaiseCode},
    {"(code)", "ErrorName", 1, 1, NameOfError},
    {"(value)", "TypeOf", 1, 1, TypeOf},
    {"(path)", "Beside", 1, 1, Beside},
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

bool CallBuiltin(const Builtin& builtin, Variable& result, std::span<Variable> args, const CallSite& site) {
  if (args.size() >= builtin.fewest && args.size() <= builtin.most) return builtin.call(result, args, site);
  const std::string name(builtin.name);
  Raise(kErrorNoOverload, name + " takes other arguments.", name + " takes " + std::string(builtin.arguments));
  return false;
}

}  // namespace devhost::script
