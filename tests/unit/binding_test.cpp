// From script objects to native ones: construction, destruction, error 43, results.
#include <string>
#include <vector>

#include "classes/color.h"
#include "classes/material.h"
#include "module/exports.h"
#include "render/topengl.h"
#include "tests/unit/fixture.h"
#include "tests/unit/host_calls.h"

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
  EXPECT_NE(TakeLog().find("glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 7)"), std::string::npos);
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

// Required by nothing, but a script can write gl->TOpenGL().
TEST_F(BindingTest, ConstructorCalledAsAMethodReplacesTheNativeObject) {
  for (const std::string name : {"TOpenGL", "OglColor", "OglMaterial"}) {
    Variable object = NewObject(name);
    const void* first = object.GetAssID();
    {
      const FailingAllocation failure(1);
      Call(object, name + "(void)");
      EXPECT_EQ(object.GetAssID(), first) << name;
    }
    Host() = {};
    Call(object, name + "(void)");
    EXPECT_EQ(Host().brokenJoints, 1) << name;
    EXPECT_NE(object.GetAssID(), nullptr) << name;
  }
  Variable renderer = OpenRenderer();
  Call(renderer, "TOpenGL(void)");
  EXPECT_EQ(Call(renderer, "IsOpen").slot.int32, 0);
  TakeLog();
}

}  // namespace
