#include <iterator>

#include "devhost/runtime/classes.h"
#include "devhost/runtime/register.h"
#include "tests/unit/support/devhost_fixture.h"

namespace {

using devhost::TextOf;

std::string lastCall;

template <char id>
void Record(VarRegister& result, VarRegister* args, int argc, Processor*) {
  lastCall = std::string(1, id) + std::to_string(argc);
  result = static_cast<float>(args[0]);
}

void Touch(VarRegister&, VarRegister* args, int argc, Processor*) {
  // The registers past the script object are there and empty.
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(static_cast<float>(args[argc + i]), 0.0f);
    EXPECT_EQ(args[argc + i].GetVar().GetType(), devhost::kEmptyType);
  }
}

void CallBack(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  Variable* self = args[argc - 1];
  EXPECT_EQ(processor->RunMethod(result, const_cast<char*>("Move"), args, argc - 1, self), 1);
  lastCall += " back " + TextOf(result.GetVar());
}

void MakeAnother(VarRegister& result, VarRegister*, int, Processor* processor) {
  VarRegister coordinates[3];
  for (int i = 0; i < 3; ++i) coordinates[i] = i + 1;
  processor->MakeInstance(result, const_cast<char*>("POINT3"), coordinates, 3);
}

void Fail(VarRegister&, VarRegister*, int, Processor*) { TalqError(43, const_cast<char*>("Probe")); }
void Nothing(VarRegister&, VarRegister*, int, Processor*) {}

const MethodEntry kProbeMethods[] = {
    {Nothing, "Probe::Probe(void)"},
    {Fail, "Probe::Probe(number)"},
    {Nothing, "Probe::Probe(copy)"},
    {Record<'a'>, "Probe::Move(number, number)"},
    {Record<'b'>, "Probe::Move(refer object POINT3)"},
    {Record<'c'>, "Probe::Move(refer object POINT3 , int)"},
    {Record<'d'>, "Probe::Paint(refer object Vector, ...)"},
    {Record<'e'>, "Probe::Paint(refer object String, boolean)"},
    {Touch,
     "Probe::Touch(number, number, number, number, number, number, number, number, number, number, number, "
     "number, number, number, number, number)"},
    {Touch, "Probe::Touch(void)"},
    {CallBack, "Probe::CallBack(number, number)"},
    {MakeAnother, "Probe::MakeAnother(void)"},
    {Fail, "Probe::Fail(void)"},
    {Record<'+'>, "Probe::+(number)"},
    {nullptr, nullptr},
};

class DevhostCallTest : public DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    ASSERT_TRUE(devhost::RegisterMethods(kProbeMethods));
    devhost::Assign(probe, NewObject("Probe"));
  }
  void TearDown() override {
    probe.Clear();
    DevhostTest::TearDown();
    devhost::UnregisterMethods(kProbeMethods);
    EXPECT_FALSE(devhost::HasClass("Probe"));
  }

  std::string CalledBy(const char* method, std::vector<Variable> args) {
    lastCall.clear();
    Call(probe, method, std::move(args));
    return lastCall;
  }

  static Variable Point() { return NewObject("POINT3", {Variable(1), Variable(2), Variable(3)}); }

  Variable probe;
};

TEST_F(DevhostCallTest, TheOverloadFollowsCountAndKinds) {
  EXPECT_EQ(CalledBy("Move", {Variable(1), Variable(2.5)}), "a3");
  EXPECT_EQ(CalledBy("Move", {Point()}), "b2");
  EXPECT_EQ(CalledBy("Move", {Point(), Variable(1)}), "c3");
  EXPECT_EQ(CalledBy("Paint", {Vector({})}), "d2");
  EXPECT_EQ(CalledBy("Paint", {Vector({}), Text("x"), Variable()}), "d4");
  EXPECT_EQ(CalledBy("Paint", {Text("x"), Variable(1)}), "e3");
}

