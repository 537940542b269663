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

#include "binding/call.h"
#include "binding/signature.h"
#include "host/talq.h"

// How an argument of type A is read, checked, and passed on. For numbers and flags:
template <class A>
struct Argument {
  A value;
  explicit Argument(ScriptCall& call) : value(Read(call)) {}
  bool Check() const { return true; }
  A Get() const { return value; }

 private:
  static A Read(ScriptCall& call) {
    if constexpr (std::is_same_v<A, Flag>) {
      return call.NextFlag();
    } else {
      return call.Next();
    }
  }
};
// ... and for the native objects of object arguments, of which all are fetched before one is tested.
template <class T>
struct Argument<const T&> {
  const T* native;
  explicit Argument(ScriptCall& call) : native(JoinedTo<T>(call.Next())) {}
  bool Check() const {
    if (!native) RaiseNoNative<T>();
    return native != nullptr;
  }
  const T& Get() const { return *native; }
};

// Reads all arguments from left to right, then checks them; calls `use` with their values when all are there.
template <class... A, class Use>
void WithArguments(ScriptCall& call, Use use) {
  // The braces keep the order.
  const std::tuple<Argument<A>...> arguments{Argument<A>(call)...};
  std::apply(
      [&](const auto&... argument) {
        if ((argument.Check() && ...)) use(argument.Get()...);
      },
      arguments);
}

// The handler of a member function, of the object itself or of the part of it that an accessor returns.
template <class T, auto accessor, auto member, class R, class... A>
void CallMember(T& self, ScriptCall& call) {
  WithArguments<A...>(call, [&](A... values) {
    auto& object = accessor(self);
    if constexpr (std::is_void_v<R>) {
      (object.*member)(values...);
    } else {
      Return(call, (object.*member)(values...));
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
  static constexpr ScriptHandler kHandler = Handler<CallMember<Owner, accessor, member, R, A...>>;
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

// The methods behind Constructor and Destructor.
template <class T, class... A>
void Construct(ScriptCall& call) {
  Variable* object = call.Object();
  WithArguments<A...>(call, [&](A... values) { Join(new (std::nothrow) T(values...), object, call.Interpreter()); });
}

template <class T>
void Destroy(ScriptCall& call) {
  Release(JoinedTo<T>(call.ObjectRegister()));
}

// Row of the constructor of T from A...
template <class T, class... A>
consteval MethodEntry Constructor(const char* signature) {
  if (!IsConstructorOf<T, A...>(signature)) SignatureTextDoesNotFitTheFunction();
  return {Handler<Construct<T, A...>>, signature};
}

// Row of the destructor of T.
template <class T>
consteval MethodEntry Destructor(const char* signature) {
  if (!IsDestructorOf<T>(signature)) SignatureTextDoesNotFitTheFunction();
  return {Handler<Destroy<T>>, signature};
}
