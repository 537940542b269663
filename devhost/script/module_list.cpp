#include "devhost/script/module_list.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "devhost/runtime/text.h"
#include "devhost/script/builtins.h"
#include "devhost/script/token.h"

namespace devhost::script {
namespace {

// The class of a signature; "" for a plain function.
std::string_view ClassOf(std::string_view signature) {
  const std::size_t colons = signature.find("::");
  return signature.substr(0, colons == signature.npos ? 0 : colons);
}

}  // namespace

std::string DescribeModule(const Module& module) {
  std::vector<std::string_view> classes;
  for (const MethodEntry* row = module.methods; row->signature; ++row) {
    const std::string_view name = ClassOf(row->signature);
    if (std::find(classes.begin(), classes.end(), name) == classes.end()) classes.push_back(name);
  }

  std::string text = module.version + "\n";
  for (const std::string_view name : classes) {
    text.append("\n").append(name.empty() ? "functions" : name).append("\n");
    for (const MethodEntry* row = module.methods; row->signature; ++row) {
      if (ClassOf(row->signature) == name) text.append("  ").append(row->signature).append("\n");
    }
  }
  text += "\nerrors\n";
  for (const ErrorEntry* row = module.errors; row->message; ++row) {
    text += "  " + Decimal(module.errorBase + row->code) + " " + row->name + ": " + row->message + "\n";
  }
  return text;
}

std::string DescribeHost() {
  std::string text = "The development host\n";
  for (const std::string& name : ClassNames()) {
    text += "\n" + name + "\n";
    for (const std::string& signature : SignaturesOf(name)) text += "  " + signature + "\n";
  }
  text += "\nfunctions\n";
  for (const std::string& name : BuiltinNames())
    text.append("  ").append(name).append(FindBuiltin(name)->arguments) += "\n";
  for (const std::string& signature : SignaturesOf("")) text += "  " + signature + "\n";
  text += "\nkeywords\n";
  for (const std::string& word : Keywords()) text += "  " + word + "\n";
  return text;
}

}  // namespace devhost::script
