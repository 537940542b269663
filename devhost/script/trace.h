// Where the pending error arose, gathered while the interpreter unwinds.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "devhost/script/source.h"

namespace devhost::script {

class ErrorTrace {
 public:
  // The place of the error. Only the first one counts until Clear: those who unwind from it pass by again.
  void Locate(Position at);
  // Whether a place is known.
  bool IsLocated() const { return located; }
  // The error is leaving a function that was called from here.
  void LeaveCall(std::string_view function, Position at);
  // Forgets the place and the calls.
  void Clear();

  // The pending error as a script's author reads it: place, code, name and text, source line, hint, callers.
  std::string Report() const;

 private:
  struct Call {
    std::string function;
    Location from;
  };
  bool located = false;
  Location place;
  std::vector<Call> calls;  // the innermost first, at most kMaxCalls
  int callCount = 0;
};

// The one of the running script.
ErrorTrace& CurrentTrace();

}  // namespace devhost::script