TEST_F(DevhostCallTest, AMisfitSaysWhichFormsThereAre) {
  EXPECT_EQ(CalledBy("Move", {Text("x")}), "");
  EXPECT_EQ(
      TakeError(),
      "22 Probe::Move does not take (String). hint: Probe::Move takes (number, number) or (POINT3) or (POINT3, int)");
  CalledBy("Paint", {});
  EXPECT_EQ(TakeError(),
            "22 Probe::Paint does not take (). hint: Probe::Paint takes (Vector, ...) or (String, boolean)");
  CalledBy("Move", {NewObject("ColorRef", {Variable(0)}), Variable(1)});
  EXPECT_EQ(
      TakeError(),
      "22 Probe::Move does not take (ColorRef, number). hint: Probe::Move takes (number, number) or (POINT3) or (POINT3, int)");
  CallPlain("sin", {Text("x")});
  EXPECT_EQ(TakeError(), "22 sin does not take (String). hint: sin takes (number)");
}

TEST_F(DevhostCallTest, UnknownNamesAreErrors) {
  CalledBy("Jump", {});
  EXPECT_EQ(TakeError(), "21 There is no method \"Jump\" in class Probe.");
  CalledBy("paint", {});
  EXPECT_EQ(TakeError(), "21 There is no method \"paint\" in class Probe. hint: did you mean Probe::Paint?");
  CalledBy("CalBlack", {});
  EXPECT_EQ(TakeError(), "21 There is no method \"CalBlack\" in class Probe. hint: did you mean Probe::CallBack?");
  Call(Variable(1), "Move");
  EXPECT_EQ(TakeError(), "21 A number has no method \"Move\".");
  NewObject("Nowhere");
  EXPECT_EQ(TakeError(), "21 There is no class \"Nowhere\".");
  NewObject("Prob");
  EXPECT_EQ(TakeError(), "21 There is no class \"Prob\". hint: did you mean Probe?");
  NewObject("");
  EXPECT_EQ(TakeError(), "21 There is no class \"\".");
  CallPlain("nowhere");
  EXPECT_EQ(TakeError(), "21 There is no function \"nowhere\".");
}

TEST_F(DevhostCallTest, EmptyRegistersLiePastTheScriptObject) {
  Call(probe, "Touch");
  Call(probe, "Touch", std::vector<Variable>(16, Variable(1)));
}

TEST_F(DevhostCallTest, HandlersCallTheInterpreter) {
  EXPECT_EQ(CalledBy("CallBack", {Variable(4), Variable(5)}), "a3 back 4");
  EXPECT_EQ(TextOf(Call(probe, "MakeAnother")), "POINT3(1, 2, 3)");
  EXPECT_EQ(GetConnector()->GetOwner(), devhost::CurrentProcessor());
}

TEST_F(DevhostCallTest, CompiledTextRunsAsAFunction) {
  Variable program(TVAR_FUNCTION, Name("param FullMatr, LookMatr; return LookMatr->Inverse() * FullMatr;"));
  ASSERT_EQ(devhost::KindOf(program), "function");
  VarRegister matrices[2];
  VarRegister size[2];
  for (VarRegister& count : size) count = 1;
  for (VarRegister& matrix : matrices) devhost::CurrentProcessor()->MakeInstance(matrix, Name("Matrix"), size, 2);
  matrices[0].GetVar()[0][0] = 6.0;
  matrices[1].GetVar()[0][0] = 4.0;
  VarRegister result;
  EXPECT_EQ(devhost::CurrentProcessor()->RunFunction(result, program, matrices, 2), 1);
  EXPECT_EQ(TextOf(result), "[1.5]");
  Variable number(1);
  EXPECT_EQ(devhost::CurrentProcessor()->RunFunction(result, number, nullptr, 0), 0);
  EXPECT_EQ(TakeError(), "20 A number cannot be called.");
}

