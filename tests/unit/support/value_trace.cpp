#include "tests/unit/support/value_trace.h"

#include <optional>
#include <utility>

#include "tests/recorder/recorder.h"
#include "tests/unit/support/host_calls.h"
#include "tests/unit/support/host_depth.h"

namespace {

struct Traced {
  std::map<const Variable*, std::string> names;
  std::map<unsigned short, std::string> fields;  // by the id that the host gave
};

std::optional<Traced> traced;

std::string NameOf(const Traced& trace, const Variable* value) {
  if (!value) return "";
  const auto name = trace.names.find(value);
  return (name == trace.names.end() ? "value" : name->second) + ": ";
}

// Notes a read of the module's own and keeps the host's reads within it out of the log.
class Note {
 public:
  Note(const Variable* value, const char* read, const std::string& argument) {
    if (HostDepth()++ > 0 || !traced) return;
    recorder::Get().calls.push_back({NameOf(*traced, value) + read, {argument}, {}});
  }
  Note(const Note&) = delete;
  Note& operator=(const Note&) = delete;
  ~Note() { --HostDepth(); }
};

}  // namespace

ValueTrace::ValueTrace(std::map<const Variable*, std::string> names) { traced = Traced{std::move(names), {}}; }
ValueTrace::~ValueTrace() { traced.reset(); }

// The linker's --wrap gives a call of X the name __wrap_X, and the host's own routine the name __real_X.
// NOLINTBEGIN(bugprone-reserved-identifier)
int RealDim(Variable*) asm("__real__ZN8Variable6GetDimEv");
int TracedDim(Variable*) asm("__wrap__ZN8Variable6GetDimEv");
int TracedDim(Variable* value) {
  const Note note(value, "GetDim", "");
  return RealDim(value);
}

int RealIsNumber(Variable*) asm("__real__ZN8Variable8IsNumberEv");
int TracedIsNumber(Variable*) asm("__wrap__ZN8Variable8IsNumberEv");
int TracedIsNumber(Variable* value) {
  const Note note(value, "IsNumber", "");
  return RealIsNumber(value);
}

Variable& RealElement(Variable*, int) asm("__real__ZN8VariableixEi");
Variable& TracedElement(Variable*, int) asm("__wrap__ZN8VariableixEi");
Variable& TracedElement(Variable* vector, int index) {
  if (index < 0 || index >= RealDim(vector)) ++Host().outsideElements;
  const Note note(vector, "element", std::to_string(index));
  return RealElement(vector, index);
}

Variable& RealField(Variable*, unsigned short) asm("__real__ZN8VariableclEt");
Variable& TracedField(Variable*, unsigned short) asm("__wrap__ZN8VariableclEt");
Variable& TracedField(Variable* object, unsigned short id) {
  const Note note(object, "field", traced ? traced->fields[id] : "");
  return RealField(object, id);
}

String* RealString(const Variable*) asm("__real__ZN8Variable9GetStringEv");
String* TracedString(const Variable*) asm("__wrap__ZN8Variable9GetStringEv");
String* TracedString(const Variable* value) {
  const Note note(value, "GetString", "");
  return RealString(value);
}

#define TRACE_ASSIGNMENT(type, mangled)                                             \
  Variable& RealAssign(Variable*, type) asm("__real__ZN8VariableaS" mangled);       \
  Variable& TracedAssign(Variable*, type) asm("__wrap__ZN8VariableaS" mangled);     \
  Variable& TracedAssign(Variable* value, type given) {                             \
    const Note note(value, "assign", gl_trace::Format(static_cast<double>(given))); \
    return RealAssign(value, given);                                                \
  }

TRACE_ASSIGNMENT(float, "Ef")
TRACE_ASSIGNMENT(double, "Ed")
TRACE_ASSIGNMENT(unsigned long, "Em")

unsigned short RealNameId(char*) asm("__real__ZN5Token9GetNameIDEPc");
unsigned short TracedNameId(char*) asm("__wrap__ZN5Token9GetNameIDEPc");
unsigned short TracedNameId(char* name) {
  const Note note(nullptr, "GetNameID", name);
  const unsigned short id = RealNameId(name);
  if (traced) traced->fields[id] = name;
  return id;
}
// NOLINTEND(bugprone-reserved-identifier)
