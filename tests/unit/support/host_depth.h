// How deep calls of the host that are traced lie in each other: the outermost is the module's, the others the host's
// own.
#pragma once

inline int& HostDepth() {
  static int depth = 0;
  return depth;
}
