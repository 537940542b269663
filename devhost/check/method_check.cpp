#include "devhost/check/method_check.h"

#include <algorithm>

#include "devhost/runtime/counts_hint.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"

namespace devhost::check {
namespace {

bool NamesDestructor(const MethodFacts& facts) { return facts.method.starts_with('~'); }

// The numbers among the arguments, in the precision in which renderers keep them.
std::vector<float> NumbersOf(const MethodCall& call) {
  std::vector<float> numbers;
  for (int i = 0; i < call.count; ++i) {
    if (IsNumeric(call.args[i].GetVar())) numbers.push_back(static_cast<float>(static_cast<double>(call.args[i])));
  }
  return numbers;
}

// How many of the numbers the call hands on; 0 and 1 tell nothing.
std::ptrdiff_t CountOfShared(const gl_trace::Call& call, const std::vector<float>& numbers) {
  return std::count_if(numbers.begin(), numbers.end(), [&call](float number) {
    return number != 0 && number != 1 &&
           std::any_of(call.arguments.begin(), call.arguments.end(),
                       [number](const gl_trace::Value& value) { return static_cast<float>(value.number) == number; });
  });
}

}  // namespace

const MethodFacts& MethodCheck::FactsFor(const Method& method) {
  const auto known = factsOfMethods.find(&method);
  if (known != factsOfMethods.end()) return known->second;
  const std::string& className = method.signature.className;
  const std::string& name = method.signature.method;
  return factsOfMethods.emplace(&method, FactsOf(className, name, FindInReference(className, name))).first->second;
}

void MethodCheck::Begins(const MethodCall& call) {
  const MethodFacts& facts = FactsFor(call.method);
  frames.push_back({.facts = &facts,
                    .object = call.object,
                    .numbers = facts.isInReference ? NumbersOf(call) : std::vector<float>()});
  hasTriedToDraw = hasTriedToDraw || facts.draws;
}

void MethodCheck::Ends(const MethodCall& call) {
  const Frame frame = std::move(frames.back());
  frames.pop_back();
  if (!frame.facts->isInReference) return;
  if (!PendingError()) Judge(frame, call);
  Keep(frame);
}

void MethodCheck::Judge(const Frame& frame, const MethodCall& call) {
  const Renderer& renderer = renderers[frame.object];
  const Need need = frame.facts->need;
  const Where where{CurrentPlace(), frame.facts->name};
  if (need != Need::Nothing && !frame.reachedOpenGl && !renderer.context) {
    findings.Add(Kind::NotOpen, where, "did nothing: the renderer is not open");
  } else if (need == Need::OpenAndBoundRenderer && !frame.reachedOpenGl && !renderer.isBound) {
    findings.Add(Kind::NotBound, where, "did nothing: the renderer has no device");
  } else if (frame.facts->draws && !frame.drew && !frame.toldWhyNothing) {
    const std::string lengths = VectorLengths(call);
    findings.Add(Kind::NothingDrawn, where, "drew nothing" + (lengths.empty() ? lengths : ": got " + lengths));
  }
}

// The latest call of each method on an object; an opening, or the method that they wait for, sends settings.
void MethodCheck::Keep(const Frame& frame) {
  if (NamesDestructor(*frame.facts)) {
    settings.erase(frame.object);
    return;
  }
  std::vector<Setting>& kept = settings[frame.object];
  for (Setting& setting : kept) {
    if (frame.opens || setting.facts->sentBy == frame.facts->method) setting.waits = false;
  }
  std::erase_if(kept, [&frame](const Setting& setting) { return setting.facts->name == frame.facts->name; });
  if (frame.numbers.empty() && frame.facts->sentBy.empty()) return;
  const bool waits = !frame.facts->sentBy.empty() && renderers[frame.object].context;
  kept.push_back({frame.facts, {CurrentPlace(), frame.facts->name}, frame.numbers, waits});
}

void MethodCheck::ReachedOpenGl() {
  if (!frames.empty()) frames.back().reachedOpenGl = true;
}

void MethodCheck::DrewVertex() {
  if (!frames.empty()) frames.back().drew = true;
}

void MethodCheck::ToldWhyNothing() {
  if (!frames.empty()) frames.back().toldWhyNothing = true;
}

void MethodCheck::MadeContext(const void* context) { renderers[Self()] = {context, false}; }

void MethodCheck::MadeCurrent(const void* context) {
  if (frames.empty()) return;
  Renderer& renderer = renderers[Self()];
  renderer.isBound = context && context == renderer.context;
  frames.back().opens = frames.back().opens || renderer.isBound;
}

void MethodCheck::DeletedContext(const void* context) {
  std::erase_if(renderers, [context](const auto& entry) { return entry.second.context == context; });
}

Where MethodCheck::Here() const { return {CurrentPlace(), frames.empty() ? "OpenGL" : frames.back().facts->name}; }

Where MethodCheck::SourceOf(const gl_trace::Call& call) const {
  const auto kept = settings.find(Self());
  if (frames.empty() || kept == settings.end() || CountOfShared(call, frames.back().numbers) > 0) return Here();
  const Setting* best = nullptr;
  for (const Setting& setting : kept->second) {
    const std::ptrdiff_t shared = CountOfShared(call, setting.numbers);
    if (shared > (best ? CountOfShared(call, best->numbers) : 0)) best = &setting;
  }
  return best ? best->where : Here();
}

bool MethodCheck::IsDestructor() const { return !frames.empty() && NamesDestructor(*frames.back().facts); }

const void* MethodCheck::Self() const { return frames.empty() ? nullptr : frames.back().object; }

void MethodCheck::DrawnWithout(const void* context, std::string_view sentBy) {
  for (const auto& [object, renderer] : renderers) {
    if (renderer.context != context) continue;
    for (Setting& setting : settings[object]) {
      if (!setting.waits || setting.facts->sentBy != sentBy) continue;
      setting.waits = false;
      findings.Add(Kind::NotSent, setting.where,
                   "what was drawn since does not show it: it takes effect at the next " + std::string(sentBy));
    }
  }
}

}  // namespace devhost::check
