#include <windows.h>

#include "devhost/runtime/wide_text.h"

namespace devhost {

std::wstring WideText(std::string_view utf8) {
  std::wstring wide(utf8.size(), L'\0');  // never longer
  const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(),
                                         static_cast<int>(wide.size()));
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

std::string Utf8Text(std::wstring_view wide) {
  std::string utf8(wide.size() * 3, '\0');  // never longer
  const int length = WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(),
                                         static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(length));
  return utf8;
}

}  // namespace devhost