TEST_F(DevhostCallTest, AFailedConstructorLeavesTheTarget) {
  Variable target(5);
  Variable argument(1);
  EXPECT_FALSE(devhost::Construct(target, "Probe", {&argument, 1}));
  EXPECT_EQ(TextOf(target), "5");
  EXPECT_EQ(TakeError(), "43 The Probe object has no native object: it was not constructed, or is destroyed.");
}

TEST_F(DevhostCallTest, ACopyConstructorTakesItsOwnClassAlone) {
  EXPECT_EQ(devhost::KindOf(NewObject("Probe", {probe})), "Probe");
  NewObject("Probe", {Point()});
  EXPECT_EQ(TakeError(), "22 Probe::Probe does not take (POINT3). hint: Probe::Probe takes () or (number) or (copy)");
}

TEST_F(DevhostCallTest, OperatorMethodsServeCompute) {
  Variable result;
  EXPECT_TRUE(devhost::Compute(result, devhost::Operator::Add, probe, Variable(2)));
  EXPECT_EQ(TextOf(result), "2");
}

TEST_F(DevhostCallTest, AMalformedTableRegistersNothing) {
  static const MethodEntry kBroken[] = {
      {Nothing, "Broken::Broken(void)"}, {Nothing, "Broken::Bad(nmber)"}, {nullptr, nullptr}};
  EXPECT_FALSE(devhost::RegisterMethods(kBroken));
  EXPECT_FALSE(devhost::HasClass("Broken"));
  EXPECT_EQ(TakeError(),
            "25 The method table's row \"Broken::Bad(nmber)\" is malformed: \"nmber\" is not a parameter.");
  static const MethodEntry kHandlerless[] = {{nullptr, "Broken::Broken(void)"}, {nullptr, nullptr}};
  EXPECT_FALSE(devhost::RegisterMethods(kHandlerless));
  EXPECT_EQ(TakeError(), "25 The method table's row \"Broken::Broken(void)\" is malformed: its handler is missing.");
}

TEST_F(DevhostCallTest, SignaturesAreListedInTableOrder) {
  EXPECT_EQ(devhost::SignaturesOf("Probe", "Paint"),
            (std::vector<std::string>{"Probe::Paint(refer object Vector, ...)",
                                      "Probe::Paint(refer object String, boolean)"}));
  EXPECT_EQ(devhost::SignaturesOf("Probe").size(), std::size(kProbeMethods) - 1);
  EXPECT_TRUE(devhost::HasFunction("sin"));
  EXPECT_FALSE(devhost::HasFunction("Move"));
  EXPECT_FALSE(devhost::HasClass(""));
}

TEST_F(DevhostCallTest, ARegisterOfAnotherKindReadsAsZero) {
  devhost::RegisterFrame frame(1);
  Variable point = Point();
  frame.Bind(0, point);
  VarRegister& reg = *frame.Registers();
  EXPECT_EQ(static_cast<float>(reg), 0.0f);
  EXPECT_EQ(static_cast<int>(reg), 0);
  EXPECT_EQ(static_cast<long long>(reg), 0);
  EXPECT_EQ(static_cast<unsigned char*>(reg), nullptr);
  EXPECT_EQ(reg.GetAssID(), nullptr);
  EXPECT_EQ(reg.IsTrue(), 1);
  EXPECT_EQ(static_cast<int>(reg(Name("y"))), 2);
  EXPECT_EQ(static_cast<Variable*>(reg), &point);
}

TEST_F(DevhostCallTest, RegistersHoldResults) {
  VarRegister reg;
  EXPECT_EQ(reg.IsTrue(), 0);
  reg = 2.5f;
  EXPECT_EQ(reg.GetVar().GetType(), TVAR_FLOAT);
  EXPECT_EQ(static_cast<float>(reg), 2.5f);
  reg.SetBool(7);
  EXPECT_EQ(reg.GetVar().GetType(), TVAR_INT32);
  EXPECT_EQ(static_cast<long long>(reg), 1);
}

}  // namespace
