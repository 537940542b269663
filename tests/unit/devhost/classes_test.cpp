#include <cstdio>

#include "devhost/data/files.h"
#include "tests/unit/support/devhost_fixture.h"

namespace {

using devhost::TextOf;

class DevhostClassesTest : public DevhostTest {
 protected:
  static Variable MatrixOf(std::initializer_list<std::initializer_list<double>> rows) {
    Variable matrix = NewObject(
        "Matrix", {Variable(static_cast<int>(rows.size())), Variable(static_cast<int>(rows.begin()->size()))});
    int r = 0;
    for (const auto& row : rows) {
      int c = 0;
      for (const double entry : row) matrix[r][c++] = entry;
      ++r;
    }
    return matrix;
  }

  static void ExpectEntries(Variable matrix, std::initializer_list<std::initializer_list<double>> rows) {
    ASSERT_EQ(matrix.GetDim(), static_cast<int>(rows.size()));
    int r = 0;
    for (const auto& row : rows) {
      ASSERT_EQ(matrix[r].GetDim(), static_cast<int>(row.size()));
      int c = 0;
      for (const double entry : row) EXPECT_NEAR(static_cast<double>(matrix[r][c++]), entry, 1e-12) << r << ", " << c;
      ++r;
    }
  }
};

TEST_F(DevhostClassesTest, VectorsGrowAndShrink) {
  const Variable vector = NewObject("Vector", {Variable(2)});
  EXPECT_EQ(TextOf(vector), "[nothing, nothing]");
  Call(vector, "Add", {Text("a")});
  Call(vector, "Insert", {Variable(0), Variable(1)});
  EXPECT_EQ(TextOf(vector), "[1, nothing, nothing, a]");
  Call(vector, "Remove", {Variable(1)});
  Variable copy = Call(vector, "Copy");
  Call(vector, "Resize", {Variable(1)});
  EXPECT_EQ(TextOf(vector), "[1]");
  EXPECT_EQ(TextOf(NewObject("Vector", {copy})), "[1, nothing, a]");
  EXPECT_EQ(TextOf(Call(copy, "Size")), "3");
  Call(copy, "Clear");
  EXPECT_EQ(TextOf(copy), "[]");
  EXPECT_EQ(TextOf(NewObject("Vector")), "[]");
  Call(copy, "Remove", {Variable(0)});
  EXPECT_EQ(copy.GetDim(), 0);
  Call(copy, "Insert", {Variable(1), Variable(1)});
  EXPECT_EQ(TakeError(), "20 Index 1 lies outside the Vector.");
}

TEST_F(DevhostClassesTest, AVectorTakesItselfAsElement) {
  Variable vector = Vector({Variable(1)});
  Call(vector, "Add", {vector[0]});
  Call(vector, "Insert", {Variable(0), vector[0]});
  EXPECT_EQ(TextOf(vector), "[1, 1, 1]");
}

TEST_F(DevhostClassesTest, StringsAreBuffers) {
  Variable buffer = NewObject("String", {Variable(3)});
  Call(buffer, "SetByte", {Variable(0), Variable(65)});
  Call(buffer, "SetByte", {Variable(3), Variable(65)});
  EXPECT_EQ(TakeError(), "20 Index 3 lies outside the String of 3 bytes.");
  EXPECT_EQ(TextOf(Call(buffer, "Size")), "3");
  Variable copy = Call(buffer, "Copy");
  Call(buffer, "SetByte", {Variable(0), Variable(66)});
  EXPECT_EQ(copy.GetString()->bytes[0], 'A');
  EXPECT_EQ(buffer.GetString()->bytes[0], 'B');
}

TEST_F(DevhostClassesTest, PointsRectanglesAndColours) {
  EXPECT_EQ(TextOf(NewObject("POINT3", {Variable(1), Variable(2.5), Variable(3)})), "POINT3(1, 2.5, 3)");
  EXPECT_EQ(TextOf(NewObject("POINT3", {NewObject("POINT3", {Variable(1), Variable(2), Variable(3)})})),
            "POINT3(1, 2, 3)");
  Variable rectangle = NewObject("RECT", {Variable(1), Variable(2), Variable(3), Variable(4)});
  EXPECT_EQ(static_cast<int>(rectangle(Name("left"))), 1);
  EXPECT_EQ(static_cast<int>(rectangle(Name("top"))), 2);
  EXPECT_EQ(static_cast<int>(rectangle(Name("right"))), 3);
  EXPECT_EQ(static_cast<int>(rectangle(Name("bottom"))), 4);
  Variable color = NewObject("ColorRef", {Variable(0x12), Variable(0x34), Variable(0x56)});
  EXPECT_EQ(static_cast<int>(color(Name("clrf"))), 0x563412);
  EXPECT_EQ(static_cast<int>(NewObject("ColorRef", {Variable(0xFF8000)})(Name("clrf"))), 0xFF8000);
}

TEST_F(DevhostClassesTest, MatricesInvert) {
  const Variable matrix = MatrixOf({{0, 2, 0, 5}, {-1, 0, 0, 6}, {0, 0, 4, 7}, {0, 0, 0, 1}});
  const Variable inverse = Call(matrix, "Inverse");
  ExpectEntries(inverse, {{0, -1, 0, 6}, {0.5, 0, 0, -2.5}, {0, 0, 0.25, -1.75}, {0, 0, 0, 1}});
  ExpectEntries(Call(inverse, "*", {matrix}), {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}});
}

