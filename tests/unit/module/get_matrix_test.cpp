// Reading the model transform: GetMatrix, and the host's program that computes it.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "render/topengl.h"
#include "tests/unit/support/fixture.h"
#include "tests/unit/support/function_trace.h"

namespace {

using GetMatrixTest = ModuleTest;

// The look-at of a new renderer's viewer.
constexpr Matrix16 kLook = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, -1000, 1};

double Entry(Variable matrix, int row, int column) { return matrix[row][column]; }

// What GetMatrix returns when OpenGL answers with these two matrices.
Variable GetMatrix(Variable& renderer, const Matrix16& full, const Matrix16& look) {
  recorder::Get().answers.modelViews = {full, look};
  return Call(renderer, "GetMatrix");
}

// The calls by which the two matrices are read.
std::string Reading(const std::string& viewer = "gluLookAt(0, 0, 1000, 0, 0, 0, 0, 1, 0)") {
  return Lines({"glMatrixMode(GL_MODELVIEW)", "glPushMatrix()", "glGetDoublev(GL_MODELVIEW_MATRIX)", "glLoadIdentity()",
                viewer, "glGetDoublev(GL_MODELVIEW_MATRIX)", "glPopMatrix()"});
}

TEST_F(GetMatrixTest, ReadsWithTheStoredViewerAndLeavesTheMatrix) {
  Variable renderer = OpenRenderer();
  Call(renderer, "SetViewerPos", 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 0.0F, 2.0F, 0.0F);
  TakeLog();
  const Variable matrix = GetMatrix(renderer, kIdentity, kIdentity);
  EXPECT_EQ(TakeLog(), Reading("gluLookAt(1, 2, 3, 4, 5, 6, 0, 1, 0)"));
  EXPECT_EQ(devhost::KindOf(matrix), "Matrix");
}

TEST_F(GetMatrixTest, PutsColumnsIntoColumns) {
  Variable renderer = OpenRenderer();
  const Variable matrix = GetMatrix(renderer, kCounting, kIdentity);
  EXPECT_EQ(Entry(matrix, 0, 1), 5.0);
  EXPECT_EQ(Entry(matrix, 3, 0), 4.0);
  EXPECT_EQ(EntriesOf(matrix), kCounting);
}

TEST_F(GetMatrixTest, KeepsDoublePrecision) {
  Variable renderer = OpenRenderer();
  Matrix16 fine = kIdentity;
  fine[9] = 0.1;
  fine[14] = 1e300;
  EXPECT_EQ(EntriesOf(GetMatrix(renderer, fine, kIdentity)), fine);
}

TEST_F(GetMatrixTest, MultipliesByTheInverseOfTheLookFromTheLeft) {
  Variable renderer = OpenRenderer();
  // Halves, quarters and eighths the rows; from the right it would be the columns.
  const Matrix16 look = {2, 0, 0, 0, 0, 4, 0, 0, 0, 0, 8, 0, 0, 0, 0, 1};
  const Matrix16 expected = {0.5, 0.5, 0.375, 4, 2.5, 1.5, 0.875, 8, 4.5, 2.5, 1.375, 12, 6.5, 3.5, 1.875, 16};
  EXPECT_EQ(EntriesOf(GetMatrix(renderer, kCounting, look)), expected);
}

TEST_F(GetMatrixTest, RightAfterOpeningIsTheIdentity) {
  Variable renderer = OpenRenderer();
  EXPECT_EQ(EntriesOf(GetMatrix(renderer, kLook, kLook)), kIdentity);
}

TEST_F(GetMatrixTest, AfterATranslationHasItInColumnThree) {
  Variable renderer = OpenRenderer();
  const Matrix16 moved = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, -997, 1};
  const Variable matrix = GetMatrix(renderer, moved, kLook);
  EXPECT_EQ(Entry(matrix, 0, 3), 1.0);
  EXPECT_EQ(Entry(matrix, 1, 3), 2.0);
  EXPECT_EQ(Entry(matrix, 2, 3), 3.0);
}

TEST_F(GetMatrixTest, AMatrixReadIsLoadedBackUnderAnotherViewer) {
  Variable renderer = OpenRenderer();
  const Variable saved = GetMatrix(renderer, kCounting, kIdentity);
  Call(renderer, "SetViewerPos", 9.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F);
  TakeLog();
  Call(renderer, "LoadMatrix", saved);
  EXPECT_EQ(TakeLog(), Lines({"glMatrixMode(GL_MODELVIEW)", "glLoadIdentity()", "gluLookAt(9, 0, 0, 0, 0, 0, 0, 1, 0)",
                              Line("glMultMatrixd", std::span<const double>(kCounting))}));
}

TEST_F(GetMatrixTest, UnansweredReadsYieldZeros) {
  const Variable renderer = NewRenderer();
  Matrix16 full = kCounting;
  Matrix16 look = kCounting;
  NativeOf<TOpenGL>(renderer)->ReadMatrices(full, look);
  EXPECT_EQ(full, Matrix16{});
  EXPECT_EQ(look, Matrix16{});
  TakeLog();
}

TEST_F(GetMatrixTest, WithoutAContextGetMatrixReadsAllTheSame) {
  Variable renderer = NewRenderer();
  const Variable result = Call(renderer, "GetMatrix");
  EXPECT_EQ(TakeLog(), Reading());
  // The matrix of zeros has no inverse, which the program reports.
  ExpectError(devhost::kErrorConversion, "The matrix is singular and has no inverse.");
  EXPECT_EQ(devhost::KindOf(result), "nothing");
}

// Tells on stderr what three calls of GetMatrix compile, of which the first has no renderer.
[[noreturn]] void CallGetMatrixInANewProcess() {
  TraceFunctions();
  Variable object = Unjoined("TOpenGL");
  Call(object, "GetMatrix");
  std::fprintf(stderr, "error %d\n", devhost::PendingError()->code);
  devhost::ClearError();
  for (Variable renderer : {OpenRenderer(), OpenRenderer()}) {
    std::fprintf(stderr, "entry %g\n", Entry(GetMatrix(renderer, kCounting, kIdentity), 0, 3));
  }
  std::exit(0);
}

TEST_F(GetMatrixTest, TheProgramIsMadeOnceByTheFirstCallEvenIfItFailsAndDestroyedAtTheEnd) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const std::string program = "param FullMatr, LookMatr; return LookMatr->Inverse() * FullMatr;\n";
  EXPECT_EXIT(CallGetMatrixInANewProcess(), testing::ExitedWithCode(0),
              testing::Eq("compiled " + program + "error 43\nentry 13\nentry 13\ndestroyed " + program));
}

}  // namespace
