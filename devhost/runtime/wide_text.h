// Texts on their way to and from the functions of Windows that take UTF-16. Everywhere else, and on other systems, a
// text is bytes of UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace devhost {

// What is not UTF-8, or not UTF-16, becomes U+FFFD: unpaired surrogates, sequences that are cut off or longer than
// needed, stray bytes. A file whose name holds such a thing is not found, and one is written under
// the name with U+FFFD.
std::wstring WideText(std::string_view utf8);
std::string Utf8Text(std::wstring_view wide);

}  // namespace devhost
