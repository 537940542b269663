// Names that mean nothing, and what may have been meant.
#include "devhost/runtime/near_names.h"
#include "devhost/script/builtins.h"
#include "devhost/script/interpreter.h"
#include "devhost/script/trace.h"

namespace devhost::script {

// The pending error arose here.
bool Interpreter::FailAt(const Expression& expression) {
  CurrentTrace().Locate(expression.at);
  return false;
}

// What has a value here, the call's own variables first.
std::vector<std::string> Interpreter::AssignedNames(bool functionsOnly) const {
  std::vector<std::string> names;
  for (const Scope& scope : {locals, globals}) {
    for (std::size_t i = 0; i < scope.slots.size(); ++i) {
      const Slot& slot = scope.slots[i];
      if (slot.assigned && (!functionsOnly || FunctionOf(slot.value))) names.push_back(scope.names[i]);
    }
  }
  return names;
}

bool Interpreter::FailUnknown(const NameExpression& name) {
  const char* reason = name.kind == Expression::Kind::Local
                           ? " has no value yet: this function assigns it, which makes it local."
                           : " is unknown: nothing has been assigned to it.";
  Raise(kErrorName, "The variable '" + name.name + "'" + reason, DidYouMean(name.name, AssignedNames(false)));
  return FailAt(name);
}

bool Interpreter::FailUnknownFunction(const NameExpression& name) {
  std::vector<std::string> names = AssignedNames(true);
  for (const std::vector<std::string>& known : {BuiltinNames(), MethodNames("")}) {
    names.insert(names.end(), known.begin(), known.end());
  }
  std::string hint = HasClass(name.name) ? "it is a class: new " + name.name + "(...)" : DidYouMean(name.name, names);
  Raise(kErrorName, "There is no function \"" + name.name + "\".", std::move(hint));
  return FailAt(name);
}

}  // namespace devhost::script
