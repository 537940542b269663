// Viewport, viewer and projection.
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "render/topengl.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/near_variants.h"

namespace {

using ViewTest = ModuleTest;

// The projection as sent for this frustum, given in glFrustum's order.
std::string Projection(float left, float right, float bottom, float top, float zNear, float zFar) {
  return Lines({"glMatrixMode(GL_PROJECTION)", "glLoadIdentity()",
                Line("glFrustum", static_cast<double>(left), static_cast<double>(right), static_cast<double>(bottom),
                     static_cast<double>(top), static_cast<double>(zNear), static_cast<double>(zFar)),
                "glMatrixMode(GL_MODELVIEW)"});
}

std::string DefaultProjection() { return Projection(-200, 200, 200, -200, -200, 200); }

// A renderer that is open on a device with this left and bottom.
Variable OpenOn(int left, int bottom) {
  Device().left = left;
  Device().bottom = bottom;
  return OpenRenderer();
}

// The glViewport line that SetViewPort leads to.
std::string Viewport(Variable& renderer, float left, float top, float right, float bottom) {
  Call(renderer, "SetViewPort", left, top, right, bottom);
  const std::string log = TakeLog();
  return log.substr(0, log.find('\n'));
}

std::vector<Floats> Viewer(Variable& renderer) {
  Variable points = Call(renderer, "GetViewerPos");
  std::vector<Floats> coordinates;
  for (int i = 0; i < points.GetDim(); ++i) coordinates.push_back(CoordinatesOf(points[i]));
  return coordinates;
}

TEST_F(ViewTest, Defaults) {
  Variable renderer = NewRenderer();
  EXPECT_EQ(Viewer(renderer), std::vector<Floats>({{0, 0, 1000}, {0, 0, 0}, {0, 1, 0}}));
  EXPECT_EQ(NumbersOf(Call(renderer, "GetViewPort")), Floats({0, 400, 0, 400}));
}

TEST_F(ViewTest, ViewportIsTurnedIntoBottomUpCoordinates) {
  Variable renderer = OpenOn(0, 300);
  Call(renderer, "SetViewPort", 10.0F, 20.0F, 110.0F, 70.0F);
  EXPECT_EQ(TakeLog(), "glViewport(10, 230, 100, 50)\n" + DefaultProjection());
  EXPECT_EQ(NumbersOf(Call(renderer, "GetViewPort")), Floats({10, 110, 20, 70}));
}

TEST_F(ViewTest, ViewportIsRelativeToTheClientRectanglesLeft) {
  Variable renderer = OpenOn(-7, 1000);
  EXPECT_EQ(Viewport(renderer, 3, 0, 13, 20), "glViewport(-4, 980, 10, 20)");
}

TEST_F(ViewTest, ViewportFractionsAreCutOff) {
  Variable renderer = OpenOn(5, 300);
  EXPECT_EQ(Viewport(renderer, 0.9F, 0, 100.5F, 50), "glViewport(5, 250, 99, 50)");
  // Towards zero: the difference is taken in floats first.
  EXPECT_EQ(Viewport(renderer, -0.9F, 0.5F, 10.0F, 50.9F), "glViewport(5, 250, 10, 50)");
  EXPECT_EQ(Viewport(renderer, -10.7F, 9.9F, -20.9F, -5.5F), "glViewport(-5, 305, -10, -15)");
}

TEST_F(ViewTest, ViewportNumbersThatNoIntegerHoldsWrap) {
  Variable renderer = OpenOn(5, 300);
  const float nan = std::numeric_limits<float>::quiet_NaN();
  // The conversion gives the smallest integer.
  EXPECT_EQ(Viewport(renderer, 1e20F, 0, 0, nan), "glViewport(-2147483643, -2147483348, -2147483648, -2147483648)");
  EXPECT_EQ(Viewport(renderer, -2147483648.0F, 0, -2147483648.0F, 2147483648.0F),
            "glViewport(-2147483643, -2147483348, 0, -2147483648)");
}

TEST_F(ViewTest, ViewerIsNormalisedAndApplied) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetViewerPos", 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 0.0F, 3.0F, 4.0F);
  const double y = 3.0F / 5.0F;
  const double z = 4.0F / 5.0F;
  EXPECT_EQ(TakeLog(), Lines({"glMatrixMode(GL_MODELVIEW)", "glLoadIdentity()",
                              Line("gluLookAt", 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 0.0, y, z)}));
  EXPECT_EQ(Viewer(renderer), std::vector<Floats>({{1, 2, 3}, {4, 5, 6}, {0, 3.0F / 5.0F, 4.0F / 5.0F}}));
}

