// Whether the program runs in Wine, whose ways differ from those of Windows in places.
#pragma once

#include <windows.h>

namespace devhost {

inline bool RunsInWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

}  // namespace devhost
