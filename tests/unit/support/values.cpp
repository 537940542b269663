#include "tests/unit/support/values.h"

#include <numeric>

#include "classes/color.h"
#include "devhost/runtime/runtime.h"

namespace {

template <class T>
Variable VectorOf(const std::vector<T>& numbers) {
  Variable vector;
  vector.Init(TVAR_ARRAY, static_cast<int>(numbers.size()));
  int i = 0;
  for (const T number : numbers) vector[i++] = number;
  return vector;
}

}  // namespace

Variable Numbers(const std::vector<float>& numbers) { return VectorOf(numbers); }
Variable Integers(const std::vector<int>& numbers) { return VectorOf(numbers); }

Variable Vector(const std::vector<Variable>& elements) {
  Variable vector;
  vector.Init(TVAR_ARRAY, static_cast<int>(elements.size()));
  int i = 0;
  for (const Variable& element : elements) devhost::Assign(vector[i++], element);
  return vector;
}

Variable Text(std::string_view text) {
  Variable value;
  devhost::AssignText(value, text);
  return value;
}

Variable ByteString(const std::vector<unsigned char>& bytes) {
  return Text({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

Variable NewObject(std::string_view className, std::vector<Variable> args) {
  Variable object;
  devhost::Construct(object, className, args);
  return object;
}

Variable Point3(float x, float y, float z) { return NewObject("POINT3", {Variable(x), Variable(y), Variable(z)}); }
Variable ColorRef(int packed) { return NewObject("ColorRef", {Variable(packed)}); }

Variable MatrixOf(const std::array<double, 16>& entries) {
  Variable matrix = NewObject("Matrix", {Variable(4), Variable(4)});
  for (int i = 0; i < 16; ++i) matrix[i % 4][i / 4] = entries[static_cast<std::size_t>(i)];
  return matrix;
}

std::array<double, 16> EntriesOf(Variable matrix) {
  std::array<double, 16> entries{};
  for (int i = 0; i < 16; ++i) entries[static_cast<std::size_t>(i)] = matrix[i % 4][i / 4];
  return entries;
}

std::vector<float> Counting(int triples) {
  std::vector<float> numbers(static_cast<std::size_t>(3 * triples));
  std::iota(numbers.begin(), numbers.end(), 1.0F);
  return numbers;
}

std::vector<unsigned char> RedAndBlueSwapped(std::vector<unsigned char> pixels) {
  for (std::size_t i = 0; i + 2 < pixels.size(); i += 3) std::swap(pixels[i], pixels[i + 2]);
  return pixels;
}

std::vector<float> NumbersOf(Variable vector) {
  std::vector<float> numbers;
  for (int i = 0; i < vector.GetDim(); ++i) numbers.push_back(vector[i]);
  return numbers;
}

std::vector<float> CoordinatesOf(Variable point) {
  std::vector<float> coordinates;
  for (const char* field : {"x", "y", "z"}) coordinates.push_back(point(const_cast<char*>(field)));
  return coordinates;
}

std::vector<float> ComponentsOf(const Variable& color) {
  const auto* native = NativeOf<OGLColor>(color);
  if (!native) return {};
  return {native->red, native->green, native->blue, native->alpha};
}

std::vector<unsigned char> BytesOf(Variable string) {
  const String* record = string.GetString();
  return record ? std::vector<unsigned char>(record->bytes, record->bytes + record->length)
                : std::vector<unsigned char>();
}
