#include "devhost/script/trace.h"

#include "devhost/runtime/runtime.h"
#include "devhost/runtime/text.h"

namespace devhost::script {
namespace {

constexpr int kMaxCalls = 20;

std::string MessageOf(const Error& error) {
  const std::string name = ErrorName(error.code);
  return "error " + Decimal(error.code) + (name.empty() ? name : " " + name) + ": " + error.text;
}

}  // namespace

void ErrorTrace::Locate(Position at) {
  if (located) return;
  located = true;
  place = script::Locate(at);
}

void ErrorTrace::LeaveCall(std::string_view function, Position at) {
  if (++callCount <= kMaxCalls) calls.push_back({std::string(function), script::Locate(at)});
}

void ErrorTrace::Clear() { *this = ErrorTrace(); }

std::string ErrorTrace::Report() const {
  const Error* error = PendingError();
  if (!error) return {};
  std::string report = located ? Describe(place, MessageOf(*error)) : MessageOf(*error) + "\n";
  if (!error->hint.empty()) report += "  hint: " + error->hint + "\n";
  for (const Call& call : calls) {
    report += "  in " + call.function + ", called from " + call.from.file + ":" + Decimal(call.from.line) + "\n";
  }
  if (callCount > kMaxCalls) report += "  and " + Decimal(callCount - kMaxCalls) + " calls more\n";
  return report;
}

ErrorTrace& CurrentTrace() {
  static ErrorTrace trace;
  return trace;
}

}  // namespace devhost::script
