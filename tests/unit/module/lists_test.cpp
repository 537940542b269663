// Display lists.
#include <numeric>
#include <vector>

#include "tests/unit/support/fixture.h"

namespace {

using ListsTest = ModuleTest;

TEST_F(ListsTest, GenListReturnsOneNewNumber) {
  Variable renderer = OpenRenderer();
  recorder::Get().answers.firstList = 7;
  const Variable list = Call(renderer, "GenList(void)");
  EXPECT_EQ(TakeLog(), "glGenLists(1)\n");
  EXPECT_EQ(list.type, TVAR_INT32);
  EXPECT_EQ(list.slot.int32, 7);
}

TEST_F(ListsTest, GenListOfThreeReturnsTheFirst) {
  Variable renderer = OpenRenderer();
  recorder::Get().answers.firstList = 12;
  const Variable list = Call(renderer, "GenList(int)", 3);
  EXPECT_EQ(TakeLog(), "glGenLists(3)\n");
  EXPECT_EQ(list.slot.int32, 12);
}

TEST_F(ListsTest, GenListThatOpenGLRefusesReturnsZero) {
  Variable renderer = OpenRenderer();
  recorder::Get().answers.firstList = 0;
  const Variable list = Call(renderer, "GenList(int)", -2);
  EXPECT_EQ(TakeLog(), "glGenLists(-2)\n");
  EXPECT_EQ(list.type, TVAR_INT32);
  EXPECT_EQ(list.slot.int32, 0);
}

TEST_F(ListsTest, NewListCompiles) {
  Variable renderer = OpenRenderer();
  Call(renderer, "NewList", 1);
  Call(renderer, "EndList");
  Call(renderer, "NewList", 0x7FFFFFFF);
  Call(renderer, "EndList");
  EXPECT_EQ(TakeLog(),
            Lines({"glNewList(1, GL_COMPILE)", "glEndList()", "glNewList(2147483647, GL_COMPILE)", "glEndList()"}));
}

TEST_F(ListsTest, NewListIgnoresNumbersBelowOne) {
  Variable renderer = OpenRenderer();
  Call(renderer, "NewList", 0);
  Call(renderer, "NewList", -5);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(devhost::RaisedCount(), 0);
}

TEST_F(ListsTest, CallListTakesAnyNumber) {
  Variable renderer = OpenRenderer();
  Call(renderer, "CallList", 5);
  Call(renderer, "CallList", 0);
  Call(renderer, "CallList", -1);
  EXPECT_EQ(TakeLog(), Lines({"glCallList(5)", "glCallList(0)", "glCallList(4294967295)"}));
}

TEST_F(ListsTest, CallListsSendsTheNumbersAsTheyAre) {
  Variable renderer = OpenRenderer();
  Call(renderer, "CallLists", Integers({3, -1, 2000000000, 0}));
  EXPECT_EQ(TakeLog(), "glCallLists(4, GL_INT, {3, -1, 2000000000, 0})\n");
  Call(renderer, "CallLists", Numbers({2.9F, -2.9F}));
  EXPECT_EQ(TakeLog(), "glCallLists(2, GL_INT, {2, -2})\n");
}

TEST_F(ListsTest, CallListsOfAnEmptyVectorSendsNoneAndNothingElse) {
  Variable renderer = OpenRenderer();
  Call(renderer, "CallLists", Integers({}));
  EXPECT_EQ(TakeLog(), "glCallLists(0, GL_INT, {})\n");
}

TEST_F(ListsTest, CallListsOfTenThousand) {
  Variable renderer = OpenRenderer();
  std::vector<int> lists(10000);
  std::iota(lists.begin(), lists.end(), 1);
  Call(renderer, "CallLists", Integers(lists));
  EXPECT_EQ(TakeLog(), Line("glCallLists", 10000, gl_trace::Enum{GL_INT}, std::span<const int>(lists)) + "\n");
}

TEST_F(ListsTest, CallListsWithoutMemoryDoesNothing) {
  Variable renderer = OpenRenderer();
  const Variable lists = Integers({1, 2, 3});
  const FailingAllocation failure(1);
  Call(renderer, "CallLists", lists);
  EXPECT_TRUE(failure.Happened());
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(devhost::RaisedCount(), 0);
}

TEST_F(ListsTest, CallListsConvertsTheNumbersOfAClosedRendererToo) {
  Variable renderer = NewRenderer();
  Call(renderer, "CallLists", Vector({Variable(1), Text("two")}));
  ExpectError(devhost::kErrorConversion, "number");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(ListsTest, DeleteListDeletesOneAndDeleteListsARange) {
  Variable renderer = OpenRenderer();
  Call(renderer, "DeleteList(int)", 9);
  Call(renderer, "DeleteLists(int, int)", 9, 100);
  Call(renderer, "DeleteLists(int, int)", 4, -1);
  EXPECT_EQ(TakeLog(), Lines({"glDeleteLists(9, 1)", "glDeleteLists(9, 100)", "glDeleteLists(4, -1)"}));
}

TEST_F(ListsTest, WithoutAContextListsAreNeitherRecordedNorCalled) {
  Variable renderer = NewRenderer();
  Call(renderer, "NewList", 1);
  Call(renderer, "CallList", 1);
  Call(renderer, "CallLists", Integers({1, 2}));
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(ListsTest, WithoutAContextTheOthersGoToOpenGL) {
  Variable renderer = NewRenderer();
  Call(renderer, "GenList(void)");
  Call(renderer, "GenList(int)", 2);
  Call(renderer, "EndList");
  Call(renderer, "DeleteList(int)", 1);
  Call(renderer, "DeleteLists(int, int)", 1, 2);
  EXPECT_EQ(TakeLog(),
            Lines({"glGenLists(1)", "glGenLists(2)", "glEndList()", "glDeleteLists(1, 1)", "glDeleteLists(1, 2)"}));
}

TEST_F(ListsTest, AContextThatIsNotBoundIsEnough) {
  Variable renderer = OpenRenderer();
  Call(renderer, "FreeMDC");
  TakeLog();
  Call(renderer, "NewList", 1);
  Call(renderer, "EndList");
  Call(renderer, "CallList", 1);
  Call(renderer, "CallLists", Integers({1}));
  EXPECT_EQ(TakeLog(),
            Lines({"glNewList(1, GL_COMPILE)", "glEndList()", "glCallList(1)", "glCallLists(1, GL_INT, {1})"}));
}

}  // namespace
