// From a script's text to a program.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "devhost/script/ast.h"

namespace devhost::script {

// Why a text is no program.
struct SyntaxError {
  Location at;
  std::string message;
};

// Fills the text of the file that a script includes; false when it cannot be read.
using FileReader = bool (*)(const std::string& path, std::string& text);

// Parses any text whatever; null with the first error filled. `name` is the script's path: messages show it, and
// includes are found relative to it.
std::unique_ptr<Program> Parse(std::string_view text, std::string name, FileReader readFile, SyntaxError& error);

}  // namespace devhost::script
