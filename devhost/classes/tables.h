// The method tables of the host's own classes and functions, and what their handlers share.
#pragma once

#include <memory>

#include "devhost/runtime/access.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"
#include "host/talq.h"

namespace devhost {

// One table a class, then one a subject of plain functions; each ends with a null row.
extern const MethodEntry kVectorMethods[];
extern const MethodEntry kStringMethods[];
extern const MethodEntry kPointMethods[];
extern const MethodEntry kRectangleMethods[];
extern const MethodEntry kColorRefMethods[];
extern const MethodEntry kMatrixMethods[];
extern const MethodEntry kBitmapMethods[];
extern const MethodEntry kMeshMethods[];
// On Windows alone; both are of MDC.
extern const MethodEntry kDeviceMethods[];
extern const MethodEntry kDeviceInputMethods[];

extern const MethodEntry kMathematicsFunctions[];
extern const MethodEntry kTextFunctions[];
extern const MethodEntry kFileFunctions[];
extern const MethodEntry kProcessFunctions[];

// The script object of a handler's call.
inline Variable& Self(VarRegister* args, int argc) { return args[argc - 1]; }

// A number argument in full precision.
inline double Number(VarRegister& argument) { return argument.GetVar(); }

// The native object of a handler's call; null with an error raised when the script object has none.
template <typename T>
T* NativeSelf(VarRegister* args, int argc, const char* className) {
  auto* native = static_cast<T*>(static_cast<TalqAss*>(args[argc - 1].GetAssID()));
  if (!native) TalqError(kErrorNoNativeObject, const_cast<char*>(className));
  return native;
}

// What a constructor row ends with: joins the new native object to the script object of the call, which then owns it.
template <typename T>
void JoinNative(VarRegister* args, int argc, Processor* processor, std::unique_ptr<T> native) {
  native.release()->Join(args[argc - 1], processor);
}

// What a destructor row does: breaks the join and deletes the native object, if there is one.
template <typename T>
void DestroyNative(VarRegister&, VarRegister* args, int argc, Processor*) {
  auto* native = static_cast<T*>(static_cast<TalqAss*>(args[argc - 1].GetAssID()));
  if (!native) return;
  native->BreakJoint();
  delete native;
}

}  // namespace devhost
