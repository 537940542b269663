// The grammar of method signatures: "Class::Method(parameters)", or "Name(parameters)" for a plain function.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace devhost {

enum class ParameterKind {
  Number,     // "number"
  Int,        // "int"
  Boolean,    // "boolean"
  Reference,  // "refer object X"
  Value,      // "object X"
  Copy,       // "copy": an object of the same class
  Any,        // "any": a value of any kind; an extension for the host's own classes
};

struct Parameter {
  ParameterKind kind;
  std::string className;  // of the object kinds
};

struct Signature {
  std::string className;  // empty for a plain function
  std::string method;     // the class name for a constructor, "~" and the class name for a destructor, or an operator
  std::vector<Parameter> parameters;
  bool hasRest = false;  // "...": any further arguments
};

// Parses one signature; false with the fault in words when it is malformed.
bool ParseSignature(std::string_view text, Signature& signature, std::string& fault);

// The parameter as an error message shows it: "number", "POINT3".
std::string ParameterText(const Parameter& parameter);
// The whole list: "(POINT3, number, ...)".
std::string ParameterListText(const Signature& signature);

}  // namespace devhost
