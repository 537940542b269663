// The inside of a VarRegister, and the frame of registers that a call passes to its handler.
#pragma once

#include <memory>

#include "host/talq.h"

namespace devhost {

// A register holds its value in place, or stands for a value that lies elsewhere.
#pragma pack(push, 4)
struct RegisterState {
  Variable value;
  Variable* target = nullptr;
};
#pragma pack(pop)
static_assert(sizeof(RegisterState) <= sizeof(VarRegister));

// The argument registers of one call: the script's arguments, the script object, and a few empty ones behind it.
class RegisterFrame {
 public:
  // Room for `count` registers, the script object's among them, and the empty ones.
  explicit RegisterFrame(int count);
  RegisterFrame(const RegisterFrame&) = delete;
  RegisterFrame& operator=(const RegisterFrame&) = delete;
  ~RegisterFrame();

  // Register i stands for the value from now on.
  void Bind(int index, Variable& value);
  // The first of them; they lie one behind the other.
  VarRegister* Registers() { return registers; }

 private:
  static constexpr int kSpareRegisters = 4;
  static constexpr int kInlineRegisters = 16;

  int total;
  alignas(8) unsigned char inlineMemory[kInlineRegisters * sizeof(VarRegister)];
  std::unique_ptr<unsigned char[]> heapMemory;
  VarRegister* registers;
};

}  // namespace devhost