TEST_F(ViewTest, UpOfLengthTwoIsHalved) {
  Variable renderer = NewRenderer();
  Call(renderer, "SetViewerPos", 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 2.0F, 0.0F);
  EXPECT_EQ(Viewer(renderer)[2], Floats({0, 1, 0}));
}

TEST_F(ViewTest, ZeroUpBecomesTheXAxis) {
  Variable renderer = NewRenderer();
  Call(renderer, "SetViewerPos", 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F);
  EXPECT_EQ(Viewer(renderer)[2], Floats({1, 0, 0}));
}

TEST_F(ViewTest, UpIsNormalisedInSinglePrecision) {
  Variable renderer = NewRenderer();
  Call(renderer, "SetViewerPos", 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 0.1F, 0.7F, -0.3F);
  const float square = 0.1F * 0.1F + 0.7F * 0.7F + 0.3F * 0.3F;
  const float length = std::sqrt(square);
  EXPECT_EQ(Viewer(renderer)[2], Floats({0.1F / length, 0.7F / length, -0.3F / length}));
}

TEST_F(ViewTest, ClippingReachesTheFrustumInTheScriptsOrder) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetClipping", -1.0F, 1.5F, -2.0F, 2.5F, 1.0F, 10.0F);
  EXPECT_EQ(TakeLog(), Projection(-1, 1.5F, -2, 2.5F, 1, 10));
}

TEST_F(ViewTest, ClippingIsNotChecked) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetClipping", 1.0F, 1.0F, 0.0F, 0.0F, -5.0F, -6.0F);
  EXPECT_EQ(TakeLog(), Projection(1, 1, 0, 0, -5, -6));
}

TEST_F(ViewTest, PerspectiveUsesTheRequiredValueOfPi) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetPerspective", 90.0F, 2.0F, 0.0F, 100.0F);
  const float h = std::tan(0.7853975F);
  EXPECT_NEAR(h, 0.9999987F, 1e-7F);
  EXPECT_NE(h, 1.0F);
  EXPECT_EQ(TakeLog(), Projection(-h * 2, h * 2, -h, h, 1, 100));
}

TEST_F(ViewTest, PerspectiveIsComputedInSinglePrecisionFromLeftToRight) {
  const auto half = [](float fovy) { return std::tan(fovy / 180.0F * 3.14159F / 2.0F); };
  const float fovy = TellingArgument(
      half, [](float angle) { return std::tan(angle * 3.14159F / 180.0F / 2.0F); },
      [](float angle) { return std::tan(angle * (1.0F / 180.0F) * 3.14159F / 2.0F); },
      [](double angle) { return std::tan(static_cast<float>(angle / 180 * static_cast<double>(3.14159F) / 2)); },
      [](double angle) { return static_cast<float>(std::tan(angle / 180 * static_cast<double>(3.14159F) / 2)); });
  const auto width = [&](float zNear) { return zNear * half(fovy) * 1.3F; };
  const float zNear = TellingArgument(
      width, [&](float distance) { return distance * (half(fovy) * 1.3F); },
      [&](double distance) {
        return static_cast<float>(distance * static_cast<double>(half(fovy)) * static_cast<double>(1.3F));
      });
  Variable renderer = OpenRenderer();
  Call(renderer, "SetPerspective", fovy, 1.3F, zNear, 55.5F);
  const float h = zNear * half(fovy);
  EXPECT_EQ(TakeLog(), Projection(-h * 1.3F, h * 1.3F, -h, h, zNear, 55.5F));
}

