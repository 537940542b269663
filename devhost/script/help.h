// What `talq --help NAME` and the prompt's `help NAME` show.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "devhost/runtime/reference.h"

namespace devhost::script {

// Looks a topic up: an entry's name ("TOpenGL::Sphere"), a method's name in any class ("Sphere"), or a class
// ("TOpenGL": the calls of its methods, by group). Fills the text to show; false with a message in a line, which names
// what may have been meant, when nothing has that name.
bool FindHelp(const std::vector<ReferenceEntry>& reference, std::string_view topic, std::string& text,
              std::string& message);

}  // namespace devhost::script
