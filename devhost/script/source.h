// A script's text and places in it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace devhost::script {

// A file, or what stands for one.
struct Source {
  std::string name;  // the file's path as messages show it
  std::string text;
};

// A place in a source, as a byte offset; lines and columns are counted only when a message needs them.
struct Position {
  const Source* source = nullptr;
  std::size_t offset = 0;
};

// A place as messages show it; it outlives the source.
struct Location {
  std::string file;
  int line = 1;
  int column = 1;       // in characters of UTF-8, from 1
  std::string excerpt;  // the line's text, cut around the place when it is long; control characters are blanks
  int caret = 0;        // characters of the excerpt before the place
};

// The place's line, from 1.
int LineOf(Position at);

// Counts the lines up to the place.
Location Locate(Position at);

// "file:line:column: message", the excerpt and a caret under the place, each line ending with "\n".
std::string Describe(const Location& at, std::string_view message);

}  // namespace devhost::script
