#include "devhost/runtime/signature.h"

#include <algorithm>
#include <array>

#include "devhost/runtime/text.h"

namespace devhost {
namespace {

constexpr std::string_view kReferencePrefix = "refer object ";
constexpr std::string_view kValuePrefix = "object ";

constexpr std::array<std::string_view, 17> kOperators = {
    "+", "-", "*", "/", "%", "|", "&", "^", "+=", "-=", "*=", "/=", "%=", "|=", "&=", "^=", "=="};

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool IsLetterOrDigit(char c) { return IsLetter(c) || (c >= '0' && c <= '9'); }

bool IsIdentifier(std::string_view text) {
  return !text.empty() && IsLetter(text.front()) && std::all_of(text.begin(), text.end(), IsLetterOrDigit);
}

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

bool ParseObject(std::string_view text, std::string_view prefix, ParameterKind kind, Parameter& parameter) {
  if (!text.starts_with(prefix)) return false;
  const std::string_view className = text.substr(prefix.size());
  if (!IsIdentifier(className)) return false;
  parameter = {kind, std::string(className)};
  return true;
}

bool ParseParameter(std::string_view text, Parameter& parameter) {
  if (text == "number") {
    parameter = {ParameterKind::Number, {}};
  } else if (text == "int") {
    parameter = {ParameterKind::Int, {}};
  } else if (text == "boolean") {
    parameter = {ParameterKind::Boolean, {}};
  } else if (text == "copy") {
    parameter = {ParameterKind::Copy, {}};
  } else if (text == "any") {
    parameter = {ParameterKind::Any, {}};
  } else {
    return ParseObject(text, kReferencePrefix, ParameterKind::Reference, parameter) ||
           ParseObject(text, kValuePrefix, ParameterKind::Value, parameter);
  }
  return true;
}

bool ParseName(std::string_view name, Signature& signature, std::string& fault) {
  const std::size_t colons = name.find("::");
  if (colons == std::string_view::npos) {
    signature.method = name;
    if (!IsIdentifier(name)) fault = Quoted(name) + " is not a function name";
    return fault.empty();
  }
  const std::string_view className = name.substr(0, colons);
  const std::string_view method = name.substr(colons + 2);
  signature.className = className;
  signature.method = method;
  if (!IsIdentifier(className)) {
    fault = Quoted(className) + " is not a class name";
  } else if (method.starts_with('~') ? method.substr(1) != className
                                     : !IsIdentifier(method) && std::find(kOperators.begin(), kOperators.end(),
                                                                          method) == kOperators.end()) {
    fault = Quoted(method) + " is not a method name";
  }
  return fault.empty();
}

bool ParseParameters(std::string_view list, Signature& signature, std::string& fault) {
  if (list == "void") return true;
  for (bool more = true; more;) {
    const std::size_t comma = list.find(',');
    more = comma != std::string_view::npos;
    const std::string_view item = Trimmed(list.substr(0, comma));
    if (more) list.remove_prefix(comma + 1);
    if (item == "...") {
      signature.hasRest = true;
      if (more) fault = "\"...\" is not the last parameter";
      return fault.empty();
    }
    Parameter parameter;
    if (!ParseParameter(item, parameter)) {
      fault = Quoted(item) + " is not a parameter";
      return false;
    }
    signature.parameters.push_back(std::move(parameter));
  }
  return true;
}

// What holds for a whole row: "copy" stands alone in a constructor, and a destructor takes nothing.
bool CheckRow(const Signature& signature, std::string& fault) {
  const bool copies = std::any_of(signature.parameters.begin(), signature.parameters.end(),
                                  [](const Parameter& p) { return p.kind == ParameterKind::Copy; });
  const bool isConstructor = !signature.className.empty() && signature.method == signature.className;
  if (copies && (!isConstructor || signature.parameters.size() != 1 || signature.hasRest)) {
    fault = "\"copy\" is the only parameter of a constructor";
  } else if (signature.method.starts_with('~') && (!signature.parameters.empty() || signature.hasRest)) {
    fault = "a destructor takes no parameters";
  }
  return fault.empty();
}

}  // namespace

bool ParseSignature(std::string_view text, Signature& signature, std::string& fault) {
  signature = {};
  fault.clear();
  const std::size_t open = text.find('(');
  if (open == std::string_view::npos || !text.ends_with(')')) {
    fault = "a parameter list in brackets is missing";
    return false;
  }
  const std::string_view list = text.substr(open + 1, text.size() - open - 2);
  return ParseName(text.substr(0, open), signature, fault) && ParseParameters(list, signature, fault) &&
         CheckRow(signature, fault);
}

std::string ParameterText(const Parameter& parameter) {
  switch (parameter.kind) {
    case ParameterKind::Number:
      return "number";
    case ParameterKind::Int:
      return "int";
    case ParameterKind::Boolean:
      return "boolean";
    case ParameterKind::Copy:
      return "copy";
    case ParameterKind::Any:
      return "any";
    case ParameterKind::Reference:
    case ParameterKind::Value:
      break;
  }
  return parameter.className;
}

std::string ParameterListText(const Signature& signature) {
  std::string text = "(";
  for (const Parameter& parameter : signature.parameters) {
    if (text.size() > 1) text += ", ";
    text += ParameterText(parameter);
  }
  if (signature.hasRest) text += text.size() > 1 ? ", ..." : "...";
  return text + ")";
}

}  // namespace devhost
