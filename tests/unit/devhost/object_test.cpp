#include <cstdlib>
#include <memory>

#include "devhost/runtime/classes.h"
#include "devhost/runtime/names.h"
#include "tests/unit/support/devhost_fixture.h"

namespace {

int destroyed = 0;

class Native : public TalqAss {
 public:
  ~Native() override { ++destroyed; }
};

void Make(VarRegister&, VarRegister* args, int argc, Processor* processor) {
  (new Native)->Join(args[argc - 1], processor);
}

void Destroy(VarRegister&, VarRegister* args, int argc, Processor*) {
  auto* native = static_cast<Native*>(args[argc - 1].GetAssID());
  if (!native) return;
  native->BreakJoint();
  delete native;
}

void MakeLoose(VarRegister&, VarRegister*, int, Processor*) {}
void GetRed(VarRegister& result, VarRegister*, int, Processor*) { result = 0.25f; }
void GetGreen(VarRegister&, VarRegister*, int, Processor*) { TalqError(8); }

const MethodEntry kMethods[] = {
    {Make, "Holder::Holder(void)"},
    {Destroy, "Holder::~Holder(void)"},
    {GetRed, "Holder::GetRed(void)"},
    {GetGreen, "Holder::GetGreen(void)"},
    {GetRed, "Holder::GetBlue(int)"},
    {MakeLoose, "Loose::Loose(void)"},
    {nullptr, nullptr},
};

const ErrorEntry kErrors[] = {
    {0, "The device is not valid", "WRONG_DEVICE"},
    {3, "The stack is full", "STACK_FULL"},
    {0, nullptr, nullptr},
};

class DevhostObjectTest : public DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    module = devhost::AddModule({"holder", "1.0", kMethods, kErrors, handle, 0});
    ASSERT_NE(module, nullptr);
    destroyed = 0;
  }
  void TearDown() override {
    DevhostTest::TearDown();
    if (module) EXPECT_EQ(Unload(), 0);
  }
  int Unload() {
    module = nullptr;
    return devhost::UnloadModules();
  }

  HINSTANCE__* const handle = reinterpret_cast<HINSTANCE__*>(&destroyed);
  const devhost::Module* module = nullptr;
};

TEST_F(DevhostObjectTest, TheDestructorRunsWithTheLastReference) {
  Variable object = NewObject("Holder");
  EXPECT_NE(object.GetAssID(), nullptr);
  Variable other(object);
  object.Clear();
  EXPECT_EQ(destroyed, 0);
  EXPECT_NE(other.GetAssID(), nullptr);
  other = 1;
  EXPECT_EQ(destroyed, 1);
}

TEST_F(DevhostObjectTest, AnArrayKeepsItsElementsAlive) {
  Variable array = Vector({NewObject("Holder"), NewObject("Holder")});
  Variable inner = Vector({array});
  array.Clear();
  EXPECT_EQ(destroyed, 0);
  inner.Clear();
  EXPECT_EQ(destroyed, 2);
}

TEST_F(DevhostObjectTest, ArraysNestedDeeplyDieInOneFrame) {
  Variable holder;
  ASSERT_TRUE(devhost::Construct(holder, "Holder", {}));
  Variable nested;
  nested.Init(TVAR_ARRAY, 1);
  devhost::Assign(nested[0], holder);
  holder.Clear();
  for (int depth = 0; depth < 200'000; ++depth) {
    Variable outer;
    outer.Init(TVAR_ARRAY, 1);
    devhost::Assign(outer[0], nested);
    devhost::Assign(nested, outer);
  }
  EXPECT_EQ(destroyed, 0);
  nested.Clear();
  EXPECT_EQ(destroyed, 1);
}

TEST_F(DevhostObjectTest, ADestructorCalledByHandLeavesNothingToDestroy) {
  Variable object = NewObject("Holder");
  Call(object, "~Holder");
  EXPECT_EQ(destroyed, 1);
  EXPECT_EQ(object.GetAssID(), nullptr);
  Call(object, "~Holder");
  object.Clear();
  EXPECT_EQ(destroyed, 1);
}