TEST_F(DevhostClassesTest, MatricesOfMixedMagnitudeInvert) {
  ExpectEntries(Call(MatrixOf({{1e-20, 0}, {0, 1e20}}), "Inverse"), {{1e20, 0}, {0, 1e-20}});
}

TEST_F(DevhostClassesTest, SingularMatricesAreRefused) {
  for (const Variable& matrix : {MatrixOf({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}), MatrixOf({{1, 0}, {0, 0}})}) {
    Call(matrix, "Inverse");
    EXPECT_EQ(TakeError(), "20 The matrix is singular and has no inverse.");
  }
  Call(MatrixOf({{1, 2}}), "Inverse");
  EXPECT_EQ(TakeError(), "20 A Matrix of 1 x 2 has no inverse: it is not square.");
}

TEST_F(DevhostClassesTest, MatricesMultiply) {
  ExpectEntries(Call(MatrixOf({{1, 2}, {3, 4}}), "*", {MatrixOf({{0, 1}, {1, 0}})}), {{2, 1}, {4, 3}});
  ExpectEntries(Call(MatrixOf({{1, 2}, {3, 4}}), "*", {Variable(2)}), {{2, 4}, {6, 8}});
  ExpectEntries(Call(MatrixOf({{1, 2}, {3, 4}}), "Transpose"), {{1, 3}, {2, 4}});
  Call(MatrixOf({{1, 2}}), "*", {MatrixOf({{1, 2}})});
  EXPECT_EQ(TakeError(), "20 Matrices of 1 x 2 and 1 x 2 cannot be multiplied.");
}

TEST_F(DevhostClassesTest, TransformationsMovePoints) {
  const Variable x = NewObject("POINT3", {Variable(1), Variable(0), Variable(0)});
  const auto number = [](double value) { return Variable(value); };
  EXPECT_EQ(TextOf(Call(CallPlain("TranslationMatrix", {number(1), number(2), number(3)}), "*", {x})),
            "POINT3(2, 2, 3)");
  EXPECT_EQ(TextOf(Call(CallPlain("ScaleMatrix", {number(4), number(2), number(3)}), "*", {x})), "POINT3(4, 0, 0)");
  Variable turned = Call(CallPlain("RotationMatrix", {number(0), number(0), number(2), number(90)}), "*", {x});
  EXPECT_NEAR(static_cast<double>(turned(Name("x"))), 0, 1e-12);
  EXPECT_NEAR(static_cast<double>(turned(Name("y"))), 1, 1e-12);
  CallPlain("RotationMatrix", {number(0), number(0), number(0), number(90)});
  EXPECT_EQ(TakeError(), "20 The axis of a rotation must not be zero.");
}

TEST_F(DevhostClassesTest, MatricesSurviveWhatScriptsDoToThem) {
  NewObject("Matrix", {Variable(0), Variable(4)});
  EXPECT_EQ(TakeError(), "20 A Matrix of 0 x 4 cannot be made.");
  Variable matrix = MatrixOf({{1, 2}, {3, 4}});
  EXPECT_EQ(TextOf(matrix), "[1, 2]\n[3, 4]");
  Variable copy = NewObject("Matrix", {matrix});
  matrix[1] = 5;
  Call(matrix, "Inverse");
  EXPECT_EQ(TakeError(), "20 The rows of the Matrix differ in length.");
  ExpectEntries(copy, {{1, 2}, {3, 4}});
  copy[0][0] = Name("x");
  Call(copy, "Inverse");
  EXPECT_EQ(TakeError(), "20 A number is needed here, not String.");
  const Variable square = NewObject("Matrix", {Variable(2), Variable(2)});
  Call(square, "Identity");
  ExpectEntries(square, {{1, 0}, {0, 1}});
}

