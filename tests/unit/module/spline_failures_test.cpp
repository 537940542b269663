// What can go wrong with splines, and what they do not ask for.
#include <string>
#include <vector>

#include "classes/gl.h"
#include "tests/unit/support/drawing.h"
#include "tests/unit/support/renderer_states.h"

namespace {

using SplineFailuresTest = ModuleTest;

// The splines that each row draws: a curve of four points, a surface of four by four.
struct Spline {
  const char* row;
  int arguments;
  const char* drawing;

  std::vector<Variable> Arguments() const {
    const Variable points = Numbers({0, 1, 2, 3});
    const Variable knots = Numbers({0, 0, 0, 0, 1, 1, 1, 1});
    if (std::string_view(row).starts_with("SplineCurve")) {
      std::vector<Variable> vectors(static_cast<std::size_t>(arguments) - 1, points);
      vectors.push_back(knots);
      return vectors;
    }
    std::vector<Variable> vectors{points, points, Vector({points, points, points, points})};
    if (arguments == 6) vectors.push_back(Numbers(Counting(16)));
    vectors.push_back(knots);
    vectors.push_back(knots);
    return vectors;
  }
};

const Spline kSplines[] = {{"SplineCurve2D", 3, "gluNurbsCurve("},
                           {"SplineCurve3D", 4, "gluNurbsCurve("},
                           {"SplineSurface", 5, "gluNurbsSurface("},
                           {"SplineSurface", 6, "gluNurbsSurface("}};

std::string Name(const Spline& spline) { return std::string(spline.row) + " " + std::to_string(spline.arguments); }

bool Draws(const Spline& spline, const std::string& log) { return log.find(spline.drawing) != std::string::npos; }

TEST_F(SplineFailuresTest, SplinesDoNotAskWhetherTheRendererIsOpen) {
  for (Variable& renderer : UndrawableRenderers()) {
    for (const Spline& spline : kSplines) {
      CallRow(renderer, spline.row, spline.Arguments());
      EXPECT_TRUE(Draws(spline, TakeLog())) << Name(spline);
    }
  }
}

TEST_F(SplineFailuresTest, GluErrorsBecomeModuleErrorsWithTheirText) {
  Variable renderer = OpenRenderer();
  recorder::Get().answers.nurbsError = GLU_NURBS_ERROR3;
  for (const Spline& spline : kSplines) {
    SCOPED_TRACE(Name(spline));
    CallRow(renderer, spline.row, spline.Arguments());
    const std::string log = TakeLog();
    EXPECT_THAT(log, HasSubstr("gluErrorString(" + std::to_string(GLU_NURBS_ERROR3) + ")"));
    EXPECT_TRUE(log.ends_with(")\n")) << log;
    EXPECT_THAT(log, HasSubstr("gluDeleteNurbsRenderer"));
    const devhost::Error* error = devhost::PendingError();
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code, kModuleErrorBase + 6);
    EXPECT_EQ(devhost::ErrorName(error->code), "OGL_NURBS_ERROR");
    EXPECT_THAT(error->text, HasSubstr("GLU error " + std::to_string(GLU_NURBS_ERROR3)));
    // The normals and the points of a surface each report one.
    EXPECT_EQ(devhost::RaisedCount(), spline.arguments == 6 ? 2 : 1);
    devhost::ClearError();
  }
}

TEST_F(SplineFailuresTest, ARendererThatCannotBeMadeGetsItsCallbackButIsNotDrawn) {
  Variable renderer = OpenRenderer();
  recorder::Get().answers.createsNurbs = false;
  for (const Spline& spline : kSplines) {
    CallRow(renderer, spline.row, spline.Arguments());
    EXPECT_EQ(TakeLog(), Lines({"gluNewNurbsRenderer()", "gluNurbsCallback(null, GLU_ERROR)"})) << Name(spline);
    EXPECT_EQ(devhost::RaisedCount(), 0);
  }
}

TEST_F(SplineFailuresTest, WithoutMemoryNothingIsDrawnNorRaised) {
  Variable renderer = OpenRenderer();
  for (const Spline& spline : kSplines) {
    // Knots and controls of a curve; two knot arrays and the controls of a surface.
    const int arrays = spline.arguments < 5 ? 2 : 3;
    for (int n = 1; n <= arrays; ++n) {
      const std::vector<Variable> arguments = spline.Arguments();
      const FailingAllocation failure(n);
      CallRow(renderer, spline.row, arguments);
      EXPECT_TRUE(failure.Happened());
      EXPECT_EQ(TakeLog(), "") << Name(spline) << ", allocation " << n;
      EXPECT_EQ(devhost::RaisedCount(), 0);
    }
  }
}

TEST_F(SplineFailuresTest, WithoutMemoryForTheNormalsTheirCountDoesNotFit) {
  Variable renderer = OpenRenderer();
  const std::vector<Variable> arguments = kSplines[3].Arguments();
  const FailingAllocation failure(4);
  CallRow(renderer, "SplineSurface", arguments);
  EXPECT_TRUE(failure.Happened());
  ExpectError(8, "");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(SplineFailuresTest, ABadElementRaisesItsErrorAndIsDrawnAsTheHostReadsIt) {
  Variable renderer = OpenRenderer();
  for (const Spline& spline : kSplines) {
    std::vector<Variable> arguments = spline.Arguments();
    devhost::Assign(arguments.back()[7], Text("last"));
    CallRow(renderer, spline.row, arguments);
    EXPECT_TRUE(Draws(spline, TakeLog())) << Name(spline);
    const devhost::Error* error = devhost::PendingError();
    ASSERT_TRUE(error) << Name(spline);
    EXPECT_EQ(error->code, devhost::kErrorConversion);
    devhost::ClearError();
  }
}

}  // namespace
