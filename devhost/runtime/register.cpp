#include "devhost/runtime/register.h"

#include <new>

#include "devhost/runtime/number.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"

namespace {

devhost::RegisterState& StateOf(VarRegister& reg) { return reinterpret_cast<devhost::RegisterState&>(reg); }

}  // namespace

VarRegister::VarRegister() { new (static_cast<void*>(hostState)) devhost::RegisterState; }
VarRegister::~VarRegister() { StateOf(*this).~RegisterState(); }

Variable& VarRegister::GetVar() {
  devhost::RegisterState& state = StateOf(*this);
  return state.target ? *state.target : state.value;
}

VarRegister::operator Variable&() { return GetVar(); }
VarRegister::operator Variable*() { return &GetVar(); }

// Arguments are checked before the call, so a register of another kind is read by intent: it is 0 and no error.
VarRegister::operator float() {
  Variable& value = GetVar();
  return value.IsNumber() ? static_cast<float>(value) : 0.0f;
}

VarRegister::operator int() {
  Variable& value = GetVar();
  return value.IsNumber() ? devhost::Int32Of(value) : 0;
}

VarRegister::operator long long() {
  Variable& value = GetVar();
  return value.IsNumber() ? devhost::Int64Of(value) : 0;
}

VarRegister::operator unsigned char*() {
  String* text = GetVar().GetString();
  return text ? text->bytes : nullptr;
}

Variable& VarRegister::operator()(char* field) { return GetVar()(field); }
int VarRegister::IsTrue() { return devhost::IsTrue(GetVar()) ? 1 : 0; }
void* VarRegister::GetAssID() { return GetVar().GetAssID(); }
void VarRegister::SetBool(int value) { devhost::AssignBool(GetVar(), value != 0); }

VarRegister& VarRegister::operator=(float value) {
  GetVar() = value;
  return *this;
}

VarRegister& VarRegister::operator=(int value) {
  GetVar() = value;
  return *this;
}

namespace devhost {

RegisterFrame::RegisterFrame(int count) : total(count + kSpareRegisters) {
  unsigned char* memory = inlineMemory;
  if (total > kInlineRegisters) {
    heapMemory.reset(new unsigned char[static_cast<std::size_t>(total) * sizeof(VarRegister)]);
    memory = heapMemory.get();
  }
  registers = reinterpret_cast<VarRegister*>(memory);
  for (int i = 0; i < total; ++i) new (static_cast<void*>(registers + i)) VarRegister;
}

RegisterFrame::~RegisterFrame() {
  for (int i = total - 1; i >= 0; --i) registers[i].~VarRegister();
}

void RegisterFrame::Bind(int index, Variable& value) { StateOf(registers[index]).target = &value; }

}  // namespace devhost
