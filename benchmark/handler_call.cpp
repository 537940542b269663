#include "benchmark/handler_call.h"

#include <cstdio>
#include <cstdlib>

#include "module/exports.h"

ScriptHandler HandlerOf(std::string_view signature) {
  for (const MethodEntry* row = GetMethodTable(nullptr); row->signature; ++row) {
    if (signature == row->signature) return row->handler;
  }
  std::fprintf(stderr, "error: the method table has no row %s\n", std::string(signature).c_str());
  std::exit(1);
}

HandlerCall::HandlerCall(std::string_view signature, const std::vector<Variable>& args, Variable& object)
    : handler(HandlerOf(signature)), registers(args, object) {}

void HandlerCall::Run(ScriptHandler other) {
  VarRegister result;
  registers.Call(other, result);
}
