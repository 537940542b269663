#include "benchmark/handler_call.h"

#include <cstdio>
#include <cstdlib>

#include "devhost/runtime.h"
#include "module/exports.h"

ScriptHandler HandlerOf(std::string_view signature) {
  for (const MethodEntry* row = GetMethodTable(nullptr); row->signature; ++row) {
    if (signature == row->signature) return row->handler;
  }
  std::fprintf(stderr, "error: the method table has no row %s\n", std::string(signature).c_str());
  std::exit(1);
}

HandlerCall::HandlerCall(std::string_view signature, const std::vector<Variable>& args, Variable& object)
    : handler(HandlerOf(signature)),
      count(static_cast<int>(args.size()) + 1),
      registers(new VarRegister[args.size() + 5]) {
  for (std::size_t i = 0; i < args.size(); ++i) devhost::Assign(registers[i].GetVar(), args[i]);
  devhost::Assign(registers[args.size()].GetVar(), object);
}

void HandlerCall::Run(ScriptHandler other) {
  VarRegister result;
  other(result, registers.get(), count, devhost::CurrentProcessor());
}
