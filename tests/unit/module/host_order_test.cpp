// What the host is asked, and in which order, where nothing else shows it.
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "tests/unit/support/fake_bitmap.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/handler_registers.h"
#include "tests/unit/support/host_trace.h"
#include "tests/unit/support/value_trace.h"

namespace {

class HostOrderTest : public ModuleTest {
 protected:
  // What a row asks the host for; when `isDeep`, with its reads and writes of values.
  static std::string CallsOf(Variable& object, std::string_view row, const std::vector<Variable>& args, bool isDeep) {
    HandlerRegisters registers(args, object);
    VarRegister result;
    std::map<const Variable*, std::string> names;
    for (int i = 0; i < registers.Count(); ++i) {
      const Variable& value = registers.First()[i];
      names[&value] = "value " + std::to_string(i + 1);
    }
    TakeLog();
    {
      const HostTrace trace(registers.First(), registers.Count(), &result);
      std::optional<ValueTrace> values;
      if (isDeep) values.emplace(names);
      registers.Call(RowOf("TOpenGL", row)->handler, result);
    }
    devhost::ClearError();
    recorder::Get().balance.faults.clear();  // of the end that is required without a run
    return TakeLog();
  }
  static std::string CallsOf(Variable& object, std::string_view row, const std::vector<Variable>& args) {
    return CallsOf(object, row, args, false);
  }
  static std::string ReadsAndWritesOf(Variable& object, std::string_view row, const std::vector<Variable>& args) {
    return CallsOf(object, row, args, true);
  }
  // The reads and writes of values alone, of the object's class.
  static std::string ValuesOf(Variable& object, std::string_view row, const std::vector<Variable>& args) {
    std::istringstream calls(ReadsAndWritesOf(object, row, args));
    std::string values;
    for (std::string line; std::getline(calls, line);) {
      if (line.starts_with("value")) values += line + "\n";
    }
    return values;
  }
};

TEST_F(HostOrderTest, FramePartIsReadBeforeTheRendererIsAskedForAFrame) {
  Variable renderer = NewRenderer();
  EXPECT_EQ(CallsOf(renderer, "GetDIBits", {Value(1), Value(2), Value(3), Value(4)}),
            Lines({"object: GetAssID()", "argument 1: float()", "argument 2: float()", "argument 3: int()",
                   "argument 4: int()"}));
}

TEST_F(HostOrderTest, WithoutPixelsNoPlaceIsRead) {
  Variable renderer = OpenRenderer();
  const Variable bitmap = NewFakeBitmap(1, 1, Variable());
  const std::string asked =
      Lines({"object: GetAssID()", "argument 2: Variable*()", "RunMethod GetWidth(0)", "result: int()",
             "RunMethod GetHeight(0)", "result: int()", "RunMethod GetDIBits(0)", "result: bytes()"});
  EXPECT_EQ(CallsOf(renderer, "PutBitmap", {Point3(1, 2, 3), bitmap}), asked);
  EXPECT_EQ(CallsOf(renderer, "DrawBitmap", {Point3(1, 2, 3), bitmap}), asked);
}

TEST_F(HostOrderTest, WithoutASelectionTheResultIsNotAskedFor) {
  Variable renderer = OpenRenderer();
  EXPECT_EQ(CallsOf(renderer, "EndSelection", {}), "object: GetAssID()\n");
}

TEST_F(HostOrderTest, ResultsAreAsLargeAsAskedEvenBelowZero) {
  Variable renderer = OpenRenderer();
  Call(renderer, "BeginSelection", 1, 2, 3, 4);
  recorder::Get().answers.hits = -1;
  EXPECT_THAT(CallsOf(renderer, "EndSelection", {}), HasSubstr("\nInit(1024, -1)\n"));
  EXPECT_THAT(CallsOf(renderer, "GetDIBits", {Value(0), Value(0), Value(-4), Value(2)}),
              HasSubstr("\nInit(" + std::to_string(TVAR_BYTES) + ", -24)\n"));
}

TEST_F(HostOrderTest, HitRecordsAreWrittenFromFrontToBack) {
  Variable renderer = OpenRenderer();
  Call(renderer, "BeginSelection", 1, 2, 3, 4);
  recorder::Get().answers.hitRecords = {2, 1U << 30, 1U << 31, 7, 8};
  recorder::Get().answers.hits = 1;
  const std::string calls = ReadsAndWritesOf(renderer, "EndSelection", {});
  EXPECT_EQ(calls.substr(calls.find("result: Variable&()")),
            Lines({"result: Variable&()", "Init(1024, 1)", "value: element(0)", "Init(1024, 3)", "value: element(0)",
                   "Init(1024, 2)", "value: element(1)", "value: assign(0.5)", "value: element(2)", "value: assign(1)",
                   "value: element(0)", "value: element(0)", "value: assign(7)", "value: element(0)",
                   "value: element(1)", "value: assign(8)"}));
}

// Whether the last argument is read before the first of the lists in the others is looked at.
bool ReadsArgumentsFirst(const std::string& calls, const std::string& last) {
  const std::size_t argument = calls.find(last);
  return argument != std::string::npos && argument < calls.find("value 1: GetDim()");
}

TEST_F(HostOrderTest, IndexedBatchesReadTheirArgumentsBeforeTheListsInThem) {
  Variable renderer = OpenRenderer();
  const Variable lists = Vector({Numbers(Counting(3))});
  const std::string calls =
      ReadsAndWritesOf(renderer, "TrianglesEx", {lists, lists, Integers({0}), Vector({Variable()})});
  EXPECT_TRUE(ReadsArgumentsFirst(calls, "argument 4: ")) << calls;
  const std::string callsOfMeshes = ReadsAndWritesOf(renderer, "TrianglesExFB", {Vector({}), Integers({}), Vector({})});
  EXPECT_TRUE(ReadsArgumentsFirst(callsOfMeshes, "argument 3: ")) << callsOfMeshes;
}

TEST_F(HostOrderTest, TheFullMatrixIsMadeBeforeTheViewers) {
  Variable renderer = OpenRenderer();
  recorder::Get().answers.modelViews = {kIdentity, kCounting};
  const std::string calls = ReadsAndWritesOf(renderer, "GetMatrix", {});
  EXPECT_EQ(calls.find("value: assign(5)"), calls.rfind("value: assign(5)"));
  EXPECT_LT(calls.find("value: assign(0)"), calls.find("value: assign(5)"));
}

TEST_F(HostOrderTest, WithoutBytesAMaskIsNotAskedForItsRecord) {
  Variable renderer = OpenRenderer();
  const std::vector<Variable> args = {Point3(1, 2, 3), Value(8), Value(1), ByteString({1})};
  EXPECT_THAT(ReadsAndWritesOf(renderer, "Put2bBitmap", args), HasSubstr("value 4: GetString()"));
  const RegisterBytes none(nullptr);
  EXPECT_THAT(ReadsAndWritesOf(renderer, "Put2bBitmap", args), Not(HasSubstr("value 4: GetString()")));
}

// ---- Splines

constexpr char kCurve[] = "SplineCurve2D";
constexpr char kSurface[] =
    "SplineSurface(refer object Vector, refer object Vector, refer object Vector, refer object Vector, "
    "refer object Vector)";

Variable Zeros(int count) { return Numbers(Floats(static_cast<std::size_t>(count))); }

std::string Elements(const std::string& name, int count) {
  std::string lines;
  for (int i = 0; i < count; ++i) lines += name + ": element(" + std::to_string(i) + ")\n";
  return lines;
}

TEST_F(HostOrderTest, CurveIsReadBeforeItsKnots) {
  Variable renderer = OpenRenderer();
  EXPECT_TRUE(ValuesOf(renderer, kCurve, {Zeros(4), Zeros(4), Zeros(8)})
                  .ends_with("value 1: element(3)\nvalue 2: element(3)\n" + Elements("value 3", 8)));
}

TEST_F(HostOrderTest, CurveOfOtherCountsIsAskedForThemAlone) {
  Variable renderer = OpenRenderer();
  EXPECT_EQ(ValuesOf(renderer, kCurve, {Zeros(4), Zeros(5), Zeros(8)}), "value 1: GetDim()\nvalue 2: GetDim()\n");
}

TEST_F(HostOrderTest, SurfaceIsReadBeforeItsKnots) {
  Variable renderer = OpenRenderer();
  const Variable heights = Vector({Zeros(4), Zeros(4), Zeros(4), Zeros(4), Zeros(4)});
  const std::string values = ValuesOf(renderer, kSurface, {Zeros(4), Zeros(5), heights, Zeros(8), Zeros(9)});
  EXPECT_TRUE(values.starts_with("value 1: GetDim()\nvalue 2: GetDim()\nvalue 4: GetDim()\nvalue 5: GetDim()\n"));
  EXPECT_TRUE(
      values.ends_with("value 1: element(3)\nvalue: element(3)\n" + Elements("value 4", 8) + Elements("value 5", 9)));
  // The last questions before the first element is read.
  EXPECT_THAT(values, HasSubstr("value 4: GetDim()\nvalue 5: GetDim()\nvalue 2: element(4)\n"));
}

TEST_F(HostOrderTest, SurfaceOfOtherCountsIsAskedForThemAlone) {
  Variable renderer = OpenRenderer();
  const Variable heights = Vector({Zeros(4)});
  EXPECT_EQ(
      ValuesOf(renderer, kSurface, {Zeros(4), Zeros(5), heights, Zeros(8), Zeros(9)}),
      Lines({"value 1: GetDim()", "value 2: GetDim()", "value 4: GetDim()", "value 5: GetDim()", "value 3: GetDim()"}));
}

// ---- Results

TEST_F(HostOrderTest, ViewportIsWrittenFromLeftToBottom) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetViewPort", 1.0F, 2.0F, 3.0F, 4.0F);
  EXPECT_EQ(ValuesOf(renderer, "GetViewPort", {}),
            Lines({"value: element(0)", "value: assign(1)", "value: element(1)", "value: assign(3)",
                   "value: element(2)", "value: assign(2)", "value: element(3)", "value: assign(4)"}));
}

}  // namespace
