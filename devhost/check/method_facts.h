// What the reference says of methods that a check has to know.
#pragma once

#include <string>
#include <string_view>

#include "devhost/runtime/reference.h"

namespace devhost::check {

// What a method does nothing without.
enum class Need { Nothing, OpenRenderer, OpenAndBoundRenderer };

struct MethodFacts {
  std::string name;    // "TOpenGL::Sphere"
  std::string method;  // "Sphere"
  bool isInReference = false;
  Need need = Need::Nothing;
  bool draws = false;  // it is there to draw
  std::string sentBy;  // the method that a setting waits for: "SetLightPosition"; "" when it takes effect at once
};

// By the sentences "... nothing unless the renderer is open and bound", "... while the renderer is closed" and "takes
// effect at the next `Method`". Null: not in the reference.
MethodFacts FactsOf(std::string_view className, std::string_view method, const ReferenceEntry* entry);

}  // namespace devhost::check