TEST_F(DevhostObjectTest, JoiningAgainReplacesTheNativeObject) {
  Variable object = NewObject("Holder");
  auto first = std::unique_ptr<Native>(static_cast<Native*>(object.GetAssID()));
  auto* second = new Native;
  second->Join(&object, devhost::CurrentProcessor());
  EXPECT_EQ(object.GetAssID(), second);
  first->BreakJoint();
  EXPECT_EQ(object.GetAssID(), second);
  first.reset();
  EXPECT_EQ(destroyed, 1);
  object.Clear();
  EXPECT_EQ(destroyed, 2);
}

TEST_F(DevhostObjectTest, ANativeObjectMovesBetweenScriptObjects) {
  Variable a = NewObject("Holder");
  Variable b = NewObject("Loose");
  auto* native = static_cast<Native*>(a.GetAssID());
  native->Join(&b, nullptr);
  EXPECT_EQ(a.GetAssID(), nullptr);
  EXPECT_EQ(b.GetAssID(), native);
  delete native;
  EXPECT_EQ(b.GetAssID(), nullptr);
}

TEST_F(DevhostObjectTest, JoiningAValueThatIsNoObjectDoesNothing) {
  Variable number(3);
  Native native;
  native.Join(&number, nullptr);
  native.Join(nullptr, nullptr);
  EXPECT_EQ(number.GetAssID(), nullptr);
}

TEST_F(DevhostObjectTest, UnloadingDestroysWhatIsLeft) {
  const Variable object = NewObject("Holder");
  EXPECT_EQ(Unload(), 0);
  EXPECT_EQ(destroyed, 1);
  EXPECT_EQ(devhost::KindOf(object), "destroyed object");
  EXPECT_FALSE(devhost::HasClass("Holder"));
  Call(object, "GetRed");
  EXPECT_EQ(TakeError(), "21 A destroyed object has no method \"GetRed\".");
}

TEST_F(DevhostObjectTest, UnloadingTellsWhatIsStillJoined) {
  Variable living = NewObject("Loose");
  Native native;
  native.Join(&living, nullptr);
  Native other;
  {
    Variable dying = NewObject("Loose");
    other.Join(&dying, nullptr);
  }
  testing::internal::CaptureStderr();
  EXPECT_EQ(Unload(), 2);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "talq: a native Loose is still joined\ntalq: a native Loose is still joined\n");
  EXPECT_EQ(living.GetAssID(), nullptr);
}

TEST_F(DevhostObjectTest, UnloadingEndsObjectsThatHoldEachOther) {
  {
    Variable a = NewObject("Loose");
    Variable b = NewObject("Holder");
    devhost::Assign(devhost::DefineField(a, "other"), b);
    devhost::Assign(devhost::DefineField(b, "other"), a);
  }
  EXPECT_EQ(destroyed, 0);
  EXPECT_EQ(Unload(), 0);
  EXPECT_EQ(destroyed, 1);
}

TEST_F(DevhostObjectTest, AMissingFieldIsReadThroughItsGetter) {
  Variable object = NewObject("Holder");
  EXPECT_EQ(static_cast<float>(object(Token::GetNameID(Name("Red")))), 0.25f);
  EXPECT_EQ(static_cast<float>(object(Name("Red"))), 0.25f);
  object(Name("Green"));
  EXPECT_EQ(TakeError(), "8 The arrays have lengths that do not fit together.");
  object(Name("Blue"));
  EXPECT_EQ(TakeError(), "21 A Holder has no field \"Blue\".");
  object(Name("Rde"));
  EXPECT_EQ(TakeError(), "21 A Holder has no field \"Rde\". hint: did you mean Red?");
  object(Name("GetRed"));
  EXPECT_EQ(TakeError(), "21 A Holder has no field \"GetRed\". hint: Holder::GetRed takes ()");
}

