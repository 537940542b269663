// Script values for tests.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "host/talq.h"

// The argument as a script value; truth is the number 1 or 0.
inline Variable Value(float number) { return Variable(number); }
inline Variable Value(int number) { return Variable(number); }
inline Variable Value(bool truth) { return Variable(truth ? 1 : 0); }
inline Variable Value(const Variable& value) { return value; }

// Vectors: of numbers, of integers, and of any values.
Variable Numbers(const std::vector<float>& numbers);
Variable Integers(const std::vector<int>& numbers);
Variable Vector(const std::vector<Variable>& elements);
// A text, and any bytes.
Variable Text(std::string_view text);
Variable ByteString(const std::vector<unsigned char>& bytes);
// A new script object of the class, made through the host with the arguments.
Variable NewObject(std::string_view className, std::vector<Variable> args = {});
// Objects of the host's classes of these names; a colour is packed 0x00BBGGRR.
Variable Point3(float x, float y, float z);
Variable ColorRef(int packed);

// Matrices of 4 x 4, their numbers running down the columns.
inline constexpr std::array<double, 16> kIdentity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
inline constexpr std::array<double, 16> kCounting = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
// A host Matrix, and back.
Variable MatrixOf(const std::array<double, 16>& entries);
std::array<double, 16> EntriesOf(Variable matrix);

// Numbers 1, 2, 3, ... for count triples.
std::vector<float> Counting(int triples);

// Pixels of three bytes with the first and the third changed over.
std::vector<unsigned char> RedAndBlueSwapped(std::vector<unsigned char> pixels);

// The numbers in a Vector, in a POINT3, in an OglColor; the bytes in a byte string.
std::vector<float> NumbersOf(Variable vector);
std::vector<float> CoordinatesOf(Variable point);
std::vector<float> ComponentsOf(const Variable& color);
std::vector<unsigned char> BytesOf(Variable string);

// The native object joined to a script object, or null.
template <class T>
T* NativeOf(Variable object) {
  return static_cast<T*>(static_cast<TalqAss*>(object.GetAssID()));
}
