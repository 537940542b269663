// Every row of the method table, called again and again with its first, second, ... allocation failing.
#include <algorithm>
#include <string>
#include <vector>

#include "devhost/signature.h"
#include "module/exports.h"
#include "tests/unit/drawing.h"
#include "tests/unit/fixture.h"

namespace {

constexpr int kPoints = 12;  // fits triangles, quads and strips
constexpr int kControls = 4;

Variable Grid(int rows, int columns) {
  return Vector(
      std::vector<Variable>(static_cast<std::size_t>(rows), Numbers(Floats(static_cast<std::size_t>(columns)))));
}

// The Vectors that a method takes, in order.
std::vector<Variable> VectorsOf(const devhost::Signature& signature) {
  const Variable batch = Numbers(Counting(kPoints));
  const Variable controls = Numbers(Floats(kControls));
  const Variable knots = Numbers(Floats(kControls + 4));
  const Variable lists = Vector({batch, batch});
  const Variable materials = Vector({NewObject("OglMaterial")});
  if (signature.method == "TrianglesEx") return {lists, lists, Integers({0, 5}), materials};
  if (signature.method == "TrianglesExFB") return {Vector({Point3(1, 2, 3)}), Integers({0}), materials};
  if (signature.method == "CallLists") return {Integers({1, 2})};
  if (signature.method == "SplineCurve2D") return {controls, controls, knots};
  if (signature.method == "SplineCurve3D") return {controls, controls, controls, knots};
  if (signature.method != "SplineSurface") return {batch, batch, batch};
  if (signature.parameters.size() == 5) return {controls, controls, Grid(kControls, kControls), knots, knots};
  const Variable normals = Numbers(Counting(kControls * kControls));
  return {controls, controls, Grid(kControls, kControls), normals, knots, knots};
}

Variable ObjectArgument(std::string_view className) {
  if (className == "POINT3") return Point3(1, 2, 3);
  if (className == "String") return ByteString(std::vector<unsigned char>(64));
  if (className == "ColorRef") return ColorRef(0x102030);
  if (className == "MBmp") return NewObject("MBmp", {Variable(2), Variable(2)});
  if (className == "Matrix") return NewObject("Matrix", {Variable(4), Variable(4)});
  return NewObject(className);
}

std::vector<Variable> ArgumentsOf(const devhost::Signature& signature) {
  const std::vector<Variable> vectors = VectorsOf(signature);
  auto vector = vectors.begin();
  std::vector<Variable> args;
  for (const devhost::Parameter& parameter : signature.parameters) {
    const bool object = !parameter.className.empty() || parameter.kind == devhost::ParameterKind::kCopy;
    if (!object) {
      args.push_back(Value(5));
    } else if (parameter.className == "Vector") {
      args.push_back(*vector++);
    } else {
      args.push_back(ObjectArgument(parameter.className.empty() ? signature.className : parameter.className));
    }
  }
  return args;
}

bool Draws(const std::string& log) {
  constexpr const char* kDrawing[] = {"glBegin", "gluNurbsCurve", "gluNurbsSurface", "glCallLists", "gluSphere"};
  return std::ranges::any_of(kDrawing, [&](const char* call) { return log.find(call) != std::string::npos; });
}

class AllocationSweepTest : public ModuleTest {
 protected:
  // An object of the class on which all methods do their work.
  static Variable Ready(std::string_view className) {
    return className == "TOpenGL" ? OpenRenderer() : NewObject(className);
  }

  // Calls the row with its n-th allocation failing; false when it has not so many.
  static bool Attempt(const MethodEntry& row, int n) {
    devhost::Signature signature;
    std::string fault;
    EXPECT_TRUE(devhost::ParseSignature(row.signature, signature, fault)) << fault;
    recorder::Get().answers.viewport = {0, 0, 5, 5};
    const std::vector<Variable> args = ArgumentsOf(signature);
    const bool constructs = signature.method == signature.className;
    Variable self = constructs ? Unjoined(signature.className) : Ready(signature.className);
    const std::string name = std::string(row.signature).substr(signature.className.size() + 2);
    bool happened = false;
    {
      const FailingAllocation failure(n);
      CallRow(self, name, args);
      happened = failure.Happened();
    }
    if (happened) ExpectHarmless(signature);
    devhost::ClearError();
    // Without the object itself nothing is joined; a part of it can be missing.
    if (constructs) EXPECT_EQ(self.GetAssID() == nullptr, happened && n == 1) << row.signature;
    if (signature.method == "BeginSelection") Call(self, "EndSelection");
    // Without a run, OpenGL complains of the required end.
    if (signature.method == "TrianglesExFB") recorder::Get().balance.faults.clear();
    TakeLog();
    return happened;
  }

 private:
  // Nothing is drawn, and nothing raised but that a surface's normals do not fit.
  static void ExpectHarmless(const devhost::Signature& signature) {
    // Bitmaps at a POINT3 are drawn twice, each time with memory of its own.
    const bool drawsAgain = signature.method == "DrawBitmap" && signature.parameters[0].className == "POINT3";
    if (!drawsAgain) EXPECT_FALSE(Draws(TakeLog())) << signature.method;
    const devhost::Error* error = devhost::PendingError();
    if (error) EXPECT_TRUE(signature.method == "SplineSurface" && error->code == 8) << signature.method << error->text;
  }
};

TEST_F(AllocationSweepTest, EveryRowBearsTheFailureOfEachAllocation) {
  int failures = 0;
  for (const MethodEntry* row = GetMethodTable(nullptr); row->handler; ++row) {
    int n = 1;
    while (Attempt(*row, n)) ++n;
    failures += n - 1;
  }
  // A batch has up to eight allocations, a material nine, a renderer four.
  EXPECT_GT(failures, 100);
}

TEST_F(AllocationSweepTest, AMaterialAppliesTheComponentsThatItHas) {
  Variable renderer = OpenRenderer();
  for (int n = 2; n <= 9; ++n) {
    Variable material = Unjoined("OglMaterial");
    {
      const FailingAllocation failure(n);
      Call(material, "OglMaterial(void)");
      EXPECT_TRUE(failure.Happened());
    }
    Call(renderer, "SetMaterial", material);
    const auto& calls = recorder::Get().calls;
    EXPECT_EQ(std::ranges::count(calls, "glMaterialfv", &recorder::Call::name), 7);
    EXPECT_EQ(std::ranges::count(calls, "glMaterialf", &recorder::Call::name), 2);
    TakeLog();
  }
}

}  // namespace
