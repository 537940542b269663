// Lines that a user enters.
#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>

#include "devhost/script/completion.h"

namespace devhost::script {

// What the Tab key completes the line up to there with.
using Completer = std::function<Completion(std::string_view line)>;

enum class LineInput {
  Entered,
  Dropped,  // by Ctrl+C, in a console
  Ended,    // the input has, or Ctrl+Z ends it
};

// Shows the prompt and reads a line, without its end, from a console, a file or a pipe. A console's own editing serves;
// Tab completes there.
LineInput ReadLine(std::FILE* input, const std::string& prompt, const Completer& complete, std::string& line);

}  // namespace devhost::script
