// How the user asks for help: ./run starts the program by another command than Windows does.
#pragma once

#include <string>
#include <string_view>

namespace devhost {

// The text with each "talq --help" as the user has to enter it, which the environment variable TALQ_HELP says where it
// is set.
std::string WithHelpCommand(std::string_view text);

}  // namespace devhost
