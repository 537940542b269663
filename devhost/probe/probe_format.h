// What a pixel format and a context on it are on this machine. Windows only.
#pragma once

#include <windows.h>

#include <string>

namespace devhost {

// Sets the format that the system chooses for the descriptor on the device and makes a context on it current, as a
// module does; tells in indented lines what format that is, and the OpenGL behind it. No context is current afterwards.
std::string TryFormat(HDC device, const PIXELFORMATDESCRIPTOR& asked);

}  // namespace devhost
