// What `talq --help NAME` and the prompt's `help NAME` show.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "devhost/runtime/reference.h"

namespace devhost::script {

// Looks a topic up in all documents: an entry's name ("TOpenGL::Sphere", "Print"), a method's name in any class
// ("Sphere"), a class ("TOpenGL": the calls of its methods, by group), or an error ("OGL_NO_DC"). Fills the text to
// show; false with a message in a line, which names what may have been meant, when nothing has that name.
bool FindHelp(std::span<const ReferenceDocument> documents, std::string_view topic, std::string& text,
              std::string& message);

}  // namespace devhost::script
