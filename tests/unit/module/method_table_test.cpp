// The rows of the method table against the whole script API.
#include <map>
#include <set>
#include <string>
#include <vector>

#include "module/exports.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/method_rows.h"

namespace {

using MethodTableTest = ModuleTest;

std::vector<MethodEntry> PresentRows() {
  std::vector<MethodEntry> rows;
  for (const MethodEntry* row = GetMethodTable(nullptr); row->handler || row->signature; ++row) rows.push_back(*row);
  return rows;
}

// Numbers of the API's handlers by signature.
std::map<std::string, int> HandlerNumbers() {
  std::map<std::string, int> numbers;
  for (const MethodRow& row : kMethodRows) numbers[row.signature] = row.handler;
  return numbers;
}

TEST_F(MethodTableTest, ApiHasItsRowsAndHandlers) {
  std::set<int> handlers;
  for (const MethodRow& row : kMethodRows) handlers.insert(row.handler);
  EXPECT_EQ(HandlerNumbers().size(), static_cast<std::size_t>(kMethodRowCount));
  EXPECT_EQ(handlers.size(), static_cast<std::size_t>(kHandlerCount));
}

TEST_F(MethodTableTest, RowsAreTheApisInItsOrder) {
  const std::vector<MethodEntry> rows = PresentRows();
  ASSERT_FALSE(rows.empty());
  auto next = rows.begin();
  for (const MethodRow& row : kMethodRows) {
    if (next != rows.end() && std::string(next->signature) == row.signature) ++next;
  }
  if (next != rows.end()) ADD_FAILURE() << "misspelt, repeated or out of order: " << next->signature;
}

TEST_F(MethodTableTest, TableIsComplete) {
  std::set<ScriptHandler> handlers;
  for (const MethodEntry& row : PresentRows()) handlers.insert(row.handler);
  EXPECT_EQ(PresentRows().size(), static_cast<std::size_t>(kMethodRowCount));
  EXPECT_EQ(handlers.size(), static_cast<std::size_t>(kHandlerCount));
}

TEST_F(MethodTableTest, EveryRowHasAHandler) {
  for (const MethodEntry& row : PresentRows()) EXPECT_TRUE(row.handler) << row.signature;
}

TEST_F(MethodTableTest, OverloadsShareHandlersAndOthersDoNot) {
  const std::map<std::string, int> numbers = HandlerNumbers();
  std::map<int, ScriptHandler> handlerOf;
  std::map<ScriptHandler, int> numberOf;
  for (const MethodEntry& row : PresentRows()) {
    const auto number = numbers.find(row.signature);
    ASSERT_NE(number, numbers.end()) << row.signature;
    EXPECT_EQ(handlerOf.emplace(number->second, row.handler).first->second, row.handler) << row.signature;
    EXPECT_EQ(numberOf.emplace(row.handler, number->second).first->second, number->second) << row.signature;
  }
}

TEST_F(MethodTableTest, ArgumentOfTheGetterIsIgnored) { EXPECT_EQ(GetMethodTable(this), GetMethodTable(nullptr)); }

TEST_F(MethodTableTest, HostTakesEveryRow) {
  std::size_t registered = 0;
  for (const char* name : {"TOpenGL", "OglColor", "OglMaterial"}) {
    EXPECT_TRUE(devhost::HasClass(name)) << name;
    registered += devhost::SignaturesOf(name).size();
  }
  EXPECT_EQ(registered, PresentRows().size());
}

}  // namespace
