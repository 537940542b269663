// Which names can follow what is entered at the prompt.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "devhost/script/script.h"

namespace devhost::script {

// What to put behind the text: the rest of the one name that goes on with it, or as much as all those names share. When
// they share no more, `choices` are the names. A blank where no name has begun.
struct Completion {
  std::string added;
  std::vector<std::string> choices;
};

// Completes the name at the end of a line: methods behind "->" and "." (those of the variable's object, else all),
// classes behind "new", elsewhere keywords, functions and variables.
Completion Complete(std::string_view line, const Scope& variables);

}  // namespace devhost::script
