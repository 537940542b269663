// Random arguments: mostly such as a method's signature asks for, often odd in themselves, sometimes of another kind.
#pragma once

#include <string_view>
#include <vector>

#include "devhost/runtime/signature.h"
#include "fuzz/world.h"

class Arguments {
 public:
  Arguments(Random& random, World& world) : random(random), world(world) {}

  // Arguments for one call, in number as the signature has it.
  std::vector<Variable> For(const devhost::Signature& signature);

 private:
  Variable Of(const devhost::Parameter& parameter);
  Variable AnyNumber();
  Variable AnyInteger();
  Variable AnyValue();
  Variable Reference();
  Variable Object(std::string_view className);
  // A Vector in the shape that the letter names (see arguments.cpp).
  Variable Shaped(char shape);
  Variable Triples(int triples);
  Variable Row();
  template <class Make>
  Variable VectorOf(int size, Make make);

  Random& random;
  World& world;
  // Points, lists or control values in this call's Vectors, so that they often fit together.
  int count = 0;
  std::string_view shapes;
  std::size_t vectors = 0;
  // What references refer to, as long as the call lasts.
  Variable referred;
  // Whether the method's integers count its own vertices.
  bool countsVertices = false;
};
