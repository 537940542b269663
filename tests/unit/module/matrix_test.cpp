// The model-view matrix: transforms, its stack, and loading it from the host's Matrix objects.
#include <string>
#include <vector>

#include "render/topengl.h"
#include "tests/unit/support/fixture.h"

namespace {

using MatrixTest = ModuleTest;

constexpr char kModelView[] = "glMatrixMode(GL_MODELVIEW)";
// Column by column, as OpenGL has it.
constexpr char kCountingCall[] = "glMultMatrixd({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16})";

struct MatrixCall {
  const char* row;
  std::vector<Variable> arguments;
};

std::vector<MatrixCall> CallsThatNeedAContext() {
  const Variable one(1.0F);
  const Variable point = Point3(1, 2, 3);
  return {{"PushModelMatrix", {}},      {"PopModelMatrix", {}},         {"Rotate", {one, one, one, one}},
          {"Rotate", {point, one}},     {"Translate", {one, one, one}}, {"Translate", {point}},
          {"SetScale", {one, one, one}}};
}

TEST_F(MatrixTest, TranslateTakesNumbersOrAPoint) {
  Variable renderer = OpenRenderer();
  Call(renderer, "Translate(number, number, number)", 1.5F, -2.0F, 3.25F);
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glTranslatef(1.5, -2, 3.25)"}));
  Call(renderer, "Translate(refer object POINT3)", Point3(4, 5, -6.5F));
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glTranslatef(4, 5, -6.5)"}));
}

TEST_F(MatrixTest, RotateTakesTheAxisBeforeTheAngle) {
  Variable renderer = OpenRenderer();
  Call(renderer, "Rotate", 0.0F, 0.0F, 1.0F, 90.0F);
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glRotatef(90, 0, 0, 1)"}));
  Call(renderer, "Rotate", 90.0F, 0.0F, 0.0F, 1.0F);
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glRotatef(1, 90, 0, 0)"}));
}

TEST_F(MatrixTest, RotateTakesAPointAsItsAxis) {
  Variable renderer = OpenRenderer();
  Call(renderer, "Rotate(refer object POINT3, number)", Point3(1, 2, 3), -45.5F);
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glRotatef(-45.5, 1, 2, 3)"}));
}

TEST_F(MatrixTest, OnlyTheArgumentCountTellsTheFormsApart) {
  Variable renderer = OpenRenderer();
  const Variable point = Point3(1, 2, 3);
  Call(renderer, "Rotate", point, 45.0F, 7.0F);
  Call(renderer, "Rotate", point, 45.0F, 7.0F, 8.0F, 9.0F);
  const std::string rotation = Lines({kModelView, "glRotatef(45, 1, 2, 3)"});
  EXPECT_EQ(TakeLog(), rotation + rotation);
  Call(renderer, "Translate", point, 7.0F);
  Call(renderer, "Translate", point, 7.0F, 8.0F, 9.0F);
  const std::string translation = Lines({kModelView, "glTranslatef(1, 2, 3)"});
  EXPECT_EQ(TakeLog(), translation + translation);
}

TEST_F(MatrixTest, ScaleHasThreeFactors) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetScale", 2.0F, 0.5F, -1.0F);
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glScalef(2, 0.5, -1)"}));
}

TEST_F(MatrixTest, PushAndPopWorkOnTheModelView) {
  Variable renderer = OpenRenderer();
  Call(renderer, "PushModelMatrix");
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glPushMatrix()"}));
  Call(renderer, "PopModelMatrix");
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glPopMatrix()"}));
}

TEST_F(MatrixTest, LoadIdentityDropsTheViewerToo) {
  Variable renderer = OpenRenderer();
  Call(renderer, "LoadIdentityMatrix");
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glLoadIdentity()"}));
}

TEST_F(MatrixTest, LoadMatrixStartsFromTheStoredViewer) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetViewerPos", 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 0.0F, 2.0F, 0.0F);
  TakeLog();
  Call(renderer, "LoadMatrix", MatrixOf(kCounting));
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glLoadIdentity()", "gluLookAt(1, 2, 3, 4, 5, 6, 0, 1, 0)", kCountingCall}));
}

