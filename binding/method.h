// Makes the plain handlers of the method table from C++ types.
//
//   Method<&TOpenGL::SetViewPort>("TOpenGL::SetViewPort(number, number, number, number)")
//
// is a row whose handler finds the TOpenGL, converts the arguments from left to right, calls the member and writes its
// result. A row whose text does not fit the C++ type does not compile.
#pragma once

#include <new>
#include <tuple>
#include <type_traits>
#include <utility>

#include "binding/flag.h"
#include "binding/native.h"
#include "binding/signature.h"
#include "host/talq.h"

// How an argument of type A is read from its register, checked, and passed on. Overloads for numbers and flags:
template <class A>
struct Argument {
  A value;
  explicit Argument(VarRegister& argument) : value(Read(argument)) {}
  bool Check() const { return true; }
  A Get() const { return value; }

 private:
  static A Read(VarRegister& argument) {
    if constexpr (std::is_same_v<A, Flag>) {
      return static_cast<Flag>(argument.IsTrue());
    } else {
      return argument;
    }
  }
};
// ... and for the native objects of object arguments.
template <class T>
struct Argument<const T&> {
  T* native;
  explicit Argument(VarRegister& argument) : native(JoinedTo<T>(argument)) {}
  bool Check() const {
    if (!native) TalqError(kNoNativeObject, ClassText<T>());
    return native != nullptr;
  }
  const T& Get() const { return *native; }
};

// How a result is written. Classes add overloads for their own types.
inline void WriteResult(VarRegister& result, float value, Processor* /*processor*/) { result = value; }
inline void WriteResult(VarRegister& result, Flag value, Processor* /*processor*/) { result.SetBool(value); }
inline void WriteResult(VarRegister& result, bool value, Processor* /*processor*/) { result.SetBool(value ? 1 : 0); }

// Reads all arguments from left to right, then checks them; calls `use` with their values when all are there.
template <class... A, std::size_t... I, class Use>
void WithArguments(VarRegister* args, std::index_sequence<I...> /*indices*/, Use use) {
  const std::tuple<Argument<A>...> arguments{Argument<A>(args[I])...};
  if ((std::get<I>(arguments).Check() && ...)) use(std::get<I>(arguments).Get()...);
}

// The handler of a member function, of the object itself or of the part of it that an accessor returns.
template <class T, auto accessor, auto member, class R, class... A>
void CallMember(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  T* self = Self<T>(args, argc);
  if (!self) return;
  WithArguments<A...>(args, std::index_sequence_for<A...>{}, [&](A... values) {
    auto& object = accessor(*self);
    if constexpr (std::is_void_v<R>) {
      (object.*member)(values...);
    } else {
      WriteResult(result, (object.*member)(values...), processor);
    }
  });
}

// A member function's class, its handler, and whether a signature text fits it. `Owner` is the class of the script
// object's native object: the same one, or one that has it as a part.
template <class Member>
struct MemberType;
template <class T, class R, class... A>
struct MemberType<R (T::*)(A...)> {
  using Class = T;
  template <class Owner, auto accessor, auto member>
  static constexpr ScriptHandler kHandler = CallMember<Owner, accessor, member, R, A...>;
  template <class Owner>
  static constexpr bool Fits(std::string_view signature) {
    return IsMethodOf<Owner, A...>(signature);
  }
};
template <class T, class R, class... A>
struct MemberType<R (T::*)(A...) const> : MemberType<R (T::*)(A...)> {};

// Not constexpr, and defined nowhere: reached in a row, it stops the compiler.
void SignatureTextDoesNotFitTheFunction();

// Row of a member function whose arguments and result convert one to one.
template <auto member>
consteval MethodEntry Method(const char* signature) {
  using Type = MemberType<decltype(member)>;
  using T = typename Type::Class;
  if (!Type::template Fits<T>(signature)) SignatureTextDoesNotFitTheFunction();
  constexpr auto kItself = [](T& self) -> T& { return self; };
  return {Type::template kHandler<T, kItself, member>, signature};
}

// Row of a member function of a part of the object, which `accessor` returns by reference.
template <auto accessor, auto member>
consteval MethodEntry PartMethod(const char* signature) {
  using Type = MemberType<decltype(member)>;
  using T = typename MemberType<decltype(accessor)>::Class;
  if (!Type::template Fits<T>(signature)) SignatureTextDoesNotFitTheFunction();
  constexpr auto kPart = [](T& self) -> auto& { return (self.*accessor)(); };
  return {Type::template kHandler<T, kPart, member>, signature};
}

// Breaks the joint and deletes the native object; does nothing without one.
template <class T>
void Release(T* native) {
  if (!native) return;
  native->BreakJoint();
  delete native;
}

// Joins a new native object to the script object of a constructor call, in place of one that a constructor called as a
// method finds there. Without an object nothing is joined and nothing raised: the first method call then finds the
// script object empty.
template <class T>
void JoinNew(T* native, Variable* object, Processor* processor) {
  if (!native) return;
  Release(JoinedTo<T>(*object));
  virtualTable<T> = FirstWord(native);
  native->Join(object, processor);
}

// The handlers behind Constructor and Destructor.
template <class T, class... A>
void HandleConstructor(VarRegister& /*result*/, VarRegister* args, int argc, Processor* processor) {
  Variable* object = args[argc - 1];
  WithArguments<A...>(args, std::index_sequence_for<A...>{},
                      [&](A... values) { JoinNew(new (std::nothrow) T(values...), object, processor); });
}

template <class T>
void HandleDestructor(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  Release(JoinedTo<T>(args[argc - 1]));
}

// Row of the constructor of T from A...
template <class T, class... A>
consteval MethodEntry Constructor(const char* signature) {
  if (!IsConstructorOf<T, A...>(signature)) SignatureTextDoesNotFitTheFunction();
  return {HandleConstructor<T, A...>, signature};
}

// Row of the destructor of T.
template <class T>
consteval MethodEntry Destructor(const char* signature) {
  if (!IsDestructorOf<T>(signature)) SignatureTextDoesNotFitTheFunction();
  return {HandleDestructor<T>, signature};
}
