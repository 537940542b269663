// Any text as a script, and as what is entered at a prompt: it parses, or is refused with a message. Includes find no
// file.
#include <cstdint>
#include <cstdlib>

#include "devhost/script/parse.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace devhost::script;
  const auto noFile = [](const std::string&, std::string&) { return false; };
  SyntaxError error;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (!Parse(text, "script.talq", noFile, error) && error.message.empty()) std::abort();
  // What a prompt refuses leaves its program as it was.
  Program program;
  if (!ParseMore(program, text, "prompt", noFile, error) && (error.message.empty() || !program.statements.empty() ||
                                                             !program.functions.empty() || !program.globals.empty())) {
    std::abort();
  }
  return 0;
}
