// From a script object to the native object joined to it, with error 43 raised in this one place.
#pragma once

#include <cstdint>
#include <cstring>

#include "binding/errors.h"
#include "host/talq.h"

class OGLColor;
class OGLMaterial;
class TOpenGL;

// The script classes' names, for errors and new instances. "OglObject" is required and used by nothing.
struct ClassTexts {
  char renderer[8] = "TOpenGL";
  char color[9] = "OglColor";
  char object[10] = "OglObject";
  char material[12] = "OglMaterial";
};
inline ClassTexts classTexts;

// The script class's name of a native class, as the host takes it.
template <class T>
char* ClassText();
template <>
inline char* ClassText<TOpenGL>() {
  return classTexts.renderer;
}
template <>
inline char* ClassText<OGLColor>() {
  return classTexts.color;
}
template <>
inline char* ClassText<OGLMaterial>() {
  return classTexts.material;
}

// What tells native objects of one class from any other's, without RTTI: the address of their virtual table, which is
// their first word. 0, which no table has as its address, until the first object of the class is joined.
template <class T>
inline std::uintptr_t virtualTable = 0;

// The word that a native object begins with.
inline std::uintptr_t FirstWord(const void* native) {
  std::uintptr_t word = 0;
  std::memcpy(&word, native, sizeof(word));
  return word;
}

// Whether the native object, which is not null, belongs to the class. One of another module may begin with 0.
template <class T>
bool IsNative(const void* native) {
  return virtualTable<T> != 0 && FirstWord(native) == virtualTable<T>;
}

// The native object joined to the script object in a register or value, or null, also for another class's; raises
// nothing.
template <class T, class Holder>
T* JoinedTo(Holder& object) {
  void* native = object.GetAssID();
  if (!native || !IsNative<T>(native)) return nullptr;
  return static_cast<T*>(static_cast<TalqAss*>(native));
}

// Whether the native object, which is not null, belongs to one of this module's classes.
inline bool IsOwnNative(const void* native) {
  return IsNative<TOpenGL>(native) || IsNative<OGLColor>(native) || IsNative<OGLMaterial>(native);
}

// As JoinedTo, with error 43 and the class's name raised for null.
template <class T, class Holder>
T* Native(Holder& object) {
  T* native = JoinedTo<T>(object);
  if (!native) TalqError(kNoNativeObject, ClassText<T>());
  return native;
}

// The native object of the call's own script object, which is the last register.
template <class T>
T* Self(VarRegister* args, int argc) {
  return Native<T>(args[argc - 1]);
}
