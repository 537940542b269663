// Whole files. Paths are UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace devhost {

// Each returns false with kErrorFile raised, the file named, when it fails.
bool ReadFile(const std::string& path, std::string& content);
// The file's folder is made if it is missing. What was in the file stays when writing fails.
bool WriteFile(const std::string& path, std::string_view content);

}  // namespace devhost
