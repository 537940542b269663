#include "devhost/runtime/call_observer.h"

#include "devhost/runtime/counts_hint.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"

namespace devhost {
namespace {

CallObserver* observer = nullptr;

}  // namespace

void ObserveCalls(CallObserver* newObserver) { observer = newObserver; }

void RunHandler(const Method& method, VarRegister& result, VarRegister* registers, int argumentCount) {
  const MethodCall call{method, registers, argumentCount, ObjectOf(registers[argumentCount].GetVar())};
  if (observer) observer->Begins(call);
  method.handler(result, registers, argumentCount + 1, CurrentProcessor());
  if (observer) observer->Ends(call, result.GetVar());
  HintAtCounts(call);
}

}  // namespace devhost
