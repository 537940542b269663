// Who is told of the calls of methods.
#pragma once

#include "devhost/runtime/classes.h"

namespace devhost {

// A call of a method, constructor, destructor or plain function, while it lasts.
struct MethodCall {
  const Method& method;
  VarRegister* args;   // the script's arguments
  int count;           // of them
  const void* object;  // tells live objects apart; null for plain functions
};

// Calls that a method makes of others begin and end between its own beginning and end.
class CallObserver {
 public:
  virtual ~CallObserver() = default;
  virtual void Begins(const MethodCall& call) = 0;
  virtual void Ends(const MethodCall& call, const Variable& result) = 0;
};

// From here on; null: nobody is told.
void ObserveCalls(CallObserver* observer);

// Runs the method's handler on the registers, the object's behind those of the arguments, and tells the observer.
void RunHandler(const Method& method, VarRegister& result, VarRegister* registers, int argumentCount);

}  // namespace devhost
