// Texts.
#include <algorithm>
#include <cstdio>

#include "devhost/classes/tables.h"

namespace devhost {
namespace {

std::string_view Text(VarRegister& argument) { return TextIn(argument.GetVar()); }

void LengthOfText(VarRegister& result, VarRegister* args, int, Processor*) {
  result = static_cast<int>(Text(args[0]).size());
}

void LengthOfVector(VarRegister& result, VarRegister* args, int, Processor*) { result = args[0].GetVar().GetDim(); }

// What lies of the asked range inside the text.
void Substring(VarRegister& result, VarRegister* args, int, Processor*) {
  const std::string_view text = Text(args[0]);
  const auto size = static_cast<long long>(text.size());
  const long long begin = std::clamp<long long>(static_cast<int>(args[1]), 0, size);
  const long long count = std::clamp<long long>(static_cast<int>(args[2]), 0, size - begin);
  AssignText(result, text.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(count)));
}

// Where the second text first lies in the first one; -1: nowhere.
void Find(VarRegister& result, VarRegister* args, int, Processor*) {
  const std::size_t found = Text(args[0]).find(Text(args[1]));
  result = found == std::string_view::npos ? -1 : static_cast<int>(found);
}

void Split(VarRegister& result, VarRegister* args, int, Processor*) {
  std::string_view text = Text(args[0]);
  const std::string_view separator = Text(args[1]);
  if (separator.empty()) {
    Raise(kErrorConversion, "The separator of Split must not be empty.");
    return;
  }
  Variable& parts = result;
  parts.Init(TVAR_ARRAY, 0);
  for (bool more = true; more;) {
    const std::size_t end = text.find(separator);
    AssignText(ArrayOf(parts)->elements.emplace_back(), text.substr(0, end));
    more = end != std::string_view::npos;
    if (more) text.remove_prefix(end + separator.size());
  }
}

void ToText(VarRegister& result, VarRegister* args, int, Processor*) { AssignText(result, TextOf(args[0].GetVar())); }

// With a fixed number of digits after the point.
void ToTextWithDigits(VarRegister& result, VarRegister* args, int, Processor*) {
  char text[400];  // the largest number has 309 digits before the point
  const int digits = std::clamp(static_cast<int>(args[1]), 0, 60);
  std::snprintf(text, sizeof text, "%.*f", digits, Number(args[0]));
  AssignText(result, text);
}

}  // namespace

const MethodEntry kTextFunctions[] = {
    {LengthOfText, "Length(refer object String)"},
    {LengthOfVector, "Length(refer object Vector)"},
    {Substring, "Substring(refer object String, int, int)"},
    {Find, "Find(refer object String, refer object String)"},
    {Split, "Split(refer object String, refer object String)"},
    {ToText, "Text(any)"},
    {ToTextWithDigits, "Text(number, int)"},
    {nullptr, nullptr},
};

}  // namespace devhost
