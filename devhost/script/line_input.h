// Lines that a user enters.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "devhost/script/completion.h"

namespace devhost::script {

class Completer {
 public:
  virtual ~Completer() = default;
  // What the Tab key completes the line up to there with.
  virtual Completion CompletionOf(std::string_view line) = 0;
};

enum class LineInput {
  Entered,
  Dropped,  // by Ctrl+C, in a console
  Ended,    // the input has, or Ctrl+Z ends it
};

// Shows the prompt and reads a line, without its end, from a console, a file or a pipe. A console's own editing serves;
// Tab completes there.
LineInput ReadLine(std::FILE* input, const std::string& prompt, Completer& completer, std::string& line);

}  // namespace devhost::script
