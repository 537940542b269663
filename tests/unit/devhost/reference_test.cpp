// The reference in the program: its parts, and what help shows of it.
#include "devhost/runtime/reference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <span>
#include <string>

#include "devhost/runtime/runtime.h"
#include "devhost/runtime/signature.h"
#include "devhost/script/help.h"
#include "module/exports.h"

namespace {

using devhost::ReferenceDocument;
using devhost::ReferenceEntry;
using devhost::ReferenceError;

constexpr const char* kDocument =
    "# Title\n\nAn introduction.\n\n```talq\na = 1;\n```\n\n"
    "## Solids\n\nRound things.\n\n"
    "### Ball::Draw\n\n```\nDraw(radius)\n    Ball::Draw(number)\nDraw(POINT3)\n    Ball::Draw(refer object POINT3)\n```\n\n"
    "Draws it.\n\n- Twice.\n\nExample: `ball->Draw(1);`\n\n"
    "## Others\n\n"
    "### Box::Draw\n\n```\nDraw()\n    Box::Draw(void)\n```\n\nExample: `box->Draw();`\n\n"
    "### Ball::*\n\n```\nball * number\n    Ball::*(number)\n```\n\nExample: `ball * 2;`\n";

constexpr const char* kErrors =
    "| 7 | `SMALL` | Too small. |\n"
    "| code | name | text | meaning | what helps |\n|---|---|---|---|---|\n"
    "| 8 | `BROKEN` | It broke. | after a fall | glue: Glue(cup) |\r\n"
    "| cups | `LOST` | it is gone | for good | |";

std::string HelpOn(std::string_view topic, std::span<const ReferenceDocument> documents) {
  std::string text;
  std::string message;
  return devhost::script::FindHelp(documents, topic, text, message) ? text : "refused: " + message;
}

std::string HelpOn(std::string_view topic, const ReferenceDocument& document) { return HelpOn(topic, {&document, 1}); }

ReferenceDocument DocumentOf(std::string_view owner, std::string_view text) {
  return {owner, devhost::ParseReference(text), devhost::ParseReferenceErrors(text)};
}

// The entry's part of the document, without the marks of headings and fences, and without pictures.
std::string EntryInDocument(std::string_view name, std::string_view document) {
  const std::string heading = "### " + std::string(name) + "\n";
  const std::size_t start = document.find(heading) + 4;
  std::string text(document.substr(start, document.find("\n#", start) - start));
  for (const char* fence : {"\n```\n", "\n```\n"}) text.replace(text.find(fence), 5, "\n");
  while (text.ends_with("\n\n")) text.pop_back();
  return std::regex_replace(text, std::regex(R"(!\[.*\]\(.*\)\n\n)"), "");
}

TEST(ReferenceTest, IsCutIntoEntries) {
  const std::vector<ReferenceEntry> entries = devhost::ParseReference(kDocument);
  ASSERT_EQ(entries.size(), 3U);
  const ReferenceEntry& draw = entries[0];
  EXPECT_EQ(draw.name, "Ball::Draw");
  EXPECT_EQ(draw.ClassName(), "Ball");
  EXPECT_EQ(draw.MethodName(), "Draw");
  EXPECT_EQ(draw.group, "Solids");
  ASSERT_EQ(draw.forms.size(), 2U);
  EXPECT_EQ(draw.forms[1].call, "Draw(POINT3)");
  EXPECT_EQ(draw.forms[1].signature, "Ball::Draw(refer object POINT3)");
  EXPECT_EQ(draw.text, "Draws it.\n\n- Twice.\n\nExample: `ball->Draw(1);`");
  EXPECT_EQ(entries[2].group, "Others");
  EXPECT_EQ(entries[2].text, "Example: `ball * 2;`");
}

TEST(ReferenceTest, AnEntryMayBelongToNoClass) {
  const std::vector<ReferenceEntry> entries =
      devhost::ParseReference("## Words\n\n### Print\n\n```\nPrint(x)\n    Print\n```\n");
  ASSERT_EQ(entries.size(), 1U);
  EXPECT_EQ(entries[0].ClassName(), "");
  EXPECT_EQ(entries[0].MethodName(), "Print");
  EXPECT_FALSE(entries[0].IsMethod());
}

TEST(ReferenceTest, OtherTextsHaveNoEntries) {
  for (const char* text : {"", "#", "##", "## Title", "### no method", "```", "### \n", "text\n## "}) {
    EXPECT_TRUE(devhost::ParseReference(text).empty()) << text;
  }
  EXPECT_TRUE(devhost::ParseReference("### A::B\n\n```\nB()").front().forms.empty());
}

TEST(ReferenceTest, EveryEntryHasFormsTextAndExample) {
  for (const ReferenceDocument& document : devhost::References()) {
    std::set<std::string_view> names;
    for (const ReferenceEntry& entry : document.entries) {
      EXPECT_TRUE(names.insert(entry.name).second) << entry.name << " stands twice";
      EXPECT_FALSE(entry.forms.empty()) << entry.name;
      EXPECT_FALSE(entry.group.empty()) << entry.name;
      const std::size_t example = entry.text.rfind("\n\nExample: `");
      EXPECT_NE(example, std::string_view::npos) << entry.name << " lacks a text or an example";
      EXPECT_TRUE(entry.text.ends_with("`")) << entry.name << " does not end with its example";
    }
  }
}

// What the check knows of methods it reads in the module's reference alone.
TEST(ReferenceTest, TheHostsMethodsAreNotAmongTheModules) {
  ASSERT_EQ(devhost::References().size(), 2U);
  for (const ReferenceEntry& entry : devhost::References()[1].entries) {
    EXPECT_EQ(devhost::FindInReference(entry.ClassName(), entry.MethodName()), nullptr) << entry.name;
  }
}

TEST(ReferenceTest, NamesTheArgumentsOfEveryRow) {
  for (const MethodEntry* row = GetMethodTable(nullptr); row->signature; ++row) {
    devhost::Signature signature;
    std::string fault;
    ASSERT_TRUE(devhost::ParseSignature(row->signature, signature, fault)) << fault;
    const std::string_view arguments = devhost::ArgumentsInReference(row->signature);
    if (signature.method.starts_with('*')) {
      EXPECT_EQ(arguments, "") << row->signature;
      continue;
    }
    ASSERT_TRUE(arguments.starts_with('(') && arguments.ends_with(')')) << row->signature;
    const auto commas = static_cast<std::size_t>(std::count(arguments.begin(), arguments.end(), ','));
    const std::size_t count = arguments == "()" ? 0 : commas + 1;
    EXPECT_GE(count, signature.parameters.size()) << row->signature << " is called with " << arguments;
    if (!signature.hasRest) {
      EXPECT_EQ(count, signature.parameters.size()) << row->signature << " is called with " << arguments;
    }
  }
  EXPECT_EQ(devhost::ArgumentsInReference("TOpenGL::Rotate(number)"), "");
}

TEST(ReferenceTest, ReadsTheRowsOfTablesOfErrors) {
  const std::vector<ReferenceError> errors = devhost::ParseReferenceErrors(kErrors);
  ASSERT_EQ(errors.size(), 2U);
  EXPECT_EQ(errors[0].code, "8");
  EXPECT_EQ(errors[0].name, "BROKEN");
  EXPECT_EQ(errors[0].text, "It broke.");
  EXPECT_EQ(errors[0].meaning, "after a fall");
  EXPECT_EQ(errors[0].advice, "glue: Glue(cup)");
  EXPECT_EQ(errors[1].name, "LOST");
  EXPECT_EQ(errors[1].advice, "");
}

TEST(ReferenceTest, HasEveryErrorWithItsNumber) {
  std::map<std::string, std::string, std::less<>> codes;
  for (const ReferenceDocument& document : devhost::References()) {
    for (const ReferenceError& error : document.errors) EXPECT_TRUE(codes.emplace(error.name, error.code).second);
  }
  for (const int code : {8, 10, 20, 21, 22, 23, 24, 25, 26, 27, 43}) {
    EXPECT_EQ(codes[devhost::ErrorName(code)], std::to_string(code));
  }
}

TEST(ScriptHelpTest, ShowsEveryEntryAsInTheDocument) {
  ASSERT_FALSE(devhost::Reference().empty());
  for (const ReferenceEntry& entry : devhost::Reference()) {
    EXPECT_EQ(HelpOn(entry.name, devhost::References()), EntryInDocument(entry.name, devhost::ReferenceText()));
  }
}

TEST(ScriptHelpTest, SaysOfTheHostsEntriesThatTheyAreTheHosts) {
  const ReferenceDocument& host = devhost::References()[1];
  ASSERT_FALSE(host.entries.empty());
  for (const ReferenceEntry& entry : host.entries) {
    std::string expected = EntryInDocument(entry.name, devhost::HostReferenceText());
    expected.insert(entry.name.size(), " (development host)");
    EXPECT_TRUE(HelpOn(entry.name, host).find(expected) != std::string::npos) << entry.name;
  }
}

TEST(ScriptHelpTest, ShowsAnErrorAndWhatACheckFinds) {
  const ReferenceDocument document = DocumentOf("", kErrors);
  EXPECT_EQ(HelpOn("BROKEN", document), "BROKEN\n\nerror 8: It broke.\n\nafter a fall\n\nhint: glue: Glue(cup)\n");
  EXPECT_EQ(HelpOn("LOST", document), "LOST\n\nfound by --check: it is gone\n\nfor good\n");
  EXPECT_EQ(HelpOn("LSOT", document), "refused: the reference has no entry 'LSOT'; did you mean LOST?");
}

TEST(ScriptHelpTest, ShowsWhatSeveralDocumentsHave) {
  const std::vector<ReferenceDocument> documents = {
      DocumentOf("", "### A::Go\n\n```\nGo()\n    A::Go(void)\n```\n\nFast."),
      DocumentOf("other", "## Ways\n\n### B::Go\n\n```\nGo()\n    B::Go(void)\n```\n\nSlowly.")};
  EXPECT_EQ(HelpOn("Go", documents),
            "A::Go\n\nGo()\n    A::Go(void)\n\nFast.\n\nB::Go (other)\n\nGo()\n    B::Go(void)\n\nSlowly.\n");
  EXPECT_EQ(HelpOn("B", documents), "B (other)\n\nWays\n  Go()\n");
}

std::string WithLineEnds(const std::string& text, const std::string& end) {
  return std::regex_replace(text, std::regex("\n"), end);
}

TEST(ScriptHelpTest, ShowsNoPicture) {
  for (const char* end : {"\n", "\r\n"}) {
    const std::string document = WithLineEnds("### A::B\n\nFirst.\n\n![A b](b.png)\n\nSecond [x](y).", end);
    const std::string shown = HelpOn("A::B", DocumentOf("", document));
    EXPECT_EQ(shown.substr(shown.find("First")), WithLineEnds("First.\n\nSecond [x](y).", end) + "\n");
  }
}

TEST(ScriptHelpTest, FindsAMethodInEveryClassThatHasIt) {
  const ReferenceDocument reference = DocumentOf("", kDocument);
  EXPECT_EQ(HelpOn("Draw", reference),
            "Ball::Draw\n\nDraw(radius)\n    Ball::Draw(number)\nDraw(POINT3)\n    Ball::Draw(refer object POINT3)\n\n"
            "Draws it.\n\n- Twice.\n\nExample: `ball->Draw(1);`\n"
            "\n"
            "Box::Draw\n\nDraw()\n    Box::Draw(void)\n\nExample: `box->Draw();`\n");
  EXPECT_EQ(HelpOn("*", reference), "Ball::*\n\nball * number\n    Ball::*(number)\n\nExample: `ball * 2;`\n");
}

TEST(ScriptHelpTest, ListsTheCallsOfAClassByGroup) {
  EXPECT_EQ(HelpOn("Ball", DocumentOf("", kDocument)),
            "Ball\n\nSolids\n  Draw(radius)\n  Draw(POINT3)\n\nOthers\n  ball * number\n");
}

TEST(ScriptHelpTest, NamesWhatMayHaveBeenMeant) {
  const ReferenceDocument reference = DocumentOf("", kDocument);
  EXPECT_EQ(HelpOn("Bll", reference), "refused: the reference has no entry 'Bll'; did you mean Ball?");
  EXPECT_EQ(HelpOn("draw", reference), "refused: the reference has no entry 'draw'; did you mean Draw?");
  EXPECT_EQ(HelpOn("ball::darw", reference),
            "refused: the reference has no entry 'ball::darw'; did you mean Ball::Draw?");
  EXPECT_EQ(HelpOn("Sphere", reference), "refused: the reference has no entry 'Sphere'");
}

}  // namespace
