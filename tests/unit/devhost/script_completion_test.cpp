// The names that Tab adds at the prompt.
#include "devhost/script/completion.h"

#include "devhost/script/script.h"
#include "tests/unit/support/devhost_fixture.h"

namespace {

using devhost::script::Completion;
using devhost::script::Slot;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class ScriptCompletionTest : public DevhostTest {
 protected:
  ScriptCompletionTest() {
    devhost::Assign(slots[0].value, Variable(1));
    devhost::Assign(slots[1].value, NewObject("Matrix", {Variable(2), Variable(2)}));
  }

  Completion At(std::string_view line) { return devhost::script::Complete(line, {slots, names}); }
  std::string AddedTo(std::string_view line) { return At(line).added; }
  std::vector<std::string> ChoicesAt(std::string_view line) { return At(line).choices; }

  std::vector<std::string> names{"length", "table", "gone"};
  std::vector<Slot> slots = std::vector<Slot>(2);
};

TEST_F(ScriptCompletionTest, KeywordsFunctionsAndVariables) {
  EXPECT_EQ(AddedTo("whi"), "le");
  EXPECT_EQ(AddedTo("x = Pri"), "nt");
  EXPECT_EQ(AddedTo("Translation"), "Matrix");
  EXPECT_EQ(AddedTo("1 + tab"), "le");
  EXPECT_EQ(AddedTo("Mes"), "");
  EXPECT_THAT(ChoicesAt("co"), ElementsAre("continue", "cos"));
  EXPECT_THAT(At("Print").choices, IsEmpty());
}

TEST_F(ScriptCompletionTest, AsMuchAsTheNamesShare) {
  EXPECT_EQ(AddedTo("R"), "");
  EXPECT_THAT(ChoicesAt("R"), ElementsAre("Raise", "ReadObj", "ReadText", "RotationMatrix"));
  EXPECT_EQ(AddedTo("Rea"), "d");
  EXPECT_THAT(ChoicesAt("Rea"), IsEmpty());
  EXPECT_EQ(AddedTo("cont"), "inue");
  EXPECT_EQ(AddedTo("function"), "");
  EXPECT_THAT(ChoicesAt("function"), IsEmpty());
}

TEST_F(ScriptCompletionTest, MethodsOfTheVariablesObject) {
  EXPECT_EQ(AddedTo("table->Inv"), "erse");
  EXPECT_EQ(AddedTo("table . Get"), "");
  EXPECT_THAT(ChoicesAt("table.Get"), ElementsAre("GetColumns", "GetRows"));
  EXPECT_THAT(ChoicesAt("table->"), AllOf(Contains("Transpose"), Not(Contains("Save")), Not(Contains("Matrix"))));
  EXPECT_EQ(AddedTo("table->Sav"), "");
}

TEST_F(ScriptCompletionTest, MethodsOfAllClassesBehindWhatIsNotKnown) {
  for (const char* line : {"gone->Transp", "Make()->Transp", "other.Transp", "a.table->Transp", "length->Transp"}) {
    EXPECT_EQ(AddedTo(line), "ose") << line;
  }
  EXPECT_EQ(AddedTo("a.table->Sav"), "e");
}

TEST_F(ScriptCompletionTest, ClassesBehindNew) {
  EXPECT_EQ(AddedTo("new Mat"), "rix");
  EXPECT_EQ(AddedTo("new tab"), "");
  EXPECT_THAT(ChoicesAt("new "), AllOf(Contains("MBmp"), Contains("Vector"), Not(Contains(""))));
}

TEST_F(ScriptCompletionTest, ABlankWhereNoNameHasBegun) {
  for (const char* line : {"", "  ", "a = ", "f(", "\"Pri", "/* Pri", "12", "a + "}) {
    EXPECT_EQ(AddedTo(line), " ") << line;
    EXPECT_THAT(ChoicesAt(line), IsEmpty()) << line;
  }
  EXPECT_EQ(AddedTo("Unknown"), "");
}

}  // namespace
