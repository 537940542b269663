#include "devhost/check/method_facts.h"

#include "devhost/runtime/text.h"

namespace devhost::check {
namespace {

// The name behind "Takes effect at the next `", up to what is no letter.
std::string AwaitedMethod(std::string_view text) {
  constexpr std::string_view kStart = "Takes effect at the next `";
  const std::size_t start = text.find(kStart);
  if (start == text.npos) return {};
  const std::string_view rest = text.substr(start + kStart.size());
  return std::string(rest.substr(0, rest.find_first_of("(`")));
}

}  // namespace

MethodFacts FactsOf(std::string_view className, std::string_view method, const ReferenceEntry* entry) {
  MethodFacts facts;
  facts.name.append(className).append(className.empty() ? "" : "::").append(method);
  facts.method = method;
  if (!entry) return facts;
  facts.isInReference = true;
  const std::string text = Unwrapped(entry->text);
  const auto says = [&text](std::string_view words) { return text.find(words) != text.npos; };
  facts.draws = says("Draws nothing unless the renderer is open and bound");
  if (says("unless the renderer is open and bound")) {
    facts.need = Need::OpenAndBoundRenderer;
  } else if (says("while the renderer is closed")) {
    facts.need = Need::OpenRenderer;
  }
  facts.sentBy = AwaitedMethod(text);
  return facts;
}

}  // namespace devhost::check
