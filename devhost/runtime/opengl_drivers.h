// Bitmaps and windows together, under Wine.
#pragma once

struct HINSTANCE__;

namespace devhost {

// Has a module's OpenGL contexts of bitmaps and of windows become current one after the other without mixing them up.
// Changes nothing on Windows itself.
void KeepOpenGlDriversApart(HINSTANCE__* module);

}  // namespace devhost
