#include "tests/unit/support/host_trace.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "tests/recorder/recorder.h"
#include "tests/unit/support/host_depth.h"

namespace {

// What is traced: the registers of a call, and the native objects so far.
struct Traced {
  VarRegister* args;
  int argc;
  VarRegister* result;
  std::vector<const TalqAss*> natives;
};

std::optional<Traced> traced;
std::optional<unsigned char*> registerBytes;

std::string NameOf(const VarRegister* reg) {
  if (!traced) return "";
  if (reg == traced->result) return "result: ";
  if (reg < traced->args || reg >= traced->args + traced->argc) return "register: ";
  const auto index = reg - traced->args;
  return index == traced->argc - 1 ? "object: " : "argument " + std::to_string(index + 1) + ": ";
}

// The number of a native object, the last at this address.
int NumberOf(const TalqAss* native) {
  if (!traced) return 0;
  const auto found = std::find(traced->natives.rbegin(), traced->natives.rend(), native);
  return static_cast<int>(traced->natives.rend() - found) - 1;
}

// Notes a call of the module's own and keeps the host's calls within it out of the log.
class Note {
 public:
  template <class... A>
  explicit Note(const std::string& name, const A&... arguments) {
    if (HostDepth()++ == 0 && traced) recorder::Record(name.c_str(), arguments...);
  }
  Note(const Note&) = delete;
  Note& operator=(const Note&) = delete;
  ~Note() { --HostDepth(); }
};

}  // namespace

HostTrace::HostTrace(VarRegister* args, int argc, VarRegister* result) { traced = Traced{args, argc, result, {}}; }
HostTrace::~HostTrace() { traced.reset(); }

RegisterBytes::RegisterBytes(unsigned char* bytes) { registerBytes = bytes; }
RegisterBytes::~RegisterBytes() { registerBytes.reset(); }

// The linker's --wrap gives a call of X the name __wrap_X, and the host's own routine the name __real_X.
// NOLINTBEGIN(bugprone-reserved-identifier)
#define TRACE_REGISTER(type, name, mangled, text)         \
  type Real##name(VarRegister*) asm("__real_" mangled);   \
  type Traced##name(VarRegister*) asm("__wrap_" mangled); \
  type Traced##name(VarRegister* reg) {                   \
    const Note note(NameOf(reg) + (text));                \
    return Real##name(reg);                               \
  }

TRACE_REGISTER(float, Float, "_ZN11VarRegistercvfEv", "float")
TRACE_REGISTER(int, Int, "_ZN11VarRegistercviEv", "int")
TRACE_REGISTER(int, IsTrue, "_ZN11VarRegister6IsTrueEv", "IsTrue")
TRACE_REGISTER(Variable&, Value, "_ZN11VarRegistercvR8VariableEv", "Variable&")
TRACE_REGISTER(Variable*, Pointer, "_ZN11VarRegistercvP8VariableEv", "Variable*")
TRACE_REGISTER(Variable&, GetVar, "_ZN11VarRegister6GetVarEv", "GetVar")
TRACE_REGISTER(void*, AssIdOfRegister, "_ZN11VarRegister8GetAssIDEv", "GetAssID")
TRACE_REGISTER(void, NewRegister, "_ZN11VarRegisterC1Ev", "VarRegister")

unsigned char* RealBytes(VarRegister*) asm("__real__ZN11VarRegistercvPhEv");
unsigned char* TracedBytes(VarRegister*) asm("__wrap__ZN11VarRegistercvPhEv");
unsigned char* TracedBytes(VarRegister* reg) {
  const Note note(NameOf(reg) + "bytes");
  return registerBytes ? *registerBytes : RealBytes(reg);
}

Variable& RealField(VarRegister*, char*) asm("__real__ZN11VarRegisterclEPc");
Variable& TracedField(VarRegister*, char*) asm("__wrap__ZN11VarRegisterclEPc");
Variable& TracedField(VarRegister* reg, char* field) {
  const Note note(NameOf(reg) + field);
  return RealField(reg, field);
}

