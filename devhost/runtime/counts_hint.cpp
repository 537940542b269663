#include "devhost/runtime/counts_hint.h"

#include <algorithm>
#include <vector>

#include "devhost/runtime/payload.h"
#include "devhost/runtime/reference.h"
#include "devhost/runtime/runtime.h"
#include "devhost/runtime/text.h"

namespace devhost {
namespace {

constexpr std::string_view kRuleStart = "Takes ";
constexpr std::string_view kRuleEnd = "; else error 8.";

}  // namespace

std::string VectorLengths(const MethodCall& call) {
  std::vector<std::string> lengths;
  bool areNumbers = true;
  for (int i = 0; i < call.count; ++i) {
    const ArrayPayload* array = ArrayOf(call.args[i].GetVar());
    if (!array) continue;
    lengths.push_back(Decimal(static_cast<long long>(array->elements.size())));
    areNumbers = areNumbers && std::all_of(array->elements.begin(), array->elements.end(), IsNumeric);
  }
  if (lengths.empty()) return {};
  std::string text;
  for (std::size_t i = 0; i < lengths.size(); ++i) {
    if (i > 0) text += i + 1 == lengths.size() ? " and " : ", ";
    text += lengths[i];
  }
  return text + (areNumbers ? " numbers" : " elements");
}

std::string CountsRule(std::string_view entryText) {
  const std::string text = Unwrapped(entryText);
  const std::size_t end = text.find(kRuleEnd);
  const std::size_t start = end == text.npos ? text.npos : text.rfind(kRuleStart, end);
  return start == text.npos ? std::string()
                            : "takes " + text.substr(start + kRuleStart.size(), end - start - kRuleStart.size());
}

void HintAtCounts(const MethodCall& call) {
  const Error* error = PendingError();
  if (!error || error->code != kErrorBadCounts || !error->hint.empty()) return;
  const ReferenceEntry* entry = FindInReference(call.method.signature.className, call.method.signature.method);
  const std::string rule = entry ? CountsRule(entry->text) : std::string();
  if (!rule.empty()) GiveHint("got " + VectorLengths(call) + "; " + rule);
}

}  // namespace devhost
