// A bound on how deeply evaluation nests, over all calls in progress, so that no script overruns the stack.
#pragma once

namespace devhost::script {

// One level while it lives.
class Depth {
 public:
  Depth() { ++level; }
  ~Depth() { --level; }
  Depth(const Depth&) = delete;
  Depth& operator=(const Depth&) = delete;

  // Whether the limit is passed; then the error is raised.
  bool IsExceeded() const { return level > kLimit && Report(); }

 private:
  static bool Report();

  // A level takes at most half a kilobyte of stack, of which talq.exe reserves eight megabytes.
  static constexpr int kLimit = 2000;
  static inline int level = 0;
};

}  // namespace devhost::script