TEST_F(MatrixTest, MultiplyMatrixMultipliesWhatThereIs) {
  Variable renderer = OpenRenderer();
  Call(renderer, "MultiplyMatrix", MatrixOf(kCounting));
  EXPECT_EQ(TakeLog(), Lines({kModelView, kCountingCall}));
}

TEST_F(MatrixTest, TheTranslationOfAHostMatrixStandsInColumnThree) {
  Variable renderer = OpenRenderer();
  Variable matrix = MatrixOf(kIdentity);
  matrix[0][3] = 7.0;
  matrix[1][3] = 8.0;
  matrix[2][3] = 9.0;
  Call(renderer, "MultiplyMatrix", matrix);
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glMultMatrixd({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 7, 8, 9, 1})"}));
}

TEST_F(MatrixTest, EntriesKeepDoublePrecision) {
  Variable renderer = OpenRenderer();
  Matrix16 fine = kIdentity;
  fine[9] = 0.1;
  fine[14] = 1e300;
  Call(renderer, "MultiplyMatrix", MatrixOf(fine));
  EXPECT_EQ(TakeLog(), Lines({kModelView, Line("glMultMatrixd", std::span<const double>(fine))}));
}

TEST_F(MatrixTest, AMatrixThatIsTooSmallIsTheHostsMatter) {
  Variable renderer = OpenRenderer();
  Variable small = NewObject("Matrix", {Variable(2), Variable(2)});
  small[0][0] = 1.0;
  small[1][1] = 1.0;
  Call(renderer, "MultiplyMatrix", small);
  // What lies outside reads as an empty value, whose conversion the host refuses.
  EXPECT_EQ(devhost::PendingError()->code, devhost::kErrorConversion);
  devhost::ClearError();
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glMultMatrixd({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0})"}));
}

TEST_F(MatrixTest, WithoutAContextTheTransformsAndTheStackDoNothing) {
  Variable renderer = NewRenderer();
  for (const auto& [row, arguments] : CallsThatNeedAContext()) {
    CallRow(renderer, row, arguments);
    EXPECT_EQ(TakeLog(), "") << row;
  }
}

TEST_F(MatrixTest, WithoutAContextLoadingAndMultiplyingGoToOpenGL) {
  Variable renderer = NewRenderer();
  Call(renderer, "LoadIdentityMatrix");
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glLoadIdentity()"}));
  Call(renderer, "LoadMatrix", MatrixOf(kCounting));
  EXPECT_EQ(TakeLog(),
            Lines({kModelView, "glLoadIdentity()", "gluLookAt(0, 0, 1000, 0, 0, 0, 0, 1, 0)", kCountingCall}));
  Call(renderer, "MultiplyMatrix", MatrixOf(kCounting));
  EXPECT_EQ(TakeLog(), Lines({kModelView, kCountingCall}));
}

TEST_F(MatrixTest, AContextThatIsNotBoundIsEnough) {
  Variable renderer = OpenRenderer();
  Call(renderer, "FreeMDC");
  TakeLog();
  for (const auto& [row, arguments] : CallsThatNeedAContext()) {
    CallRow(renderer, row, arguments);
    EXPECT_TRUE(TakeLog().starts_with(kModelView)) << row;
  }
}

TEST_F(MatrixTest, APushOnAClosedRendererDoesNotUnbalanceALaterPop) {
  Variable renderer = NewRenderer();
  Call(renderer, "PushModelMatrix");
  Call(renderer, "Open", NewObject("MDC"));
  TakeLog();
  Call(renderer, "PushModelMatrix");
  Call(renderer, "PopModelMatrix");
  EXPECT_EQ(TakeLog(), Lines({kModelView, "glPushMatrix()", kModelView, "glPopMatrix()"}));
}

}  // namespace