TEST_F(DevhostObjectTest, FieldsArePlaces) {
  Variable point = NewObject("POINT3");
  point(Name("y")) = 4.5f;
  EXPECT_EQ(static_cast<float>(*devhost::Field(point, "y")), 4.5f);
  EXPECT_EQ(devhost::TextOf(point), "POINT3(0, 4.5, 0)");
  EXPECT_EQ(devhost::Field(point, "w"), nullptr);
  EXPECT_EQ(TakeError(), "21 A POINT3 has no field \"w\".");
  EXPECT_EQ(devhost::Field(point, "Z"), nullptr);
  EXPECT_EQ(TakeError(), "21 A POINT3 has no field \"Z\". hint: did you mean z?");
  Variable number(1);
  EXPECT_EQ(static_cast<float>(number(Name("x"))), 0.0f);
  EXPECT_EQ(TakeError(), "21 A number has no field \"x\".");
}

TEST_F(DevhostObjectTest, NamesKeepTheirIds) {
  const unsigned short id = Token::GetNameID(Name("Red"));
  EXPECT_EQ(Token::GetNameID(Name("Red")), id);
  EXPECT_NE(Token::GetNameID(Name("Blue")), id);
  EXPECT_EQ(devhost::NameOfId(id), "Red");
}

TEST_F(DevhostObjectTest, ModuleErrorsLieAboveTheBase) {
  EXPECT_EQ(GetErrorOffset(handle), 1000);
  EXPECT_EQ(GetErrorOffset(nullptr), 65535);
  TalqError(1003, nullptr);
  EXPECT_EQ(TakeError(), "1003 The stack is full");
  TalqError(1000, Name(" System error #6"));
  EXPECT_EQ(TakeError(), "1000 The device is not valid System error #6");
  TalqError(1003, Name("at name 5"));
  EXPECT_EQ(TakeError(), "1003 The stack is full: at name 5");
  EXPECT_EQ(devhost::ErrorName(1000), "WRONG_DEVICE");
  EXPECT_EQ(devhost::ErrorName(1001), "");
  EXPECT_EQ(devhost::ErrorName(10), "DIVISION_BY_ZERO");
}

TEST_F(DevhostObjectTest, EveryModuleHasABaseOfItsOwn) {
  static const MethodEntry kNone[] = {{nullptr, nullptr}};
  const devhost::Module* second = devhost::AddModule({"second", "", kNone, kErrors, nullptr, 0});
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(second->errorBase, 2000);
  EXPECT_EQ(devhost::ErrorName(2003), "STACK_FULL");
}

TEST_F(DevhostObjectTest, AModuleWithAMalformedTableIsRefused) {
  static const MethodEntry kBad[] = {{Make, "Bad::Bad"}, {nullptr, nullptr}};
  EXPECT_EQ(devhost::AddModule({"bad", "", kBad, nullptr, nullptr, 0}), nullptr);
  EXPECT_EQ(TakeError(),
            "25 The method table's row \"Bad::Bad\" is malformed: a parameter list in brackets is missing.");
}

TEST_F(DevhostObjectTest, TheFirstErrorStaysPending) {
  devhost::Raise(20, "first");
  devhost::Raise(21, "second");
  EXPECT_EQ(devhost::RaisedCount(), 2);
  EXPECT_EQ(TakeError(), "20 first");
  EXPECT_EQ(devhost::RaisedCount(), 0);
  TalqError(77);
  EXPECT_EQ(TakeError(), "77 Error 77.");
  TalqError(0, Name("zero"));
  EXPECT_NE(devhost::CurrentProcessor()->GetErrorStatus(), 0);
  EXPECT_EQ(TakeError(), "0 zero");
}

TEST_F(DevhostObjectTest, TheAllocatorIsTheCLibrarys) {
  void* memory = HMALLOC(16, 1, 2, 3);
  ASSERT_NE(memory, nullptr);
  std::free(memory);
}

}  // namespace
