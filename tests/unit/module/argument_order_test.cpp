// In which order every row of the method table reads its arguments, and how the host is asked for each. This test is
// built by two compilers that evaluate the arguments of a function in different orders.
#include <algorithm>
#include <string>
#include <vector>

#include "module/exports.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/handler_registers.h"
#include "tests/unit/support/host_trace.h"
#include "tests/unit/support/row_arguments.h"

namespace {

using ArgumentOrderTest = ModuleTest;
using Texts = std::vector<std::string>;

// The first read of every argument of a call, in the order of these reads: "argument 2: float()".
Texts FirstReads(const std::vector<recorder::Call>& calls) {
  Texts reads;
  for (const recorder::Call& call : calls) {
    if (!call.name.starts_with("argument ")) continue;
    const std::string place = call.name.substr(0, call.name.find(':') + 1);
    if (std::ranges::none_of(reads, [&](const std::string& read) { return read.starts_with(place); })) {
      reads.push_back(call.Text());
    }
  }
  return reads;
}

// How the host is asked for an argument.
std::string ReadOf(const devhost::Signature& signature, const devhost::Parameter& parameter) {
  switch (parameter.kind) {
    case devhost::ParameterKind::Number:
      return "float()";
    case devhost::ParameterKind::Int:
      return "int()";
    case devhost::ParameterKind::Boolean:
      return "IsTrue()";
    case devhost::ParameterKind::Copy:
      return "GetAssID()";
    default:
      break;
  }
  const std::string& name = parameter.className;
  if (name == "OglColor" || name == "OglMaterial") return "GetAssID()";
  if (name == "ColorRef") return "clrf()";
  if (name == "String") return signature.method == "Put2bBitmap" ? "bytes()" : "GetVar()";
  return name == "MDC" || name == "MBmp" || signature.method == "SplineSurface" ? "Variable*()" : "Variable&()";
}

Texts ExpectedReads(const devhost::Signature& signature) {
  Texts reads;
  for (const devhost::Parameter& parameter : signature.parameters) {
    reads.push_back("argument " + std::to_string(reads.size() + 1) + ": " + ReadOf(signature, parameter));
  }
  // A bitmap is asked for its pixels before anything else happens.
  if (!reads.empty() && signature.parameters.back().className == "MBmp") std::ranges::rotate(reads, reads.end() - 1);
  return reads;
}

TEST_F(ArgumentOrderTest, EveryRowReadsItsArgumentsFromFirstToLast) {
  for (const MethodEntry* row = GetMethodTable(nullptr); row->handler; ++row) {
    SCOPED_TRACE(row->signature);
    devhost::Signature signature;
    std::string fault;
    ASSERT_TRUE(devhost::ParseSignature(row->signature, signature, fault)) << fault;
    const std::vector<Variable> args = ArgumentsOf(signature);
    Variable self = ObjectFor(signature);
    TakeLog();
    HandlerRegisters registers(args, self);
    VarRegister result;
    {
      const HostTrace trace(registers.First(), registers.Count(), &result);
      registers.Call(row->handler, result);
    }
    const std::vector<recorder::Call> calls = recorder::Get().calls;
    ASSERT_FALSE(calls.empty());
    // The script object comes before all arguments, except in the matrix program of "GetMatrix".
    const bool isObjectFirst = calls.front().name.starts_with("object: ");
    EXPECT_TRUE(isObjectFirst || signature.method == "GetMatrix") << calls.front().Text();
    EXPECT_EQ(FirstReads(calls), ExpectedReads(signature));
    EndWhatBegan(signature, self);
    devhost::ClearError();  // zeros, which the driver gives "GetMatrix", have no inverse
  }
}

}  // namespace
