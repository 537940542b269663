// What a check has found.
#pragma once

#include <string>
#include <vector>

#include "devhost/runtime/place.h"

namespace devhost::check {

// The reference has a table of them, by the names that NameOf gives.
enum class Kind {
  GlError,
  NotOpen,
  NotBound,
  OtherRenderer,
  NothingDrawn,
  EmptyViewport,
  NoView,
  Projection,
  NoInverse,
  NoNormal,
  MaterialUnlit,
  ColorRange,
  NotSent,
  LeftOpen,
  OneColor,
  RowLength,
};

// "NOT_OPEN"
const char* NameOf(Kind kind);

// A method that a line of the script called.
struct Where {
  Place place;
  std::string method;  // "TOpenGL::Sphere"
};

class Findings {
 public:
  // Findings of one kind in one line are one, with a count; the first one's text stays.
  void Add(Kind kind, const Where& where, const std::string& text);

  // "scene.talq:12: TOpenGL::Sphere: text [NOT_OPEN] (3 times)" for each, in the order in which they came, with the
  // reference's hint below; then a line that counts them by kind. "" when nothing was found.
  std::string Report() const;

 private:
  struct Finding {
    Kind kind;
    Where where;
    std::string text;
    int count = 1;
  };
  std::vector<Finding> findings;
};

}  // namespace devhost::check
