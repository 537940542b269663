// Where the running script is.
#pragma once

#include <string>

namespace devhost {

// A line of a script, as messages show it.
struct Place {
  std::string file;
  int line = 0;  // from 1; 0 outside of a script's calls, as where its objects go

  // "scene.talq:12", or "outside of calls".
  std::string Text() const;
  bool operator==(const Place&) const = default;
};

// Where the call of a method or function stands that the script is making.
Place CurrentPlace();

// Who runs scripts gives the function that finds it.
void FindPlacesBy(Place (*finder)());

}  // namespace devhost
