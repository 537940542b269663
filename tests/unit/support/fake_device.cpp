#include "tests/unit/support/fake_device.h"

#include "devhost/runtime/runtime.h"

namespace {

void MakeNothing(VarRegister&, VarRegister*, int, Processor*) {}

void GetID(VarRegister& result, VarRegister*, int, Processor*) {
  Device().requests.emplace_back("GetID");
  static_cast<Variable&>(result) = Device().id;
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
    {MakeNothing, "MDC::MDC(void)"},
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
