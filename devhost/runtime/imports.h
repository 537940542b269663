// What a loaded library or program imports, on Windows.
#pragma once

#include <string>
#include <vector>

struct HINSTANCE__;

namespace devhost {

struct Import {
  const char* library;
  std::string function;  // one that is asked for by number has no name: "number 12"
  void** address;        // where the importer finds the function
};

std::vector<Import> ImportsOf(HINSTANCE__* module);

// Has the importer call another function in this one's place.
void Redirect(const Import& import, void* function);

}  // namespace devhost
