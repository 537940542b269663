#include "devhost/script/depth.h"

#include "devhost/runtime/runtime.h"
#include "devhost/script/builtins.h"

namespace devhost::script {

bool Depth::Report() {
  Raise(kErrorTooDeep, "The calls are nested too deeply; does a function call itself without an end?");
  return true;
}

}  // namespace devhost::script
