// A heap array that knows its length and may be missing: allocation fails with null, not with an exception.
#pragma once

#include <climits>
#include <cstddef>
#include <memory>
#include <new>
#include <span>

template <class T>
class Array {
 public:
  // No array.
  Array() = default;
  // Room for so many elements, default-initialised: numbers have no value yet. None when the number is negative or no
  // int.
  explicit Array(long long wanted) : count(wanted >= 0 && wanted <= INT_MAX ? static_cast<int>(wanted) : 0) {
    if (count == wanted) elements.reset(new (std::nothrow) T[static_cast<std::size_t>(wanted)]);
  }

  // Whether it could be allocated.
  explicit operator bool() const { return elements != nullptr; }
  // How many elements were asked for; an index is not checked.
  int Count() const { return count; }
  T* Data() { return elements.get(); }
  const T* Data() const { return elements.get(); }
  std::span<T> Span() { return {elements.get(), static_cast<std::size_t>(count)}; }
  std::span<const T> Span() const { return {elements.get(), static_cast<std::size_t>(count)}; }
  T& operator[](int index) { return elements[static_cast<std::size_t>(index)]; }
  const T& operator[](int index) const { return elements[static_cast<std::size_t>(index)]; }

 private:
  std::unique_ptr<T[]> elements;
  int count = 0;
};
