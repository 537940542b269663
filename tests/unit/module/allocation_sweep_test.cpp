// Every row of the method table, called again and again with its first, second, ... allocation failing.
#include <algorithm>
#include <string>
#include <vector>

#include "devhost/runtime/signature.h"
#include "module/exports.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/leftovers.h"
#include "tests/unit/support/row_arguments.h"

namespace {

bool Draws(const std::string& log) {
  constexpr const char* kDrawing[] = {"glBegin",     "gluNurbsCurve", "gluNurbsSurface",
                                      "glCallLists", "gluSphere",     "glBitmap"};
  return std::ranges::any_of(kDrawing, [&](const char* call) { return log.find(call) != std::string::npos; });
}

class AllocationSweepTest : public ModuleTest {
 protected:
  // What a new material sends when it is applied, its n-th allocation having failed.
  static std::vector<std::string> LinesOfMaterial(Variable& renderer, const char* row,
                                                  const std::vector<Variable>& args, int n) {
    Variable material = Unjoined("OglMaterial");
    {
      const FailingAllocation failure(n);
      CallRow(material, row, args);
    }
    Call(renderer, "SetMaterial", material);
    std::vector<std::string> lines;
    for (const recorder::Call& call : recorder::Get().calls) lines.push_back(call.Text());
    TakeLog();
    return lines;
  }

  // Calls the row with its n-th allocation failing; false when it has not so many.
  static bool Attempt(const MethodEntry& row, bool isLit, int n) {
    devhost::Signature signature;
    std::string fault;
    EXPECT_TRUE(devhost::ParseSignature(row.signature, signature, fault)) << fault;
    recorder::Get().answers.viewport = {0, 0, 5, 5};
    const std::vector<Variable> args = ArgumentsOf(signature);
    const bool constructs = signature.method == signature.className;
    Variable self = ObjectFor(signature);
    if (isLit && !constructs && signature.className == "TOpenGL") Call(self, "EnableLight", true);
    const std::string name = std::string(row.signature).substr(signature.className.size() + 2);
    bool happened = false;
    {
      const FailingAllocation failure(n);
      CallRow(self, name, args);
      happened = failure.Happened();
    }
    if (happened) ExpectHarmless(signature, isLit);
    devhost::ClearError();
    // Without the object itself nothing is joined; a part of it can be missing.
    if (constructs) EXPECT_EQ(self.GetAssID() == nullptr, happened && n == 1) << row.signature;
    EndWhatBegan(signature, self);
    return happened;
  }

 private:
  // Nothing is drawn, and nothing raised but that a surface's normals do not fit.
  static void ExpectHarmless(const devhost::Signature& signature, bool isLit) {
    const std::string log = TakeLog();
    if (signature.method == "DrawBitmap" && signature.parameters[0].className == "POINT3") {
      // Drawn twice, each time with memory of its own.
      EXPECT_EQ(log.find("glBegin"), log.rfind("glBegin"));
    } else if (isLit && signature.method == "ColorTriangles") {
      // Each colour is a material of its own; one that is not there is not applied.
    } else {
      EXPECT_FALSE(Draws(log)) << signature.method;
    }
    const devhost::Error* error = devhost::PendingError();
    if (error) EXPECT_TRUE(signature.method == "SplineSurface" && error->code == 8) << signature.method << error->text;
  }
};

TEST_F(AllocationSweepTest, EveryRowBearsTheFailureOfEachAllocation) {
  int failures = 0;
  for (const MethodEntry* row = GetMethodTable(nullptr); row->handler; ++row) {
    for (const bool isLit : {false, true}) {
      int n = 1;
      while (Attempt(*row, isLit, n)) ++n;
      failures += n - 1;
      EXPECT_EQ(TakeLeftovers(), "") << row->signature;
    }
  }
  // A batch has up to eight allocations, a material nine, a renderer four.
  EXPECT_GT(failures, 200);
}

TEST_F(AllocationSweepTest, AMaterialAppliesTheComponentsThatItHas) {
  Variable renderer = OpenRenderer();
  const Variable source = NewObject("OglMaterial");
  const Variable color = NewObject("OglColor");
  const std::vector<std::pair<const char*, std::vector<Variable>>> constructors = {
      {"OglMaterial(void)", {}},
      {"OglMaterial(copy)", {source}},
      {"OglMaterial(number, number, number, number)", {Value(1), Value(1), Value(1), Value(1)}},
      {"OglMaterial(refer object OglColor, refer object OglColor, refer object OglColor, refer object OglColor)",
       {color, color, color, color}}};
  for (const auto& [row, args] : constructors) {
    SCOPED_TRACE(row);
    const std::vector<std::string> all = LinesOfMaterial(renderer, row, args, 0);
    ASSERT_EQ(all.size(), 10U);
    for (int n = 0; n < 8; ++n) {
      std::vector<std::string> rest = all;
      rest.erase(rest.begin() + n);
      // The first allocation is the material itself.
      EXPECT_EQ(LinesOfMaterial(renderer, row, args, n + 2), rest) << n;
    }
  }
}

TEST_F(AllocationSweepTest, AColorThatCannotBeMadeIsAnObjectWithoutOne) {
  Variable renderer = OpenRenderer();
  for (const char* getter : {"GetAmbientLightColor", "GetDiffuseLightColor", "GetSpecularLightColor"}) {
    Variable color;
    {
      const FailingAllocation failure(1);
      devhost::Assign(color, Call(renderer, getter));
      EXPECT_TRUE(failure.Happened()) << getter;
    }
    EXPECT_EQ(devhost::KindOf(color), "OglColor") << getter;
    EXPECT_EQ(color.GetAssID(), nullptr) << getter;
    EXPECT_EQ(devhost::RaisedCount(), 0) << getter;
  }
}

}  // namespace