TEST_F(DevhostClassesTest, BitmapsGoThroughPng) {
  const std::string path = testing::TempDir() + "devhost_bitmap.png";
  const Variable bitmap = NewObject("MBmp", {Variable(3), Variable(2)});
  Call(bitmap, "SetPixel", {Variable(0), Variable(0), Variable(0x0000FF)});  // red, in the lowest row
  Call(bitmap, "SetPixel", {Variable(2), Variable(1), Variable(0x336699)});
  Call(bitmap, "Save", {Text(path)});
  const Variable loaded = NewObject("MBmp", {Text(path)});
  std::remove(path.c_str());
  EXPECT_EQ(TextOf(Call(loaded, "GetWidth")), "3");
  EXPECT_EQ(TextOf(Call(loaded, "GetHeight")), "2");
  EXPECT_EQ(static_cast<int>(Call(loaded, "GetPixel", {Variable(0), Variable(0)})), 0x0000FF);
  EXPECT_EQ(static_cast<int>(Call(loaded, "GetPixel", {Variable(2), Variable(1)})), 0x336699);
  EXPECT_EQ(static_cast<int>(Call(loaded, "GetPixel", {Variable(1), Variable(1)})), 0);
  EXPECT_TRUE(devhost::Equal(Call(bitmap, "GetDIBits"), Call(loaded, "GetDIBits")));
}

TEST_F(DevhostClassesTest, BitmapBitsAreBlueGreenRedFromTheLowestRow) {
  Variable bits = Text(std::string_view("\1\2\3\4\5\6", 6));
  const Variable bitmap = NewObject("MBmp", {Variable(1), Variable(2), bits});
  EXPECT_EQ(static_cast<int>(Call(bitmap, "GetPixel", {Variable(0), Variable(0)})), 0x010203);
  EXPECT_EQ(static_cast<int>(Call(bitmap, "GetPixel", {Variable(0), Variable(1)})), 0x040506);
  Variable own = Call(bitmap, "GetDIBits");
  own.GetString()->bytes[0] = 9;
  EXPECT_EQ(static_cast<int>(Call(bitmap, "GetPixel", {Variable(0), Variable(0)})), 0x090203);
  EXPECT_EQ(bits.GetString()->bytes[0], 1);
  EXPECT_EQ(static_cast<int>(Call(NewObject("MBmp", {bitmap}), "GetPixel", {Variable(0), Variable(0)})), 0x090203);
}

TEST_F(DevhostClassesTest, BitmapsRefuseWhatIsNone) {
  NewObject("MBmp", {Variable(0), Variable(5)});
  EXPECT_EQ(TakeError(), "20 A bitmap of 0 x 5 pixels cannot be made.");
  NewObject("MBmp", {Variable(100000), Variable(100000)});
  EXPECT_EQ(TakeError(), "20 A bitmap of 100000 x 100000 pixels cannot be made.");
  NewObject("MBmp", {Variable(1), Variable(1), Text("12345")});
  EXPECT_EQ(TakeError(), "20 The bitmap needs 3 bytes of pixels, not 5.");
  const Variable bitmap = NewObject("MBmp", {Variable(1), Variable(1)});
  Call(bitmap, "GetPixel", {Variable(1), Variable(0)});
  EXPECT_EQ(TakeError(), "20 The pixel (1, 0) lies outside the bitmap of 1 x 1.");
  NewObject("MBmp", {Text("no/such/file.png")});
  EXPECT_EQ(TakeError(), "23 no/such/file.png cannot be opened: No such file or directory.");
  Call(bitmap, "Save", {Text("/dev/null/file.png")});
  EXPECT_EQ(TakeError(), "23 /dev/null/file.png cannot be written: Not a directory.");
  for (const char* name : {"file.jpg", "file", "png", ""}) {
    Call(bitmap, "Save", {Text(name)});
    EXPECT_EQ(TakeError(), std::string("23 ") + name +
                               " cannot be written: a picture is saved as PNG, under a name that ends with .png.");
  }
}

TEST_F(DevhostClassesTest, BrokenPngFilesAreNamed) {
  const std::string path = testing::TempDir() + "devhost_broken.png";
  ASSERT_TRUE(devhost::WriteFile(path, "GIF89a"));
  const Variable bitmap = NewObject("MBmp", {Variable(1), Variable(1)});
  Call(bitmap, "Load", {Text(path)});
  EXPECT_EQ(TakeError(), "23 " + path + " cannot be loaded: it is not a PNG file.");
  ASSERT_TRUE(devhost::WriteFile(path, "\x89PNG\r\n\x1a\nbroken"));
  Call(bitmap, "Load", {Text(path)});
  EXPECT_THAT(TakeError(), HasSubstr(path + " cannot be loaded: the PNG is broken or too large ("));
  EXPECT_EQ(TextOf(Call(bitmap, "GetWidth")), "1");
  std::remove(path.c_str());
}

