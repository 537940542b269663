// From script objects to native ones: construction, destruction, error 43, results.
#include <string>
#include <vector>

#include "classes/color.h"
#include "classes/material.h"
#include "module/exports.h"
#include "render/topengl.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/handler_registers.h"
#include "tests/unit/support/host_calls.h"
#include "tests/unit/support/host_trace.h"

namespace {

using BindingTest = ModuleTest;

struct Row {
  std::string className;
  std::string name;  // with its parameters
  std::vector<std::string> parameters;

  bool IsConstructor() const { return name.starts_with(className + "("); }
  bool IsDestructor() const { return name.starts_with('~'); }
};

std::vector<Row> Rows() {
  std::vector<Row> rows;
  for (const MethodEntry* row = GetMethodTable(nullptr); row->signature; ++row) {
    const std::string signature = row->signature;
    const std::size_t colons = signature.find("::");
    rows.push_back({signature.substr(0, colons), signature.substr(colons + 2), ParametersOf(signature)});
  }
  return rows;
}

// An argument of this kind; `object` is what stands for each object.
Variable Argument(const std::string& kind, const Variable& object) {
  if (kind == "number") return Variable(2.0F);
  return kind.find(' ') != std::string::npos ? object : Variable(1);
}

// Arguments of the kinds that a row lists.
std::vector<Variable> Arguments(const Row& row, const Variable& object) {
  std::vector<Variable> args;
  for (const std::string& parameter : row.parameters) {
    if (parameter != "...") args.push_back(Argument(parameter, object));
  }
  return args;
}

TEST_F(BindingTest, MethodsOfAnObjectWithoutNativeRaise43AndDoNothing) {
  int methods = 0;
  for (const Row& row : Rows()) {
    if (row.IsConstructor() || row.IsDestructor()) continue;
    SCOPED_TRACE(row.className + "::" + row.name);
    Variable object = Unjoined(row.className);
    EXPECT_TRUE(IsUntouched(CallRow(object, row.name, Arguments(row, NewObject(row.className)))));
    ExpectNoNative(row.className);
    EXPECT_EQ(TakeLog(), "");
    ++methods;
  }
  EXPECT_GT(methods, 60);
}

TEST_F(BindingTest, DestructorOfAnObjectWithoutNativeIsSilent) {
  for (const char* name : {"TOpenGL", "OglColor", "OglMaterial"}) {
    Variable object = Unjoined(name);
    EXPECT_TRUE(IsUntouched(Call(object, "~" + std::string(name))));
    EXPECT_EQ(devhost::RaisedCount(), 0) << name;
  }
}

TEST_F(BindingTest, DestructorTakesTheNativeAway) {
  for (const char* name : {"TOpenGL", "OglColor", "OglMaterial"}) {
    Variable object = NewObject(name);
    EXPECT_NE(object.GetAssID(), nullptr) << name;
    Call(object, "~" + std::string(name));
    EXPECT_EQ(object.GetAssID(), nullptr) << name;
  }
}

// The handler does not leave it to the native object's own end.
TEST_F(BindingTest, DestructorBreaksTheJoint) {
  for (const char* name : {"TOpenGL", "OglColor", "OglMaterial"}) {
    Variable object = NewObject(name);
    Host() = {};
    Call(object, "~" + std::string(name));
    EXPECT_EQ(Host().brokenJoints, 1) << name;
  }
}

TEST_F(BindingTest, MethodAfterTheDestructorRaises43) {
  Variable renderer = NewRenderer();
  Call(renderer, "~TOpenGL");
  Call(renderer, "Clear");
  ExpectNoNative("TOpenGL");
}

// Rows that first take an object of the class: without its native object they raise 43.
void ExpectArgumentWithoutNativeRaises(const std::string& className, int rowCount) {
  int rows = 0;
  for (const Row& row : Rows()) {
    if (row.parameters.empty() || row.parameters[0] != "refer object " + className) continue;
    SCOPED_TRACE(row.className + "::" + row.name);
    Variable object = row.IsConstructor() ? Unjoined(row.className) : NewObject(row.className);
    TakeLog();
    EXPECT_TRUE(IsUntouched(CallRow(object, row.name, Arguments(row, Unjoined(className)))));
    ExpectNoNative(className);
    EXPECT_EQ(TakeLog(), "");
    if (row.IsConstructor()) EXPECT_EQ(object.GetAssID(), nullptr);
    ++rows;
  }
  EXPECT_EQ(rows, rowCount);
}

TEST_F(BindingTest, ColorArgumentWithoutNativeRaises43) { ExpectArgumentWithoutNativeRaises("OglColor", 11); }
TEST_F(BindingTest, MaterialArgumentWithoutNativeRaises43) { ExpectArgumentWithoutNativeRaises("OglMaterial", 1); }

TEST_F(BindingTest, CopyOfAnObjectWithoutNativeRaises43AndCreatesNothing) {
  for (const std::string name : {"OglColor", "OglMaterial"}) {
    Variable object = Unjoined(name);
    Call(object, name + "(copy)", Unjoined(name));
    ExpectNoNative(name);
    EXPECT_EQ(object.GetAssID(), nullptr);
  }
}

TEST_F(BindingTest, OwnMissingNativeIsReportedBeforeTheArguments) {
  Variable renderer = Unjoined("TOpenGL");
  Call(renderer, "SetClearColor", Unjoined("OglColor"));
  ExpectNoNative("TOpenGL");
  Call(renderer, "SetMaterial", Unjoined("OglMaterial"));
  ExpectNoNative("TOpenGL");
}

// What the constructor of the row takes; where it takes colours, the given one.
std::vector<Variable> ConstructorArguments(const Row& row, const Variable& color) {
  if (row.parameters == std::vector<std::string>{"copy"}) return {NewObject(row.className)};
  const bool reads = row.parameters == std::vector<std::string>{"refer object ColorRef"};
  return Arguments(row, reads ? ColorRef(5) : color);
}

TEST_F(BindingTest, ConstructorsJoinANewNative) {
  const Variable color = NewObject("OglColor");
  for (const Row& row : Rows()) {
    if (!row.IsConstructor()) continue;
    SCOPED_TRACE(row.name);
    Variable object = Unjoined(row.className);
    const std::vector<Variable> args = ConstructorArguments(row, color);
    EXPECT_TRUE(IsUntouched(CallRow(object, row.name, args)));
    EXPECT_NE(object.GetAssID(), nullptr);
  }
}

TEST_F(BindingTest, ConstructorWithoutMemoryJoinsNothingAndRaisesNothing) {
  const Variable color = NewObject("OglColor");
  for (const Row& row : Rows()) {
    if (!row.IsConstructor()) continue;
    SCOPED_TRACE(row.name);
    const std::vector<Variable> args = ConstructorArguments(row, color);
    Variable object = Unjoined(row.className);
    const FailingAllocation failure(1);
    CallRow(object, row.name, args);
    EXPECT_TRUE(failure.Happened());
    EXPECT_EQ(object.GetAssID(), nullptr);
    EXPECT_EQ(devhost::RaisedCount(), 0);
  }
  Variable renderer = Unjoined("TOpenGL");
  Call(renderer, "IsOpen");
  ExpectNoNative("TOpenGL");
}

TEST_F(BindingTest, MethodsWithoutResultLeaveTheResultAlone) {
  Variable renderer = NewRenderer();
  EXPECT_TRUE(IsUntouched(Call(renderer, "EnableWired", true)));
  EXPECT_TRUE(IsUntouched(Call(renderer, "SetViewPort", 1.0F, 2.0F, 3.0F, 4.0F)));
  EXPECT_TRUE(IsUntouched(Call(renderer, "SetSpot", 1.0F)));
  EXPECT_TRUE(IsUntouched(Call(renderer, "Clear")));
  EXPECT_TRUE(IsUntouched(Call(renderer, "Triangles(refer object Vector)", Numbers(Counting(3)))));
  Variable color = NewObject("OglColor");
  EXPECT_TRUE(IsUntouched(Call(color, "*=", 2.0F)));
  Variable material = NewObject("OglMaterial");
  EXPECT_TRUE(IsUntouched(Call(material, "SetShininess", 2.0F)));
}

TEST_F(BindingTest, NumberResultsAreFloats) {
  Variable renderer = NewRenderer();
  Variable spot = Call(renderer, "GetSpot");
  EXPECT_EQ(spot.GetType(), TVAR_FLOAT);
  EXPECT_EQ(static_cast<float>(spot), 180.0F);
}

TEST_F(BindingTest, FlagsKeepTheIntegerThatTheyWereGiven) {
  TOpenGL renderer;
  renderer.EnableWired(static_cast<Flag>(5));
  EXPECT_EQ(static_cast<int>(renderer.IsWired()), 5);
  renderer.GetLights().SetTwoSide(static_cast<Flag>(7));
  EXPECT_EQ(static_cast<int>(renderer.GetLights().GetTwoSide()), 7);
  renderer.GetLights().Enable();
  EXPECT_THAT(TakeLog(), HasSubstr("glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 7)"));
}

TEST_F(BindingTest, NativeClassesKeepTheirLayout) {
  // The host's base takes 24 bytes; the virtual destructor adds none.
  EXPECT_EQ(sizeof(OGLColor), 24U + 4 * sizeof(float));
  EXPECT_EQ(sizeof(OGLMaterialColor), sizeof(OGLColor) + 2 * sizeof(unsigned));
  const OGLColor color(1, 2, 3, 4);
  EXPECT_EQ(color.Components()[3], 4.0F);
}

TEST_F(BindingTest, ANativeObjectOfAnotherClassCountsAsNone) {
  Variable renderer = OpenRenderer();
  for (const Variable& other : {NewRenderer(), NewObject("OglMaterial")}) {
    Call(renderer, "SetColor(refer object OglColor)", other);
    ExpectNoNative("OglColor");
  }
  Call(renderer, "SetMaterial", NewColor(1, 2, 3, 4));
  ExpectNoNative("OglMaterial");
  EXPECT_EQ(TakeLog(), "");
}

// What the module asks of the host while a row is called.
std::string HostLog(const Variable& object, const std::string& name, const std::vector<Variable>& args) {
  const MethodEntry* row = RowOf(devhost::KindOf(object), name);
  HandlerRegisters registers(args, object);
  VarRegister result;
  TakeLog();
  {
    const HostTrace trace(registers.First(), registers.Count(), &result);
    registers.Call(row->handler, result);
  }
  return TakeLog();
}

// A constructor may be called on an object that has a native object: the host's copy of one, for instance.
TEST_F(BindingTest, ConstructorsAskNothingOfTheScriptObjectAndReplaceNothingInIt) {
  const Variable source = NewColor(1, 2, 3, 4);
  const Variable object = Unjoined("OglColor");
  EXPECT_EQ(HostLog(object, "OglColor(void)", {}), Lines({"object: Variable*()", "TalqAss(0)", "Join()"}));
  auto* const first = NativeOf<OGLColor>(object);
  Host() = {};
  EXPECT_EQ(HostLog(object, "OglColor(copy)", {source}),
            Lines({"object: Variable*()", "argument 1: GetAssID()", "TalqAss(0)", "Join()"}));
  EXPECT_EQ(Host().brokenJoints, 0);
  EXPECT_NE(NativeOf<OGLColor>(object), first);
  delete first;
}

TEST_F(BindingTest, TheDefaultMaterialIsMadeForTheObjectThatWasReadBefore) {
  const std::string log = HostLog(Unjoined("OglMaterial"), "OglMaterial(void)", {});
  EXPECT_TRUE(log.starts_with("object: Variable*()\nTalqAss(0)\n")) << log;
}

TEST_F(BindingTest, AllFourColorsAreFetchedBeforeOneIsTested) {
  const Variable none = Unjoined("OglColor");
  EXPECT_EQ(HostLog(Unjoined("OglMaterial"),
                    "OglMaterial(refer object OglColor, refer object OglColor, refer object OglColor, refer object "
                    "OglColor)",
                    {none, none, none, none}),
            Lines({"object: Variable*()", "argument 1: GetAssID()", "argument 2: GetAssID()", "argument 3: GetAssID()",
                   "argument 4: GetAssID()"}));
  ExpectNoNative("OglColor");
}

TEST_F(BindingTest, NothingIsMadeBeforeTheRendererIsKnown) {
  const std::vector<Variable> numbers(4, Variable(1.0F));
  for (const char* setter : {"SetClearColor", "SetAmbientLightColor", "SetFogColor", "SetColor"}) {
    EXPECT_EQ(HostLog(Unjoined("TOpenGL"), setter, numbers), Lines({"object: GetAssID()"})) << setter;
    ExpectNoNative("TOpenGL");
  }
}

TEST_F(BindingTest, OnlyTheClearColorIsSetThroughATemporaryOne) {
  const std::vector<Variable> numbers(3, Variable(1.0F));
  const std::string reads =
      Lines({"object: GetAssID()", "argument 1: float()", "argument 2: float()", "argument 3: float()"});
  EXPECT_EQ(HostLog(NewRenderer(), "SetClearColor", numbers), reads + "TalqAss(0)\n~TalqAss(0)\n");
  for (const char* setter : {"SetAmbientLightColor", "SetDiffuseLightColor", "SetSpecularLightColor", "SetFogColor"}) {
    EXPECT_EQ(HostLog(NewRenderer(), setter, numbers), reads) << setter;
  }
}

TEST_F(BindingTest, OpeningFindsTheRendererThroughItsValue) {
  for (const char* method : {"Open", "OpenBitmap", "BindMDC"}) {
    const std::string log = HostLog(Unjoined("TOpenGL"), method, {NewObject("MDC")});
    EXPECT_EQ(log, Lines({"object: Variable*()", "GetAssID()"})) << method;
    ExpectNoNative("TOpenGL");
  }
}

TEST_F(BindingTest, RegistersOfAnInstanceAreMadeOnceForAll) {
  EXPECT_EQ(HostLog(NewRenderer(), "GetViewerPos", {}),
            Lines({"object: GetAssID()", "result: Variable&()", "Init(1024, 3)", "register: VarRegister()",
                   "register: VarRegister()", "register: VarRegister()", "MakeInstance POINT3(3)",
                   "MakeInstance POINT3(3)", "MakeInstance POINT3(3)"}));
  recorder::Get().answers.modelViews = {kIdentity, kIdentity};
  const std::string log = HostLog(OpenRenderer(), "GetMatrix", {});
  EXPECT_TRUE(log.ends_with(
      Lines({"glPopMatrix()", "register: VarRegister()", "register: VarRegister()", "register: VarRegister()",
             "register: VarRegister()", "register: Variable&()", "MakeInstance Matrix(2)", "register: Variable&()",
             "MakeInstance Matrix(2)", "RunFunction(2)"})))
      << log;
}

TEST_F(BindingTest, TheListOfTheVersionIsThereBeforeOpenGLIsAsked) {
  EXPECT_EQ(HostLog(NewRenderer(), "GetVersion", {}),
            Lines({"object: GetAssID()", "result: Variable&()", "Init(1024, 4)", "glGetString(GL_VENDOR)",
                   "glGetString(GL_RENDERER)", "glGetString(GL_VERSION)", "glGetString(GL_EXTENSIONS)"}));
}

TEST_F(BindingTest, AProductTakesTheDefaultColorsPlace) {
  EXPECT_EQ(HostLog(NewColor(1, 2, 3, 4), "*", {Variable(2.0F)}),
            Lines({"object: GetAssID()", "argument 1: float()", "TalqAss(0)", "result: Variable&()",
                   "MakeInstance OglColor(0)", "result: GetAssID()", "~TalqAss(1)", "Join()"}));
}

}  // namespace