TEST_F(ViewTest, ANearPlaneThatIsNoNumberStays) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  Variable renderer = OpenRenderer();
  Call(renderer, "SetPerspective", 90.0F, 1.0F, kNaN, 100.0F);
  EXPECT_THAT(TakeLog(), HasSubstr(", nan, 100)"));
}

TEST_F(ViewTest, PerspectiveReplacesOnlyANearPlaneThatIsNotPositive) {
  Variable renderer = OpenRenderer();
  const float h = std::tan(0.7853975F);
  Call(renderer, "SetPerspective", 90.0F, 1.0F, -3.0F, -5.0F);
  EXPECT_EQ(TakeLog(), Projection(-h, h, -h, h, 1, -5));
  Call(renderer, "SetPerspective", 90.0F, 1.0F, 0.5F, 0.25F);
  EXPECT_EQ(TakeLog(), Projection(-0.5F * h, 0.5F * h, -0.5F * h, 0.5F * h, 0.5F, 0.25F));
}

TEST_F(ViewTest, SettersOfAClosedRendererOnlyStore) {
  Variable renderer = NewRenderer();
  Call(renderer, "SetViewPort", 1.0F, 2.0F, 3.0F, 4.0F);
  Call(renderer, "SetViewerPos", 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 0.0F, 1.0F, 0.0F);
  Call(renderer, "SetClipping", 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F);
  Call(renderer, "SetPerspective", 90.0F, 1.0F, 1.0F, 2.0F);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(NumbersOf(Call(renderer, "GetViewPort")), Floats({1, 3, 2, 4}));
}

TEST_F(ViewTest, SettersOfAnUnboundRendererStillApply) {
  Variable renderer = OpenRenderer();
  Call(renderer, "FreeMDC");
  TakeLog();
  Call(renderer, "SetViewPort", 0.0F, 0.0F, 10.0F, 20.0F);
  EXPECT_EQ(TakeLog(), "glViewport(16, 460, 10, 20)\n" + DefaultProjection());
}

TEST_F(ViewTest, GettersMakePointObjectsAndNumbers) {
  Variable renderer = NewRenderer();
  Variable points = Call(renderer, "GetViewerPos");
  EXPECT_EQ(points.GetType(), TVAR_ARRAY);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(devhost::KindOf(points[i]), "POINT3");
  Variable rectangle = Call(renderer, "GetViewPort");
  EXPECT_EQ(rectangle.GetType(), TVAR_ARRAY);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(rectangle[i].GetType(), TVAR_FLOAT);
}

TEST_F(ViewTest, ViewerIsTwoPointsAndADirection) {
  TOpenGL renderer;
  OGLPoint eye(0, 0, 0, 0);
  OGLPoint center = eye;
  OGLPoint up = eye;
  const auto expect = [&](const Floats& expectedEye, const Floats& expectedCenter, const Floats& expectedUp) {
    renderer.GetViewer(eye, center, up);
    EXPECT_EQ(Floats({eye.x, eye.y, eye.z, eye.w}), expectedEye);
    EXPECT_EQ(Floats({center.x, center.y, center.z, center.w}), expectedCenter);
    EXPECT_EQ(Floats({up.x, up.y, up.z, up.w}), expectedUp);
  };
  expect({0, 0, 1000, 1}, {0, 0, 0, 1}, {0, 1, 0, 1});
  renderer.SetViewerPos(1, 2, 3, 4, 5, 6, 0, 0, 7);
  expect({1, 2, 3, 1}, {4, 5, 6, 1}, {0, 0, 1, 1});
}

}  // namespace
