#include "tests/unit/support/fake_device.h"

#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"

namespace {

void MakeNothing(VarRegister&, VarRegister*, int, Processor*) {}

// The object is the last register.
long long& IdOf(VarRegister* args, int argc) { return Device().ids[devhost::ObjectOf(args[argc - 1].GetVar())]; }

void MakeDevice(VarRegister&, VarRegister* args, int argc, Processor*) {
  IdOf(args, argc) = Device().id;
  if (Device().id != 0) Device().id += 0x1000;
}

void GetID(VarRegister& result, VarRegister* args, int argc, Processor*) {
  Device().requests.emplace_back("GetID");
  static_cast<Variable&>(result) = IdOf(args, argc);
}

void GetClientRect(VarRegister& result, VarRegister*, int, Processor*) {
  Device().requests.emplace_back("GetClientRect");
  devhost::Construct(result, "ClientRectangle", {});
}

void ReturnField(VarRegister& result, const char* name, int value) {
  Device().requests.emplace_back(name);
  result = value;
}

void GetLeft(VarRegister& result, VarRegister*, int, Processor*) { ReturnField(result, "left", Device().left); }
void GetTop(VarRegister& result, VarRegister*, int, Processor*) { ReturnField(result, "top", Device().top); }
void GetRight(VarRegister& result, VarRegister*, int, Processor*) { ReturnField(result, "right", Device().right); }
void GetBottom(VarRegister& result, VarRegister*, int, Processor*) { ReturnField(result, "bottom", Device().bottom); }

// A field of the rectangle is computed by its getter, so that the test sees when it is read.
constexpr MethodEntry kRows[] = {
    {MakeDevice, "MDC::MDC(void)"},
    {GetID, "MDC::GetID(void)"},
    {GetClientRect, "MDC::GetClientRect(void)"},
    {MakeNothing, "ClientRectangle::ClientRectangle(void)"},
    {GetLeft, "ClientRectangle::Getleft(void)"},
    {GetTop, "ClientRectangle::Gettop(void)"},
    {GetRight, "ClientRectangle::Getright(void)"},
    {GetBottom, "ClientRectangle::Getbottom(void)"},
    {nullptr, nullptr},
};

}  // namespace

FakeDevice& Device() {
  static FakeDevice device;
  return device;
}

void RegisterFakeDevice() { devhost::RegisterMethods(kRows); }
