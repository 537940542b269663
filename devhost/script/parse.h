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
  bool atEnd = false;  // more text could be right
};

// Fills the text of the file that a script includes; false when it cannot be read.
using FileReader = bool (*)(const std::string& path, std::string& text);

// Parses any text whatever; null with the first error filled. `name` is the script's path: messages show it, and
// includes are found relative to it.
std::unique_ptr<Program> Parse(std::string_view text, std::string name, FileReader readFile, SyntaxError& error);

// Parses what was entered at a prompt, as further statements of the program: they share its variables, may define its
// functions anew, and a bare value is a statement that shows it. False with the first error filled and the program as
// it was.
bool ParseMore(Program& program, std::string_view text, std::string name, FileReader readFile, SyntaxError& error);

}  // namespace devhost::script
