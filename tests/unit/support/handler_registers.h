// The registers of a handler's call as the host fills them: the arguments, then the script object.
#pragma once

#include <memory>
#include <span>

#include "devhost/runtime/runtime.h"

class HandlerRegisters {
 public:
  HandlerRegisters(std::span<const Variable> args, const Variable& object)
      : registers(new VarRegister[args.size() + 1 + kSpareRegisters]), count(static_cast<int>(args.size()) + 1) {
    for (std::size_t i = 0; i < args.size(); ++i) devhost::Assign(registers[i].GetVar(), args[i]);
    devhost::Assign(registers[args.size()].GetVar(), object);
  }

  void Call(ScriptHandler handler, VarRegister& result) {
    handler(result, registers.get(), count, devhost::CurrentProcessor());
  }

  // All of the call's, the script object's the last of Count().
  VarRegister* First() { return registers.get(); }
  int Count() const { return count; }

 private:
  // Handlers may look at registers past the script object.
  static constexpr std::size_t kSpareRegisters = 4;

  std::unique_ptr<VarRegister[]> registers;
  int count;
};
