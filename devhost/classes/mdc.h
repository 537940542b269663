// MDC's native object, for the rows of its class. Windows only.
#pragma once

#include <memory>

#include "devhost/classes/tables.h"
#include "devhost/data/memory_frame.h"
#include "devhost/window/window.h"

namespace devhost {

// A device context on a memory bitmap or on a window: one of the two is there, also when it is closed.
class Device : public TalqAss {
 public:
  std::unique_ptr<MemoryFrame> bitmap;
  std::unique_ptr<Window> window;
};

// The device of a handler's call; null with an error raised when the script object has none.
inline Device* DeviceOf(VarRegister* args, int argc) { return NativeSelf<Device>(args, argc, "MDC"); }

}  // namespace devhost
