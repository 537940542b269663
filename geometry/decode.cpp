#include "geometry/decode.h"

#include <new>

namespace {

// The names of an object's three components.
struct MemberNames {
  char first[6];
  char second[6];
  char third[6];
};

void ReadFlat(Variable& vector, Triples& triples) {
  float* to = triples.Values();
  const int numbers = 3 * triples.Count();
  for (int i = 0; i < numbers; ++i) to[i] = vector[i];
}

void ReadPacked(Variable& vector, Triples& triples) {
  float* to = triples.Values();
  for (int i = 0; i < triples.Count(); ++i, to += 3) {
    const unsigned long value = vector[i];
    to[0] = static_cast<float>(value & 0xFF) / 255.0F;
    to[1] = static_cast<float>((value >> 8) & 0xFF) / 255.0F;
    to[2] = static_cast<float>((value >> 16) & 0xFF) / 255.0F;
  }
}

void ReadRows(Variable& vector, Triples& triples, MemberNames names) {
  const unsigned short first = Token::GetNameID(names.first);
  const unsigned short second = Token::GetNameID(names.second);
  const unsigned short third = Token::GetNameID(names.third);
  float* to = triples.Values();
  for (int i = 0; i < triples.Count(); ++i, to += 3) {
    Variable& row = vector[i];
    if (row.GetType() == TVAR_ARRAY) {
      to[0] = row[0];
      to[1] = row[1];
      to[2] = row[2];
    } else {
      to[0] = row(first);
      to[1] = row(second);
      to[2] = row(third);
    }
  }
}

}  // namespace

Triples::Triples(int count) : count(count) {
  if (count >= 0) values.reset(new (std::nothrow) float[3 * static_cast<std::size_t>(count) + 1]);
}

Triples DecodePoints(Variable& vector) {
  const int dimension = vector.GetDim();
  const bool flat = vector[0].IsNumber() != 0;
  Triples triples(flat ? dimension / 3 : dimension);
  if (!triples) return triples;
  if (flat) {
    ReadFlat(vector, triples);
  } else {
    ReadRows(vector, triples, {"x", "y", "z"});
  }
  return triples;
}

Triples DecodeColors(Variable& vector, int expectedCount) {
  const int dimension = vector.GetDim();
  const bool numbers = vector[0].IsNumber() != 0;
  const bool packed = numbers && dimension == expectedCount;
  const bool flat = numbers && !packed;
  Triples triples(flat ? dimension / 3 : dimension);
  if (!triples) return triples;
  if (packed) {
    ReadPacked(vector, triples);
  } else if (flat) {
    ReadFlat(vector, triples);
  } else {
    ReadRows(vector, triples, {"Red", "Green", "Blue"});
  }
  return triples;
}
