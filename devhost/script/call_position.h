// Where the call stands that the script is making.
#pragma once

#include "devhost/script/source.h"

namespace devhost::script {

// While it lives, the innermost call stands there; devhost/runtime/place.h tells others.
class CallPosition {
 public:
  explicit CallPosition(Position at);
  ~CallPosition();
  CallPosition(const CallPosition&) = delete;
  CallPosition& operator=(const CallPosition&) = delete;

 private:
  Position outer;
};

// Has the rest of the host find places by it.
void TellCallPositions();

}  // namespace devhost::script
