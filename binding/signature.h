// Compile-time checks of a method's C++ type against its signature text.
#pragma once

#include <string_view>
#include <type_traits>

#include "binding/flag.h"
#include "binding/native.h"

// Takes `prefix` off the front of `text`; false when it is not there.
constexpr bool Consume(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

// Takes the kind of parameter that a C++ parameter type is read from off the front of a list.
template <class A>
constexpr bool TakeKind(std::string_view& list) {
  if constexpr (std::is_same_v<A, float>) {
    return Consume(list, "number");
  } else if constexpr (std::is_same_v<A, int>) {
    return Consume(list, "int");
  } else if constexpr (std::is_same_v<A, Flag>) {
    return Consume(list, "boolean");
  } else {
    return Consume(list, "refer object ") && Consume(list, ScriptClass<std::remove_cvref_t<A>>::kName);
  }
}

// Whether `list` is exactly the kinds of A..., as a signature lists them, with the closing parenthesis.
template <class... A>
constexpr bool ListsKinds(std::string_view list) {
  bool fits = true;
  if constexpr (sizeof...(A) == 0) {
    fits = Consume(list, "void");
  } else {
    bool first = true;
    ((fits = fits && (first || Consume(list, ", ")) && TakeKind<A>(list), first = false), ...);
  }
  return fits && list == ")";
}

// Whether the signature is a method of T with exactly these parameters.
template <class T, class... A>
constexpr bool IsMethodOf(std::string_view signature) {
  return Consume(signature, ScriptClass<T>::kName) && Consume(signature, "::") &&
         signature.find('(') != signature.npos && ListsKinds<A...>(signature.substr(signature.find('(') + 1));
}

// Whether the signature constructs a T from exactly these parameters ("copy" stands for one of the class itself).
template <class T, class... A>
constexpr bool IsConstructorOf(std::string_view signature) {
  constexpr std::string_view kName = ScriptClass<T>::kName;
  const bool isNamed =
      Consume(signature, kName) && Consume(signature, "::") && Consume(signature, kName) && Consume(signature, "(");
  if constexpr (std::is_same_v<void(A...), void(const T&)>) {
    return isNamed && signature == "copy)";
  } else {
    return isNamed && ListsKinds<A...>(signature);
  }
}

// Whether the signature destroys a T.
template <class T>
constexpr bool IsDestructorOf(std::string_view signature) {
  constexpr std::string_view kName = ScriptClass<T>::kName;
  return Consume(signature, kName) && Consume(signature, "::~") && Consume(signature, kName) && signature == "(void)";
}
