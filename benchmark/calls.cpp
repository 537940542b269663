// The exported arithmetic, small handlers, and loading the module.

#include "benchmark/handler_call.h"
#include "benchmark/platform.h"
#include "benchmark/rows.h"
#include "classes/gl.h"
#include "value/arithmetic.h"

namespace {

constexpr int kCalls = 1000;

// What each handler and operation does, by hand. Kept out of line, as the module's are.
#ifdef _MSC_VER
#define OUT_OF_LINE __declspec(noinline)
#else
#define OUT_OF_LINE __attribute__((noinline))
#endif

OUT_OF_LINE void AddByHand(Variable& result, const Variable& a, const Variable& b) {
  if (a.type == TVAR_INT64 && b.type == TVAR_INT64) {
    result = a.slot.int64 + b.slot.int64;
  } else if (a.type == TVAR_INT32 && b.type == TVAR_INT32) {
    result = a.slot.int32 + b.slot.int32;
  } else if (a.type == TVAR_FLOAT && b.type == TVAR_FLOAT) {
    result = a.slot.float32 + b.slot.float32;
  } else if (a.type == TVAR_DOUBLE && b.type == TVAR_DOUBLE) {
    result = a.slot.float64 + b.slot.float64;
  } else {
    __AddNumb(result, a, b);
  }
}

OUT_OF_LINE Variable SumByHand(const Variable& a, const Variable& b) {
  if (a.type == TVAR_INT64 && b.type == TVAR_INT64) return Variable(a.slot.int64 + b.slot.int64);
  if (a.type == TVAR_INT32 && b.type == TVAR_INT32) return Variable(a.slot.int32 + b.slot.int32);
  if (a.type == TVAR_FLOAT && b.type == TVAR_FLOAT) return Variable(a.slot.float32 + b.slot.float32);
  if (a.type == TVAR_DOUBLE && b.type == TVAR_DOUBLE) return Variable(a.slot.float64 + b.slot.float64);
  Variable result;
  __AddNumb(result, a, b);
  return result;
}

TOpenGL* RendererOf(VarRegister* args, int argc) {
  auto* const native = static_cast<TalqAss*>(args[argc - 1].GetAssID());
  if (!native) TalqError(43);
  return static_cast<TOpenGL*>(native);
}

void IsOpenByHand(VarRegister& result, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = RendererOf(args, argc);
  if (self) result.SetBool(self->IsOpen() ? 1 : 0);
}

void SetPointSizeByHand(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = RendererOf(args, argc);
  if (!self) return;
  const float pixels = args[0];
  if (self->IsOpen()) glPointSize(pixels);
}

void AddArithmetic(std::vector<Row>& rows, const char* type, const Variable& a, const Variable& b) {
  auto* const result = Keep<Variable>();
  const auto repeat = [result, a, b](auto add) {
    return [result, a, b, add] {
      for (int i = 0; i < kCalls; ++i) add(*result, a, b);
    };
  };
  const auto repeatSum = [a, b](auto sum) {
    return [a, b, sum] {
      for (int i = 0; i < kCalls; ++i) sum(a, b);
    };
  };
  const auto sum = static_cast<Variable (*)(const Variable&, const Variable&)>(operator+);
  rows.push_back({std::string("Add, two ") + type, "the same by hand", 1.1, repeat(Add), repeat(AddByHand), false});
  rows.push_back(
      {std::string("operator+, two ") + type, "the same by hand", 1.1, repeatSum(sum), repeatSum(SumByHand), false});
}

void AddHandler(std::vector<Row>& rows, const char* work, const char* signature, const std::vector<Variable>& args,
                Scene& scene, ScriptHandler byHand) {
  auto* const call = Keep<HandlerCall>(signature, args, scene.object);
  const auto repeat = [call](ScriptHandler handler) {
    return [call, handler] {
      for (int i = 0; i < kCalls; ++i) call->Run(handler);
    };
  };
  rows.push_back({work, "handler by hand", 1.05, repeat(HandlerOf(signature)), repeat(byHand)});
}

}  // namespace

void AddCalls(std::vector<Row>& rows, Scene& scene) {
  AddArithmetic(rows, "32-bit integers", Variable(3), Variable(4));
  AddArithmetic(rows, "floats", Variable(3.5F), Variable(4.5F));
  AddHandler(rows, "IsOpen", "TOpenGL::IsOpen(void)", {}, scene, IsOpenByHand);
  AddHandler(rows, "SetPointSize", "TOpenGL::SetPointSize(number)", {Variable(2.0F)}, scene, SetPointSizeByHand);
  if (const auto loads = Loads())
    rows.push_back(
        {"load the module, read its rows", "empty DLL, as many rows", 1.5, loads->loadModule, loads->loadEmpty, false});
}
