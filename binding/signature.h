// Compile-time checks of a method's C++ type against its signature text.
#pragma once

#include <string_view>
#include <type_traits>

#include "binding/flag.h"

class OGLColor;
class OGLMaterial;
class TOpenGL;

// The kind of parameter that a C++ parameter type is read from.
template <class A>
inline constexpr std::string_view kKind{};
template <>
inline constexpr std::string_view kKind<float> = "number";
template <>
inline constexpr std::string_view kKind<int> = "int";
template <>
inline constexpr std::string_view kKind<Flag> = "boolean";
template <>
inline constexpr std::string_view kKind<const OGLColor&> = "refer object OglColor";
template <>
inline constexpr std::string_view kKind<const OGLMaterial&> = "refer object OglMaterial";

// The script class of a native class.
template <class T>
inline constexpr std::string_view kScriptClass{};
template <>
inline constexpr std::string_view kScriptClass<TOpenGL> = "TOpenGL";
template <>
inline constexpr std::string_view kScriptClass<OGLColor> = "OglColor";
template <>
inline constexpr std::string_view kScriptClass<OGLMaterial> = "OglMaterial";

// Takes `prefix` off the front of `text`; false when it is not there.
constexpr bool Consume(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

// Whether `list` is exactly the kinds of A..., as a signature lists them, with the closing parenthesis.
template <class... A>
constexpr bool ListsKinds(std::string_view list) {
  bool fits = true;
  if constexpr (sizeof...(A) == 0) {
    fits = Consume(list, "void");
  } else {
    bool first = true;
    ((fits = fits && (first || Consume(list, ", ")) && Consume(list, kKind<A>), first = false), ...);
  }
  return fits && list == ")";
}

// Whether the signature is a method of T with exactly these parameters.
template <class T, class... A>
constexpr bool IsMethodOf(std::string_view signature) {
  return Consume(signature, kScriptClass<T>) && Consume(signature, "::") && signature.find('(') != signature.npos &&
         ListsKinds<A...>(signature.substr(signature.find('(') + 1));
}

// Whether the signature constructs a T from exactly these parameters ("copy" stands for one of the class itself).
template <class T, class... A>
constexpr bool IsConstructorOf(std::string_view signature) {
  std::string_view list = signature;
  const bool isNamed =
      Consume(list, kScriptClass<T>) && Consume(list, "::") && Consume(list, kScriptClass<T>) && Consume(list, "(");
  if constexpr (std::is_same_v<void(A...), void(const T&)>) {
    return isNamed && list == "copy)";
  } else {
    return isNamed && ListsKinds<A...>(list);
  }
}

// Whether the signature destroys a T.
template <class T>
constexpr bool IsDestructorOf(std::string_view signature) {
  return Consume(signature, kScriptClass<T>) && Consume(signature, "::~") && Consume(signature, kScriptClass<T>) &&
         signature == "(void)";
}
