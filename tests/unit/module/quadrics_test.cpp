// Spheres, cylinders and disks through GLU.
#include <string>

#include "tests/unit/support/drawing.h"
#include "tests/unit/support/renderer_states.h"

namespace {

using QuadricsTest = ModuleTest;

constexpr char kSphere[] = "Sphere(number, number, number, number)";
constexpr char kSphereSlices[] = "Sphere(number, number, number, number, int)";
constexpr char kSphereAt[] = "Sphere(refer object POINT3 , number)";
constexpr char kSphereAtSlices[] = "Sphere(refer object POINT3 , number, int)";
constexpr char kCylinder[] = "Cylinder(number, number, number)";
constexpr char kCylinderSteps[] = "Cylinder(number, number, number, int, int)";

// Polygon mode, set-up, the drawing, in which % is the quadric, and its end.
std::string Quadric(const std::string& drawing, const char* polygonMode = kFilled) {
  const std::string handle = NextHandle();
  return polygonMode +
         Lines({"gluNewQuadric()", "gluQuadricDrawStyle(" + handle + ", GLU_FILL)",
                "gluQuadricOrientation(" + handle + ", GLU_OUTSIDE)"}) +
         With(handle, drawing) + "gluDeleteQuadric(" + handle + ")\n";
}

std::string SphereLines(const char* translation, const char* sphere) {
  return Lines({"glMatrixMode(GL_MODELVIEW)", "glPushMatrix()", translation, sphere, "glPopMatrix()"});
}

TEST_F(QuadricsTest, Sphere) {
  Variable renderer = OpenRenderer();
  std::string expected = Quadric(SphereLines("glTranslatef(1, -2, 3.5)", "gluSphere(%, 0.25, 10, 10)"));
  EXPECT_TRUE(IsUntouched(Call(renderer, kSphere, 1, -2, 3.5F, 0.25F)));
  EXPECT_EQ(TakeLog(), expected);
  expected = Quadric(SphereLines("glTranslatef(1, -2, 3.5)", "gluSphere(%, 0.25, 7, 7)"));
  Call(renderer, kSphereSlices, 1, -2, 3.5F, 0.25F, 7);
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(QuadricsTest, SphereAtAPoint) {
  Variable renderer = OpenRenderer();
  const Variable point = Point3(1, -2, 3.5F);
  std::string expected = Quadric(SphereLines("glTranslatef(1, -2, 3.5)", "gluSphere(%, 2, 10, 10)"));
  Call(renderer, kSphereAt, point, 2);
  EXPECT_EQ(TakeLog(), expected);
  expected = Quadric(SphereLines("glTranslatef(1, -2, 3.5)", "gluSphere(%, 2, 30, 30)"));
  Call(renderer, kSphereAtSlices, point, 2, 30);
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(QuadricsTest, RadiiAreSinglePrecision) {
  Variable renderer = OpenRenderer();
  const std::string radius = gl_trace::Format(static_cast<double>(0.1F));
  const std::string expected =
      Quadric(SphereLines("glTranslatef(0, 0, 0)", ("gluSphere(%, " + radius + ", 10, 10)").c_str()));
  Call(renderer, kSphere, 0, 0, 0, Variable(0.1));
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(QuadricsTest, SphereWithAnyOtherNumberOfArgumentsDrawsNothing) {
  Variable renderer = OpenRenderer();
  for (const std::size_t count : {0U, 1U, 6U, 7U}) {
    CallRow(renderer, "Sphere", std::vector<Variable>(count, Variable(1)));
    EXPECT_EQ(TakeLog(), "") << count;
    EXPECT_EQ(devhost::RaisedCount(), 0);
  }
}

TEST_F(QuadricsTest, Cylinder) {
  Variable renderer = OpenRenderer();
  std::string expected = Quadric("gluCylinder(%, 1, 0.5, 3, 10, 10)\n");
  Call(renderer, kCylinder, 1, 0.5F, 3);
  EXPECT_EQ(TakeLog(), expected);
  expected = Quadric("gluCylinder(%, 1, 0.5, 3, 6, 2)\n");
  Call(renderer, kCylinderSteps, 1, 0.5F, 3, 6, 2);
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(QuadricsTest, CylinderTakesStepsOnlyWithFiveArguments) {
  Variable renderer = OpenRenderer();
  for (const std::size_t count : {4U, 6U}) {
    const std::string expected = Quadric("gluCylinder(%, 2, 2, 2, 10, 10)\n");
    CallRow(renderer, "Cylinder", std::vector<Variable>(count, Variable(2)));
    EXPECT_EQ(TakeLog(), expected) << count;
  }
}

TEST_F(QuadricsTest, DiskHasAsManyLoopsAsSlices) {
  Variable renderer = OpenRenderer();
  const std::string expected = Quadric("gluDisk(%, 0.5, 2, 9, 9)\n");
  EXPECT_TRUE(IsUntouched(Call(renderer, "Disk", 0.5F, 2, 9)));
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(QuadricsTest, PartialDiskCutsItsStepsAndSweepsFromItsAngle) {
  Variable renderer = OpenRenderer();
  std::string expected = Quadric("gluPartialDisk(%, 0, 1, 8, 2, 90, 90)\n");
  Call(renderer, "PartialDisk", 0, 1, 8.9F, 2.2F, 90);
  EXPECT_EQ(TakeLog(), expected);
  expected = Quadric("gluPartialDisk(%, 0, 1, -8, 0, -30, -30)\n");
  Call(renderer, "PartialDisk", 0, 1, -8.9F, -0.5F, -30);
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(QuadricsTest, StepsThatNoIntHoldsAreNotUndefined) {
  Variable renderer = OpenRenderer();
  const std::string expected = Quadric("gluPartialDisk(%, 0, 1, -2147483648, -2147483648, 1, 1)\n");
  Call(renderer, "PartialDisk", 0, 1, 1e20F, -1e20F, 1);
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(QuadricsTest, WiredDrawsOutlinesOfFilledQuadrics) {
  Variable renderer = OpenRenderer();
  Call(renderer, "EnableWired", true);
  std::string expected = Quadric(SphereLines("glTranslatef(0, 0, 0)", "gluSphere(%, 1, 10, 10)"), kOutlined);
  Call(renderer, kSphere, 0, 0, 0, 1);
  EXPECT_EQ(TakeLog(), expected);
  expected = Quadric("gluCylinder(%, 1, 1, 1, 10, 10)\n", kOutlined);
  Call(renderer, kCylinder, 1, 1, 1);
  EXPECT_EQ(TakeLog(), expected);
  expected = Quadric("gluDisk(%, 0, 1, 4, 4)\n", kOutlined);
  Call(renderer, "Disk", 0, 1, 4);
  EXPECT_EQ(TakeLog(), expected);
  expected = Quadric("gluPartialDisk(%, 0, 1, 4, 1, 45, 45)\n", kOutlined);
  Call(renderer, "PartialDisk", 0, 1, 4, 1, 45);
  EXPECT_EQ(TakeLog(), expected);
}

void CallAll(Variable& renderer) {
  Call(renderer, kSphere, 0, 0, 0, 1);
  Call(renderer, kCylinder, 1, 1, 1);
  Call(renderer, "Disk", 0, 1, 4);
  Call(renderer, "PartialDisk", 0, 1, 4, 1, 45);
}

TEST_F(QuadricsTest, AQuadricThatCannotBeMadeIsSetUpButNotDrawn) {
  Variable renderer = OpenRenderer();
  recorder::Get().answers.createsQuadrics = false;
  CallAll(renderer);
  const std::string one = kFilled + Lines({"gluNewQuadric()", "gluQuadricDrawStyle(null, GLU_FILL)",
                                           "gluQuadricOrientation(null, GLU_OUTSIDE)"});
  EXPECT_EQ(TakeLog(), one + one + one + one);
  EXPECT_EQ(devhost::RaisedCount(), 0);
}

TEST_F(QuadricsTest, NothingIsDrawnUnlessOpenAndBound) {
  for (Variable& renderer : UndrawableRenderers()) {
    CallAll(renderer);
    EXPECT_EQ(TakeLog(), "");
  }
  EXPECT_EQ(devhost::RaisedCount(), 0);
}

TEST_F(QuadricsTest, AnErrorThatIsPendingDoesNotKeepThemFromDrawing) {
  Variable renderer = OpenRenderer();
  devhost::Raise(99, "before");
  CallAll(renderer);
  const std::string log = TakeLog();
  for (const char* drawing : {"gluSphere(", "gluCylinder(", "gluDisk(", "gluPartialDisk("}) {
    EXPECT_THAT(log, HasSubstr(drawing)) << drawing;
  }
  ExpectError(99, "before");
}

}  // namespace
