// The pending error of the running script, and the host's own error codes.
#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "devhost/runtime/modules.h"
#include "devhost/runtime/reference.h"
#include "devhost/runtime/runtime.h"
#include "devhost/runtime/text.h"

namespace devhost {
namespace {

struct ErrorState {
  std::optional<Error> pending;
  int raised = 0;
};

ErrorState& State() {
  static auto& state = *new ErrorState;
  return state;
}

struct HostErrorText {
  int code;
  const char* name;
  const char* text;
};

constexpr HostErrorText kHostErrors[] = {
    {kErrorBadCounts, "BAD_COUNTS", "The arrays have lengths that do not fit together."},
    {kErrorDivisionByZero, "DIVISION_BY_ZERO", "Division by zero."},
    {kErrorConversion, "CONVERSION", "A value is not of the kind that is needed."},
    {kErrorName, "UNKNOWN_NAME", "A name is unknown."},
    {kErrorNoOverload, "NO_OVERLOAD", "No form of the method takes these arguments."},
    {kErrorFile, "FILE", "A file cannot be used."},
    {kErrorAssertion, "ASSERTION", "An assertion failed."},
    {kErrorSyntax, "SYNTAX", "The text is malformed."},
    {kErrorTooDeep, "TOO_DEEP", "The calls are nested too deeply."},
    {kErrorFailed, "FAILED", "The script failed."},
    {kErrorNoNativeObject, "NO_NATIVE_OBJECT", "The script object has no native object."},
};

const HostErrorText* FindHostError(int code) {
  const auto* found = std::find_if(std::begin(kHostErrors), std::end(kHostErrors),
                                   [code](const HostErrorText& row) { return row.code == code; });
  return found == std::end(kHostErrors) ? nullptr : found;
}

// The text of a module's own error: the message of its table, then the detail that it was raised with.
std::string ModuleErrorText(const ErrorEntry& entry, std::string_view detail) {
  std::string text = entry.message;
  if (!detail.empty() && detail.front() != ' ') text += ": ";
  return text.append(detail);
}

std::string ErrorText(int code, std::string_view detail) {
  if (const ErrorEntry* entry = FindModuleError(code)) return ModuleErrorText(*entry, detail);
  if (code == kErrorNoNativeObject && !detail.empty()) {
    return "The " + std::string(detail) + " object has no native object: it was not constructed, or is destroyed.";
  }
  if (!detail.empty()) return std::string(detail);
  const HostErrorText* row = FindHostError(code);
  return row ? row->text : "Error " + Decimal(code) + ".";
}

}  // namespace

void Raise(int code, std::string text, std::string hint) {
  ErrorState& state = State();
  ++state.raised;
  if (!state.pending) state.pending = Error{code, std::move(text), std::move(hint)};
}

void GiveHint(std::string hint) {
  std::optional<Error>& pending = State().pending;
  if (pending && pending->hint.empty()) pending->hint = std::move(hint);
}

const Error* PendingError() {
  const ErrorState& state = State();
  return state.pending ? &*state.pending : nullptr;
}

int RaisedCount() { return State().raised; }
void ClearError() { State() = {}; }

std::string ErrorName(int code) {
  if (const ErrorEntry* entry = FindModuleError(code)) return entry->name;
  const HostErrorText* row = FindHostError(code);
  return row ? row->name : "";
}

}  // namespace devhost

void TalqError(int code, char* text) {
  devhost::Raise(code, devhost::ErrorText(code, text ? std::string_view(text) : std::string_view()),
                 std::string(devhost::AdviceInReference(devhost::ErrorName(code))));
}

void TalqError(int code) { TalqError(code, nullptr); }

int Owner::GetErrorStatus() {
  const devhost::Error* error = devhost::PendingError();
  if (!error) return 0;
  return error->code != 0 ? error->code : -1;  // 0 would mean that there is none
}
