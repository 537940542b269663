#include "devhost/check/findings.h"

#include <algorithm>
#include <map>

#include "devhost/runtime/help_command.h"
#include "devhost/runtime/reference.h"
#include "devhost/runtime/text.h"

namespace devhost::check {
namespace {

std::string Counted(int count, const std::string& what) { return Decimal(count) + " " + what; }

}  // namespace

const char* NameOf(Kind kind) {
  switch (kind) {
    case Kind::GlError:
      return "GL_ERROR";
    case Kind::NotOpen:
      return "NOT_OPEN";
    case Kind::NotBound:
      return "NOT_BOUND";
    case Kind::OtherRenderer:
      return "OTHER_RENDERER";
    case Kind::NothingDrawn:
      return "NOTHING_DRAWN";
    case Kind::EmptyViewport:
      return "EMPTY_VIEWPORT";
    case Kind::NoView:
      return "NO_VIEW";
    case Kind::Projection:
      return "PROJECTION";
    case Kind::NoInverse:
      return "NO_INVERSE";
    case Kind::NoNormal:
      return "NO_NORMAL";
    case Kind::MaterialUnlit:
      return "MATERIAL_UNLIT";
    case Kind::ColorRange:
      return "COLOR_RANGE";
    case Kind::NotSent:
      return "NOT_SENT";
    case Kind::LeftOpen:
      return "LEFT_OPEN";
    case Kind::OneColor:
      return "ONE_COLOR";
    case Kind::RowLength:
      return "ROW_LENGTH";
  }
  return "";
}

void Findings::Add(Kind kind, const Where& where, const std::string& text) {
  const auto known = std::find_if(findings.begin(), findings.end(), [&](const Finding& finding) {
    return finding.kind == kind && finding.where.place == where.place && finding.where.method == where.method;
  });
  if (known != findings.end()) {
    ++known->count;
  } else {
    findings.push_back({kind, where, text});
  }
}

std::string Findings::Report() const {
  if (findings.empty()) return {};
  std::string report;
  std::map<Kind, int> counts;
  for (const Finding& finding : findings) {
    ++counts[finding.kind];
    report += finding.where.place.Text() + ": " + finding.where.method + ": " + finding.text + " [" +
              NameOf(finding.kind) + "]";
    if (finding.count > 1) report += " (" + Counted(finding.count, "times") + ")";
    report += "\n";
    const std::string_view advice = AdviceInReference(NameOf(finding.kind));
    if (!advice.empty()) report.append("  hint: ").append(WithHelpCommand(advice)).append("\n");
  }
  report += "talq: " + Counted(static_cast<int>(findings.size()), findings.size() == 1 ? "finding" : "findings");
  const char* separator = ": ";
  for (const auto& [kind, count] : counts) {
    report.append(separator).append(Counted(count, NameOf(kind)));
    separator = ", ";
  }
  return report + "\n";
}

}  // namespace devhost::check
