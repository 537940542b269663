// A call of a script method, as its handler sees it.
//
//   void script::DeleteLists(const TOpenGL& self, ScriptCall& call) {
//     const int first = call.NextInt();
//     const int count = call.Count() == 1 ? 1 : call.NextInt();
//     self.DeleteLists(first, count);
//   }
//
// Arguments are converted in the order of the signature: the call hands them out one after the other, and a handler
// takes one a statement, because C++ leaves open in which order the arguments of a function are evaluated
// (scripts/check-reads looks after that).
#pragma once

#include <type_traits>

#include "binding/flag.h"
#include "binding/native.h"
#include "host/talq.h"

class ScriptCall {
 public:
  // As the host calls: args[argc - 1] is the script object.
  ScriptCall(VarRegister& hostResult, VarRegister* args, int argc, Processor* hostProcessor)
      : result(hostResult), processor(hostProcessor), object(args + argc - 1), next(args), count(argc - 1) {}

  // The native object of the script object; null, with error 43 raised, when it has none.
  template <class T>
  T* Self() const {
    return Native<T>(*object);
  }
  // The script object itself, as a register and as a value.
  VarRegister& ObjectRegister() const { return *object; }
  Variable* Object() const { return *object; }

  // How many arguments the script gave; the script object is not one.
  int Count() const { return count; }

  // The next argument, converted by the host: as a number, an integer, a truth value, a value, a pointer to one.
  float NextNumber() { return Next(); }
  int NextInt() { return Next(); }
  Flag NextFlag() { return static_cast<Flag>(Next().IsTrue()); }
  Variable& NextValue() { return Next(); }
  Variable* NextPointer() { return Next(); }
  // Its native object; null, with error 43 raised, when it has none.
  template <class T>
  T* NextNative() {
    return Native<T>(Next());
  }
  // Its register, for what these do not do. Behind the last argument comes the script object, then what the host has
  // there.
  VarRegister& Next() { return *next++; }
  // The last argument, which is not passed over by this.
  Variable* LastPointer() const { return object[-1]; }

  // The register for the result.
  VarRegister& Result() const { return result; }
  // Runs a method of a script object, without arguments; its answer is in the result register, which serves as scratch.
  VarRegister& Ask(Variable* scriptObject, const char* method) const {
    processor->RunMethod(result, HostText(method), nullptr, 0, scriptObject);
    return result;
  }
  // Whether an error is pending in the script.
  bool HasError() const { return processor->GetErrorStatus() != 0; }
  Processor* Interpreter() const { return processor; }

 private:
  VarRegister& result;
  Processor* processor;
  VarRegister* object;
  VarRegister* next;
  int count;
};

// The native class of a method's script object.
template <class Method>
struct SelfOf;
template <class T>
struct SelfOf<void (*)(T&, ScriptCall&)> {
  using Type = T;
};

// The host's handler of a method, which is called with its native object, or not at all; one that is written for the
// call alone finds the object itself. One method has one handler, whichever rows name it.
template <auto method>
void Handler(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  ScriptCall call(result, args, argc, processor);
  if constexpr (std::is_invocable_v<decltype(method), ScriptCall&>) {
    method(call);
  } else {
    auto* self = call.Self<std::remove_const_t<typename SelfOf<decltype(method)>::Type>>();
    if (self) method(*self, call);
  }
}

// How a result is written. Classes add overloads for their own types.
inline void Return(const ScriptCall& call, float value) { call.Result() = value; }
inline void Return(const ScriptCall& call, Flag value) { call.Result().SetBool(value); }
inline void Return(const ScriptCall& call, bool value) { call.Result().SetBool(value ? 1 : 0); }
