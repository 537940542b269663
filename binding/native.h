// From a script object to the native object joined to it, with error 43 raised in this one place.
#pragma once

#include <cstdint>
#include <cstring>

#include "binding/errors.h"
#include "binding/host_text.h"
#include "host/talq.h"

// Ties a native class to its script class, whose name is the one member, kName. Specialised in the native class's own
// header; error texts, the kinds in signatures and the recognition of native objects follow from it.
template <class T>
struct ScriptClass;

// What tells native objects of one class from any other's, without RTTI: the address of their virtual table, which is
// their first word.
class NativeClass {
 public:
  // Takes the table from an object of the class; the first one teaches, the others change nothing.
  void Learn(const void* native) {
    if (table != 0) return;
    table = FirstWord(native);
    next = firstKnown;
    firstKnown = this;
  }

  // Whether the native object, which is not null, is of the class. One of another module may begin with 0, which no
  // table has as its address.
  bool Has(const void* native) const { return table != 0 && FirstWord(native) == table; }

  // Whether the native object, which is not null, is of one of this module's classes.
  static bool AnyHas(const void* native) {
    for (const NativeClass* known = firstKnown; known; known = known->next) {
      if (known->Has(native)) return true;
    }
    return false;
  }

 private:
  static std::uintptr_t FirstWord(const void* native) {
    std::uintptr_t word = 0;
    std::memcpy(&word, native, sizeof(word));
    return word;
  }

  // Those that have had an object, in a list.
  inline static NativeClass* firstKnown = nullptr;

  std::uintptr_t table = 0;
  NativeClass* next = nullptr;
};
template <class T>
inline NativeClass nativeClass;

// The native object joined to the script object in a register or value, or null, also for another class's; raises
// nothing.
template <class T, class Holder>
T* JoinedTo(Holder& object) {
  void* native = object.GetAssID();
  if (!native || !nativeClass<T>.Has(native)) return nullptr;
  return static_cast<T*>(static_cast<TalqAss*>(native));
}

// Raises error 43 for the class.
template <class T>
void RaiseNoNative() {
  TalqError(kNoNativeObject, HostText(ScriptClass<T>::kName));
}

// As JoinedTo, with error 43 raised for null.
template <class T, class Holder>
T* Native(Holder& object) {
  T* native = JoinedTo<T>(object);
  if (!native) RaiseNoNative<T>();
  return native;
}

// Joins a new native object to the script object of a constructor call. Without an object nothing is joined and nothing
// raised: the first method call then finds the script object empty.
template <class T>
void Join(T* native, Variable* object, Processor* processor) {
  if (!native) return;
  nativeClass<T>.Learn(native);
  native->Join(object, processor);
}

// Breaks the joint and deletes the native object; does nothing without one.
template <class T>
void Release(T* native) {
  if (!native) return;
  native->BreakJoint();
  delete native;
}
