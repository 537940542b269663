#include "geometry/decode.h"

#include <algorithm>
#include <new>

#include "binding/host_text.h"
#include "binding/native.h"

namespace {

// The names of an object's three components.
struct MemberNames {
  const char* first;
  const char* second;
  const char* third;
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
  const unsigned short first = Token::GetNameID(HostText(names.first));
  const unsigned short second = Token::GetNameID(HostText(names.second));
  const unsigned short third = Token::GetNameID(HostText(names.third));
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

// The points of an element of a Vector, which may be a reference to the Vector that is meant.
Triples DecodeElement(Variable& element) { return DecodePoints(element.IsPointer() ? *element.GetPointer() : element); }

// The mesh behind a script object, or null when there is none.
const TriangleMesh* MeshOf(Variable& object) {
  const void* native = object.GetAssID();
  return native && !NativeClass::AnyHas(native) ? static_cast<const TriangleMesh*>(native) : nullptr;
}

}  // namespace

Triples::Triples(int wanted) : count(wanted) {
  if (wanted >= 0) values.reset(new (std::nothrow) float[3 * static_cast<std::size_t>(wanted) + 1]);
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

Array<int> DecodeIntegers(Variable& vector) {
  Array<int> integers(vector.GetDim());
  if (!integers) return integers;
  for (int i = 0; i < integers.Count(); ++i) integers[i] = vector[i];
  return integers;
}

void DecodeNumbers(Array<float>& numbers, Variable& vector) {
  for (int i = 0; i < numbers.Count(); ++i) numbers[i] = vector[i];
}

void DecodeControls(Triples& controls, Variable& xs, Variable& ys, Variable* zs) {
  float* to = controls.Values();
  for (int i = 0; i < controls.Count(); ++i, to += 3) {
    to[0] = xs[i];
    to[1] = ys[i];
    to[2] = zs ? static_cast<float>((*zs)[i]) : 0.0F;
  }
}

void PackRow(float z, Variable& xs, Variable& ys, float* to, int n) {
  for (int i = 0; i < n; ++i, to += 3) {
    to[0] = xs[i];
    to[1] = ys[i];
    to[2] = z;
  }
}

PointLists::PointLists(Variable& pointLists, Variable& normalLists)
    : points(pointLists.GetDim()), normals(points.Count()), isComplete(points && normals) {
  if (!isComplete) return;
  for (int i = 0; i < points.Count(); ++i) {
    points[i] = DecodeElement(pointLists[i]);
    normals[i] = DecodeElement(normalLists[i]);
    isComplete = isComplete && points[i] && normals[i];
  }
}

Meshes::Meshes(Variable& objects) : meshes(objects.GetDim()) {
  if (!meshes) return;
  for (int i = 0; i < meshes.Count(); ++i) meshes[i] = MeshOf(objects[i]);
}

int Meshes::Triangles(int mesh) const {
  const TriangleMesh* record = meshes[mesh];
  const bool hasArrays = record && record->vertices && record->normals;
  return hasArrays ? std::max(record->triangleCount, 0) : 0;
}

TriangleCorners Meshes::At(int mesh, int triangle) const {
  const std::ptrdiff_t offset = std::ptrdiff_t{9} * triangle;
  return {meshes[mesh]->vertices + offset, meshes[mesh]->normals + offset};
}
