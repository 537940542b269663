#include "devhost/runtime/help_command.h"

#include <cstdlib>

namespace devhost {

std::string WithHelpCommand(std::string_view text) {
  constexpr std::string_view kCommand = "talq --help";
  const char* entered = std::getenv("TALQ_HELP");
  const std::string_view replacement = entered ? std::string_view(entered) : kCommand;
  std::string result(text);
  for (std::size_t at = result.find(kCommand); at != result.npos; at = result.find(kCommand, at + replacement.size())) {
    result.replace(at, kCommand.size(), replacement);
  }
  return result;
}

}  // namespace devhost
