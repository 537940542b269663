// Calls the handlers of the method table at random, natively under ASan and UBSan, and checks after every call what
// must hold. A seed fixes the whole run.
#include <sanitizer/common_interface_defs.h>
#include <sanitizer/lsan_interface.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"
#include "fuzz/arguments.h"
#include "fuzz/invariants.h"
#include "module/exports.h"
#include "tests/unit/support/allocation.h"
#include "tests/unit/support/handler_registers.h"
#include "tests/unit/support/leftovers.h"
#include "tests/unit/support/values.h"

// A Variable keeps its pointer at an odd multiple of 4. The name is the sanitizer's.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_options() { return "use_unaligned=1"; }

namespace {

// The world is made afresh after so many calls; each round has a seed of its own, one more than the last.
constexpr long long kCallsPerRound = 1000;
constexpr long long kRoundsPerLeakCheck = 200;

struct Options {
  long long calls = 1000000;
  unsigned long long seed = 1;
  long long seconds = 0;  // of processor time; 0: until all calls are made
};

struct Row {
  ScriptHandler handler;
  devhost::Signature signature;
};

// Where the run is, for the report.
unsigned long long roundSeed = 0;
long long callsInRound = 0;
const char* calledText = "";

void PrintPlace() {
  std::fprintf(stderr, "in %s\nrepeat with: random_calls --seed %llu --calls %lld\n", calledText, roundSeed,
               callsInRound);
}

[[noreturn]] void Fail(const std::string& what) {
  std::fprintf(stderr, "FAILED: %s\n", what.c_str());
  PrintPlace();
  std::_Exit(1);
}

std::vector<Row> Rows() {
  std::vector<Row> rows;
  for (const MethodEntry* row = GetMethodTable(nullptr); row->handler; ++row) {
    rows.push_back({row->handler, {}});
    std::string fault;
    if (!devhost::ParseSignature(row->signature, rows.back().signature, fault)) Fail(fault);
  }
  return rows;
}

// The object that the method is called on: for constructors a fresh one, as they replace nothing.
Variable SelfOf(const devhost::Signature& signature, Random& random, World& world) {
  const bool constructs = signature.method == signature.className;
  if (constructs || random.Percent(2)) return World::NewUnjoined(signature.className);
  return random.Percent(2) ? world.AnyObject() : world.ObjectOf(signature.className);
}

void CallHandler(const Row& row, const Variable& self, std::span<const Variable> args) {
  VarRegister result;
  HandlerRegisters(args, self).Call(row.handler, result);
}

// A call as the host resolves it, with arguments for a form that it may not have.
void CallThroughHost(const Row& row, Variable& self, std::vector<Variable>& args) {
  Variable result;
  devhost::CallMethod(result, self, row.signature.method, args);
}

void MakeCall(const Row& row, Random& random, World& world) {
  Arguments arguments(random, world);
  std::vector<Variable> args = arguments.For(row.signature);
  Variable self = SelfOf(row.signature, random, world);
  const bool constructs = row.signature.method == row.signature.className;
  const bool isThroughHost = !constructs && random.Percent(10);
  if (isThroughHost && random.Percent(50)) args.resize(static_cast<std::size_t>(random.Below(8)));
  devhost::ClearError();
  if (random.Percent(3)) devhost::Raise(99, "pending");
  const FailingAllocation failure(random.Percent(5) ? 1 + random.Below(6) : 0);
  Invariants invariants(row.signature.method);
  if (isThroughHost) {
    CallThroughHost(row, self, args);
  } else {
    CallHandler(row, self, args);
  }
  if (const auto violation = invariants.Violation()) Fail(*violation);
  if (constructs && random.Percent(50)) devhost::Assign(world.ObjectOf(row.signature.className), self);
}

void MakeCalls(const std::vector<Row>& rows, long long calls) {
  Random random(roundSeed);
  World world(random);
  callsInRound = 0;
  while (callsInRound < calls) {
    ++callsInRound;
    if (random.Percent(3)) world.ChangeDriver();
    const auto index = static_cast<std::size_t>(random.Below(static_cast<int>(rows.size())));
    calledText = GetMethodTable(nullptr)[index].signature;
    const HGLRC__* const before = recorder::Get().currentContext;
    MakeCall(rows[index], random, world);
    world.EndAbandonedSelections(before);
    devhost::ClearError();
    if (recorder::Get().balance.contexts.size() != world.OpenRenderers())
      Fail("rendering contexts are not those of the open renderers");
  }
}

// The world is gone behind the calls, and all that the constructors made with it.
void RunRound(const std::vector<Row>& rows, long long calls) {
  MakeCalls(rows, calls);
  calledText = "the round as a whole";
  const std::string leftovers = TakeLeftovers();
  if (!leftovers.empty()) Fail(leftovers);
}

bool ReadOptions(int argc, char** argv, Options& options) {
  for (int i = 1; i + 1 < argc; i += 2) {
    const long long value = std::atoll(argv[i + 1]);
    if (std::strcmp(argv[i], "--calls") == 0) {
      options.calls = value;
    } else if (std::strcmp(argv[i], "--seed") == 0) {
      options.seed = static_cast<unsigned long long>(value);
    } else if (std::strcmp(argv[i], "--seconds") == 0) {
      options.seconds = value;
      options.calls = std::numeric_limits<long long>::max();
    } else {
      return false;
    }
  }
  return argc % 2 == 1;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  if (!ReadOptions(argc, argv, options)) {
    std::puts("usage: random_calls [--seed S] [--calls N | --seconds N]");
    return 2;
  }
  __sanitizer_set_death_callback(PrintPlace);
  const std::vector<Row> rows = Rows();
  long long made = 0;
  for (long long round = 0; made < options.calls; ++round) {
    if (options.seconds > 0 && std::clock() / CLOCKS_PER_SEC >= options.seconds) break;
    roundSeed = options.seed + static_cast<unsigned long long>(round);
    const long long calls = std::min(kCallsPerRound, options.calls - made);
    RunRound(rows, calls);
    made += calls;
    if (round % kRoundsPerLeakCheck == 0 && __lsan_do_recoverable_leak_check() != 0) Fail("memory was lost");
  }
  std::printf("%lld calls, no finding\n", made);
  return 0;
}
