#include "devhost/runtime/classes.h"

#include <algorithm>

#include "devhost/runtime/near_names.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/reference.h"
#include "devhost/runtime/runtime.h"

namespace devhost {
namespace {

using ClassMap = std::map<std::string, Class, std::less<>>;

ClassMap& Classes() {
  static auto& classes = *new ClassMap;
  return classes;
}

void IndexMethods(Class& type) {
  type.overloads.clear();
  for (std::size_t i = 0; i < type.methods.size(); ++i) {
    type.overloads[type.methods[i].signature.method].push_back(i);
  }
}

void AddMethod(Method method) {
  Class& type = Classes()[method.signature.className];
  type.name = method.signature.className;
  type.overloads[method.signature.method].push_back(type.methods.size());
  type.methods.push_back(std::move(method));
}

bool Accepts(const Parameter& parameter, const Variable& argument, const Class& type) {
  switch (parameter.kind) {
    case ParameterKind::Number:
    case ParameterKind::Int:
    case ParameterKind::Boolean:
      return IsNumeric(argument);
    case ParameterKind::Reference:
    case ParameterKind::Value: {
      const Class* argumentClass = ClassOf(argument);
      return argumentClass && argumentClass->name == parameter.className;
    }
    case ParameterKind::Copy:
      return ClassOf(argument) == &type;
    case ParameterKind::Any:
      break;
  }
  return true;
}

bool Fits(const Method& method, const Class& type, VarRegister* args, std::size_t count) {
  const std::vector<Parameter>& parameters = method.signature.parameters;
  if (method.signature.hasRest ? count < parameters.size() : count != parameters.size()) return false;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (!Accepts(parameters[i], args[i].GetVar(), type)) return false;
  }
  return true;
}

std::string QualifiedName(const Class& type, std::string_view method) {
  return type.name.empty() ? std::string(method) : type.name + "::" + std::string(method);
}

void RaiseUnknown(const Class& type, std::string_view name) {
  if (name == type.name) {
    Raise(kErrorName, "The class " + type.name + " cannot be constructed.");
  } else {
    Raise(kErrorName, "There is no method \"" + std::string(name) + "\" in class " + type.name + ".",
          DidYouMean(name, MethodNames(type.name), type.name + "::"));
  }
}

void RaiseNoFit(const Class& type, std::string_view name, VarRegister* args, std::size_t count) {
  std::string given;
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) given += ", ";
    given += KindOf(args[i].GetVar());
  }
  Raise(kErrorNoOverload, QualifiedName(type, name) + " does not take (" + given + ").", FormsOf(type, name));
}

}  // namespace

const Class* FindClass(std::string_view name) {
  const auto found = Classes().find(name);
  return found == Classes().end() ? nullptr : &found->second;
}

const Class* ClassOf(const Variable& value) {
  if (const ObjectPayload* object = ObjectOf(value)) return object->type;
  if (value.type == TVAR_BYTES) return FindClass("String");
  if (value.type == TVAR_ARRAY) return FindClass("Vector");
  return nullptr;
}

bool HasMethod(const Class& type, std::string_view name) { return type.overloads.find(name) != type.overloads.end(); }

bool HasPlainMethod(const Class& type, std::string_view name) {
  const auto found = type.overloads.find(name);
  if (found == type.overloads.end()) return false;
  return std::any_of(found->second.begin(), found->second.end(),
                     [&type](std::size_t index) { return type.methods[index].signature.parameters.empty(); });
}

std::string FormsOf(const Class& type, std::string_view name) {
  std::string forms;
  for (const std::size_t index : type.overloads.find(name)->second) {
    const Method& method = type.methods[index];
    const std::string_view arguments = ArgumentsInReference(method.text);
    forms += forms.empty() ? " takes " : " or ";
    forms += arguments.empty() ? ParameterListText(method.signature) : std::string(arguments);
  }
  return QualifiedName(type, name) + forms;
}

const Method* ResolveMethod(const Class& type, std::string_view name, VarRegister* args, int count) {
  const auto overloads = type.overloads.find(name);
  if (overloads == type.overloads.end()) {
    RaiseUnknown(type, name);
    return nullptr;
  }
  const auto argumentCount = static_cast<std::size_t>(count);
  for (const std::size_t index : overloads->second) {
    if (Fits(type.methods[index], type, args, argumentCount)) return &type.methods[index];
  }
  RaiseNoFit(type, name, args, argumentCount);
  return nullptr;
}

const Method* DestructorOf(const Class& type) {
  const auto found = type.overloads.find("~" + type.name);
  return found == type.overloads.end() ? nullptr : &type.methods[found->second.front()];
}

bool RegisterMethods(const MethodEntry* table) {
  std::vector<Method> methods;
  for (const MethodEntry* row = table; row && row->signature; ++row) {
    Method method{row->signature, {}, row->handler, table};
    std::string fault;
    if (!ParseSignature(method.text, method.signature, fault) || !row->handler) {
      if (fault.empty()) fault = "its handler is missing";
      Raise(kErrorSyntax, "The method table's row \"" + method.text + "\" is malformed: " + fault + ".");
      return false;
    }
    methods.push_back(std::move(method));
  }
  for (Method& method : methods) AddMethod(std::move(method));
  return true;
}

void UnregisterMethods(const MethodEntry* table) {
  for (auto it = Classes().begin(); it != Classes().end();) {
    Class& type = it->second;
    std::erase_if(type.methods, [table](const Method& method) { return method.table == table; });
    IndexMethods(type);
    it = type.methods.empty() ? Classes().erase(it) : std::next(it);
  }
}

bool HasClass(std::string_view className) { return !className.empty() && FindClass(className); }

bool HasFunction(std::string_view name) {
  const Class* functions = FindClass("");
  return functions && HasMethod(*functions, name);
}

std::vector<std::string> SignaturesOf(std::string_view className, std::string_view method) {
  std::vector<std::string> signatures;
  if (const Class* type = FindClass(className)) {
    for (const Method& row : type->methods) {
      if (method.empty() || row.signature.method == method) signatures.push_back(row.text);
    }
  }
  return signatures;
}

std::vector<std::string> ClassNames() {
  std::vector<std::string> names;
  for (const auto& [name, type] : Classes()) {
    if (!name.empty()) names.push_back(name);
  }
  return names;
}

std::vector<std::string> MethodNames(std::string_view className) {
  std::vector<std::string> names;
  if (const Class* type = FindClass(className)) {
    for (const auto& [name, rows] : type->overloads) names.push_back(name);
  }
  return names;
}

}  // namespace devhost
