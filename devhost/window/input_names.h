// The names by which scripts ask for keys and buttons of the mouse.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "devhost/window/input.h"

namespace devhost {

// The number of the key, which is that of Windows ("virtual key"); nothing, with an error raised, for another name.
std::optional<std::size_t> KeyNamed(std::string_view name);
// "left", "middle" or "right"; likewise.
std::optional<MouseButton> ButtonNamed(std::string_view name);

}  // namespace devhost