TEST_F(DevhostClassesTest, Mathematics) {
  EXPECT_EQ(TextOf(CallPlain("sqrt", {Variable(9)})), "3");
  EXPECT_EQ(TextOf(CallPlain("atan2", {Variable(0), Variable(1)})), "0");
  EXPECT_EQ(TextOf(CallPlain("abs", {Variable(-4)})), "4");
  EXPECT_EQ(CallPlain("abs", {Variable(-4)}).type, TVAR_INT32);
  EXPECT_EQ(TextOf(CallPlain("min", {Variable(2), Variable(1.5)})), "1.5");
  EXPECT_EQ(TextOf(CallPlain("max", {Variable(2), Variable(1.5)})), "2");
  EXPECT_EQ(TextOf(CallPlain("int", {Variable(-2.7)})), "-2");
  EXPECT_EQ(TextOf(CallPlain("int", {Text("42")})), "42");
  EXPECT_EQ(CallPlain("byte", {Variable(257)}).type, TVAR_BYTE);
  EXPECT_EQ(TextOf(CallPlain("byte", {Variable(257)})), "1");
  EXPECT_EQ(CallPlain("float", {Variable(1)}).type, TVAR_FLOAT);
  CallPlain("double", {Text("two")});
  EXPECT_EQ(TakeError(), "20 \"two\" is not a number.");
  EXPECT_EQ(TextOf(CallPlain("double", {Text(" -2.5e1\t\r\n")})), "-25");
  CallPlain("double", {Text("5x2")});
  EXPECT_EQ(TakeError(), "20 \"5x2\" is not a number.");
  CallPlain("int", {Text("640 480")});
  EXPECT_EQ(TakeError(), "20 \"640 480\" is not a number.");
}

TEST_F(DevhostClassesTest, RandomNumbersRepeatFromTheirSeed) {
  CallPlain("SeedRandom", {Variable(7)});
  const std::string first = TextOf(CallPlain("random"));
  EXPECT_NE(TextOf(CallPlain("random")), first);
  CallPlain("SeedRandom", {Variable(7)});
  EXPECT_EQ(TextOf(CallPlain("random")), first);
  for (int i = 0; i < 1000; ++i) {
    const double value = CallPlain("random");
    EXPECT_GE(value, 0);
    EXPECT_LT(value, 1);
  }
}

TEST_F(DevhostClassesTest, Texts) {
  EXPECT_EQ(TextOf(CallPlain("Length", {Text("abc")})), "3");
  EXPECT_EQ(TextOf(CallPlain("Length", {Vector({Variable(1)})})), "1");
  EXPECT_EQ(TextOf(CallPlain("Substring", {Text("abcdef"), Variable(2), Variable(3)})), "cde");
  EXPECT_EQ(TextOf(CallPlain("Substring", {Text("abc"), Variable(-5), Variable(100)})), "abc");
  EXPECT_EQ(TextOf(CallPlain("Find", {Text("abc"), Text("c")})), "2");
  EXPECT_EQ(TextOf(CallPlain("Find", {Text("abc"), Text("x")})), "-1");
  EXPECT_EQ(TextOf(CallPlain("Split", {Text("a,,b"), Text(",")})), "[a, , b]");
  EXPECT_EQ(TextOf(CallPlain("Text", {Variable(1.0 / 3), Variable(2)})), "0.33");
  EXPECT_EQ(TextOf(CallPlain("Text", {Vector({Variable(1)})})), "[1]");
  CallPlain("Split", {Text("a"), Text("")});
  EXPECT_EQ(TakeError(), "20 The separator of Split must not be empty.");
}

TEST_F(DevhostClassesTest, FilesAsTexts) {
  const std::string path = testing::TempDir() + "devhost_text.txt";
  CallPlain("WriteText", {Text(path), Text("one\ntwo\r\n")});
  EXPECT_EQ(TextOf(CallPlain("ReadText", {Text(path)})), "one\ntwo\r\n");
  std::remove(path.c_str());
  CallPlain("ReadText", {Text(path)});
  EXPECT_EQ(TakeError(), "23 " + path + " cannot be opened: No such file or directory.");
}

TEST_F(DevhostClassesTest, TimeAndMemoryAreMeasured) {
  const double start = CallPlain("Seconds");
  double now = start;
  // Ends, at the latest, when the run of all tests is given up.
  while (now == start) now = CallPlain("Seconds");
  EXPECT_GT(now, start);
  EXPECT_GT(static_cast<double>(CallPlain("MemoryUse")), 100000);
}

}  // namespace
