// When the frames of an animation are due.
#pragma once

#include <algorithm>

namespace devhost {

class FrameClock {
 public:
  // Counts the next frame and gives the time at which it is due, in the seconds of `now`: evenly spaced, or now when
  // there is no frame before or it was due more than a frame ago.
  double NextFrame(double now, double framesPerSecond) {
    due = std::max(due + 1 / framesPerSecond, now);
    return due;
  }

 private:
  double due = 0;
};

}  // namespace devhost