void* RealAssId(Variable*) asm("__real__ZN8Variable8GetAssIDEv");
void* TracedAssId(Variable*) asm("__wrap__ZN8Variable8GetAssIDEv");
void* TracedAssId(Variable* value) {
  const Note note("GetAssID");
  return RealAssId(value);
}

void RealInit(Variable*, TVARTYPE, int) asm("__real__ZN8Variable4InitE8TVARTYPEi");
void TracedInit(Variable*, TVARTYPE, int) asm("__wrap__ZN8Variable4InitE8TVARTYPEi");
void TracedInit(Variable* value, TVARTYPE type, int n) {
  const Note note("Init", static_cast<int>(type), n);
  RealInit(value, type, n);
}

void RealNewNative(TalqAss*) asm("__real__ZN7TalqAssC2Ev");
void TracedNewNative(TalqAss*) asm("__wrap__ZN7TalqAssC2Ev");
void TracedNewNative(TalqAss* native) {
  if (traced) traced->natives.push_back(native);
  const Note note("TalqAss", NumberOf(native));
  RealNewNative(native);
}

void RealEndNative(TalqAss*) asm("__real__ZN7TalqAssD2Ev");
void TracedEndNative(TalqAss*) asm("__wrap__ZN7TalqAssD2Ev");
void TracedEndNative(TalqAss* native) {
  const Note note("~TalqAss", NumberOf(native));
  RealEndNative(native);
}

void RealJoin(TalqAss*, Variable*, void*) asm("__real__ZN7TalqAss4JoinEP8VariablePv");
void TracedJoin(TalqAss*, Variable*, void*) asm("__wrap__ZN7TalqAss4JoinEP8VariablePv");
void TracedJoin(TalqAss* native, Variable* object, void* context) {
  const Note note("Join");
  RealJoin(native, object, context);
}

void RealMakeInstance(Processor*, Variable&, char*, VarRegister*,
                      int) asm("__real__ZN9Processor12MakeInstanceER8VariablePcP11VarRegisteri");
void TracedMakeInstance(Processor*, Variable&, char*, VarRegister*,
                        int) asm("__wrap__ZN9Processor12MakeInstanceER8VariablePcP11VarRegisteri");
void TracedMakeInstance(Processor* processor, Variable& target, char* className, VarRegister* args, int count) {
  const Note note("MakeInstance " + std::string(className), count);
  RealMakeInstance(processor, target, className, args, count);
}

int RealRunMethod(Processor*, VarRegister&, char*, VarRegister*, int,
                  Variable*) asm("__real__ZN9Processor9RunMethodER11VarRegisterPcPS0_iP8Variable");
int TracedRunMethod(Processor*, VarRegister&, char*, VarRegister*, int,
                    Variable*) asm("__wrap__ZN9Processor9RunMethodER11VarRegisterPcPS0_iP8Variable");
int TracedRunMethod(Processor* processor, VarRegister& result, char* method, VarRegister* args, int count,
                    Variable* object) {
  const Note note("RunMethod " + std::string(method), count);
  return RealRunMethod(processor, result, method, args, count, object);
}

int RealRunFunction(Processor*, VarRegister&, Variable&, VarRegister*,
                    int) asm("__real__ZN9Processor11RunFunctionER11VarRegisterR8VariablePS0_i");
int TracedRunFunction(Processor*, VarRegister&, Variable&, VarRegister*,
                      int) asm("__wrap__ZN9Processor11RunFunctionER11VarRegisterR8VariablePS0_i");
int TracedRunFunction(Processor* processor, VarRegister& result, Variable& function, VarRegister* args, int count) {
  const Note note("RunFunction", count);
  return RealRunFunction(processor, result, function, args, count);
}
// NOLINTEND(bugprone-reserved-identifier)
