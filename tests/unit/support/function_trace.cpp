#include "tests/unit/support/function_trace.h"

#include <cstdio>
#include <memory>
#include <string>

#include "devhost/runtime/runtime.h"

// The linker sends every call of devhost::CompileFunction to Traced; its own code is reached as Compile.
#define SYMBOL "_ZN7devhost15CompileFunctionESt17basic_string_viewIcSt11char_traitsIcEE"
devhost::Function* Compile(std::string_view source) asm("__real_" SYMBOL);
devhost::Function* Traced(std::string_view source) asm("__wrap_" SYMBOL);

namespace {

bool isTracing = false;

class TracedFunction : public devhost::Function {
 public:
  TracedFunction(std::string_view text, devhost::Function* compiled) : source(text), function(compiled) {
    std::fprintf(stderr, "compiled %s\n", source.c_str());
  }
  ~TracedFunction() override { std::fprintf(stderr, "destroyed %s\n", source.c_str()); }
  bool Call(Variable& result, std::span<Variable> args) override { return function->Call(result, args); }

 private:
  std::string source;
  std::unique_ptr<devhost::Function> function;
};

}  // namespace

devhost::Function* Traced(std::string_view source) {
  devhost::Function* function = Compile(source);
  return isTracing && function ? new TracedFunction(source, function) : function;
}

void TraceFunctions() { isTracing = true; }
