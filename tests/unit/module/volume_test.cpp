// Volumes as display lists of translucent points.
#include <array>
#include <climits>
#include <string>

#include "render/topengl.h"
#include "tests/unit/support/fixture.h"

namespace {

using Table = std::array<unsigned char, 256>;

constexpr float kUnit = 1.0F / 255.0F;

struct Volume {
  int width = 2;
  int height = 3;
  int depth = 4;
  Bytes data{};
  Table red{};
  Table green{};
  Table blue{};
  Table alpha{};
};

class VolumeTest : public ModuleTest {
 protected:
  // Every voxel is visible and has a value, hence a colour, of its own.
  VolumeTest() {
    for (std::size_t i = 0; i < 256; ++i) {
      volume.red[i] = static_cast<unsigned char>(i);
      volume.green[i] = static_cast<unsigned char>(255 - i);
      volume.blue[i] = static_cast<unsigned char>(i / 2);
      volume.alpha[i] = 255;
    }
    for (int voxel = 0; voxel < 24; ++voxel) volume.data.push_back(static_cast<unsigned char>(voxel + 1));
  }

  void SetUp() override {
    ModuleTest::SetUp();
    recorder::SetCurrent(0x1000, 0x77);
  }

  // What building sends between glBegin with its point size and glEnd.
  std::string Points(int mode, int axis, int direction, int step = 1, int threshold = 0) {
    const unsigned list = renderer.BuildVolumePoints(volume.data.data(), volume.width, volume.height, volume.depth,
                                                     volume.red.data(), volume.green.data(), volume.blue.data(),
                                                     volume.alpha.data(), mode, axis, direction, step, threshold);
    EXPECT_EQ(list, 1U);
    const std::string log = TakeLog();
    EXPECT_TRUE(log.starts_with(kFirst)) << log;
    EXPECT_TRUE(log.ends_with(kLast)) << log;
    return log.substr(kFirst.size(), log.size() - kFirst.size() - kLast.size());
  }

  // One indexed voxel's point.
  std::string Point(int x, int y, int z) const {
    const auto value = volume.data[static_cast<std::size_t>(x + volume.width * (y + volume.height * z))];
    return Color(volume.red[value], volume.green[value], volume.blue[value], volume.alpha[value]) + Vertex(x, y, z);
  }
  static std::string Color(int red, int green, int blue, int alpha) {
    const auto unit = [](int byte) { return static_cast<float>(byte) * kUnit; };
    return Line("glColor4f", unit(red), unit(green), unit(blue), unit(alpha)) + "\n";
  }
  std::string Vertex(int x, int y, int z) const {
    const auto centred = [](int at, int size) { return static_cast<float>(at) - static_cast<float>(size) * 0.5F; };
    return Line("glVertex3f", centred(x, volume.width), centred(y, volume.height), centred(z, volume.depth)) + "\n";
  }

  // The point size comes inside begin and end.
  const std::string kFirst = Lines({"glGenLists(1)", "glNewList(1, GL_COMPILE)", "glEnable(GL_DEPTH_TEST)",
                                    "glEnable(GL_BLEND)", "glBegin(GL_POINTS)", "glPointSize(2)"});
  const std::string kLast = Lines({"glEnd()", "glEndList()"});
  Volume volume;
  TOpenGL renderer;
};

TEST_F(VolumeTest, SlicesAlongX) {
  std::string ascending;
  for (int x = 0; x < 2; ++x)
    for (int z = 0; z < 4; ++z)
      for (int y = 0; y < 3; ++y) ascending += Point(x, y, z);
  EXPECT_EQ(Points(1, 0, 0), ascending);
  std::string descending;
  for (int x = 1; x >= 0; --x)
    for (int z = 0; z < 4; ++z)
      for (int y = 0; y < 3; ++y) descending += Point(x, y, z);
  EXPECT_EQ(Points(1, 0, 1), descending);
}

TEST_F(VolumeTest, OneSliceIsDrawnWhateverTheDirectionAndStep) {
  volume.width = 1;
  volume.height = 1;
  volume.depth = 1;
  for (int axis = 0; axis < 3; ++axis) {
    for (const int direction : {0, 1}) {
      for (const int step : {1, 2}) EXPECT_EQ(Points(1, axis, direction, step), Point(0, 0, 0));
    }
  }
}

TEST_F(VolumeTest, WithoutASliceThereIsNoPointWhateverTheDirectionAndStep) {
  for (const auto size : {&Volume::width, &Volume::height, &Volume::depth}) {
    const Volume whole = volume;
    volume.*size = 0;
    for (int axis = 0; axis < 3; ++axis) {
      for (const int direction : {0, 1}) {
        for (const int step : {1, 2}) EXPECT_EQ(Points(1, axis, direction, step), "");
      }
    }
    volume = whole;
  }
}

TEST_F(VolumeTest, SlicesAlongY) {
  std::string ascending;
  for (int y = 0; y < 3; ++y)
    for (int z = 0; z < 4; ++z)
      for (int x = 0; x < 2; ++x) ascending += Point(x, y, z);
  EXPECT_EQ(Points(1, 1, 0), ascending);
  std::string descending;
  for (int y = 2; y >= 0; --y)
    for (int z = 0; z < 4; ++z)
      for (int x = 0; x < 2; ++x) descending += Point(x, y, z);
  EXPECT_EQ(Points(1, 1, 1), descending);
}

// Only this axis turns its inner loops round.
TEST_F(VolumeTest, SlicesAlongZ) {
  std::string ascending;
  for (int z = 0; z < 4; ++z)
    for (int y = 0; y < 3; ++y)
      for (int x = 0; x < 2; ++x) ascending += Point(x, y, z);
  EXPECT_EQ(Points(1, 2, 0), ascending);
  std::string descending;
  for (int z = 3; z >= 0; --z)
    for (int y = 2; y >= 0; --y)
      for (int x = 1; x >= 0; --x) descending += Point(x, y, z);
  EXPECT_EQ(Points(1, 2, 1), descending);
}

TEST_F(VolumeTest, StepThinsTheSlices) {
  volume.width = 6;
  volume.height = 2;
  volume.depth = 2;
  const auto slices = [this](std::initializer_list<int> xs) {
    std::string points;
    for (const int x : xs)
      for (int z = 0; z < 2; ++z)
        for (int y = 0; y < 2; ++y) points += Point(x, y, z);
    return points;
  };
  EXPECT_EQ(Points(1, 0, 0, 2), slices({0, 2, 4}));
  EXPECT_EQ(Points(1, 0, 1, 2), slices({5, 3, 1}));
  EXPECT_EQ(Points(1, 0, 0, 4), slices({0, 4}));
  EXPECT_EQ(Points(1, 0, 1, 5), slices({5, 0}));
  EXPECT_EQ(Points(1, 0, 0, 6), slices({0}));
  EXPECT_EQ(Points(1, 0, 1, 2147483647), slices({5}));
}

TEST_F(VolumeTest, StepsBelowOneGiveTheEmptyList) {
  for (const int step : {0, -1, -2147483647 - 1}) {
    for (int axis = 0; axis < 3; ++axis) EXPECT_EQ(Points(1, axis, 1, step), "");
  }
}

TEST_F(VolumeTest, OtherModesAxesAndDirectionsGiveTheEmptyList) {
  for (const int mode : {-1, 0, 2, 4}) EXPECT_EQ(Points(mode, 0, 0), "");
  for (const int axis : {-1, 3}) EXPECT_EQ(Points(1, axis, 0), "");
  for (const int direction : {-1, 2}) EXPECT_EQ(Points(1, 0, direction), "");
}

TEST_F(VolumeTest, EmptyAndNegativeSizesGiveTheEmptyList) {
  for (const auto& [width, height, depth] : std::initializer_list<std::array<int, 3>>{{0, 3, 4},
                                                                                      {2, 0, 4},
                                                                                      {2, 3, 0},
                                                                                      {-2, 3, 4},
                                                                                      {2, -3, 4},
                                                                                      {2, 3, -4},
                                                                                      {-2, -3, -4},
                                                                                      {INT_MIN, INT_MIN, INT_MIN},
                                                                                      {INT_MAX, INT_MAX, 0},
                                                                                      {0, INT_MAX, INT_MAX},
                                                                                      {INT_MAX, INT_MIN, INT_MAX}}) {
    volume.width = width;
    volume.height = height;
    volume.depth = depth;
    for (int axis = 0; axis < 3; ++axis) {
      EXPECT_EQ(Points(1, axis, 0), "");
      EXPECT_EQ(Points(3, axis, 1), "");
    }
  }
}

TEST_F(VolumeTest, EightVoxelsLieAroundTheOrigin) {
  volume.height = volume.depth = 2;
  volume.data.assign(8, 0);
  const std::string color = Color(0, 255, 0, 255);
  EXPECT_EQ(Points(1, 2, 0), color + "glVertex3f(-1, -1, -1)\n" + color + "glVertex3f(0, -1, -1)\n" + color +
                                 "glVertex3f(-1, 0, -1)\n" + color + "glVertex3f(0, 0, -1)\n" + color +
                                 "glVertex3f(-1, -1, 0)\n" + color + "glVertex3f(0, -1, 0)\n" + color +
                                 "glVertex3f(-1, 0, 0)\n" + color + "glVertex3f(0, 0, 0)\n");
}

TEST_F(VolumeTest, ValuesWithoutOpacityAreLeftOut) {
  volume.alpha[5] = 0;
  volume.alpha[7] = 1;
  std::string visible;
  for (int voxel = 0; voxel < 24; ++voxel) {
    if (volume.data[static_cast<std::size_t>(voxel)] != 5) visible += Point(voxel % 2, voxel / 2 % 3, voxel / 6);
  }
  EXPECT_EQ(Points(1, 2, 0), visible);
}

TEST_F(VolumeTest, ColoredVoxelsCarryBlueGreenRed) {
  volume.height = volume.depth = 1;
  volume.data = {10, 20, 90, 255, 255, 254};
  volume.alpha[40] = 128;
  volume.alpha[254] = 0;  // (255 + 255 + 254) / 3, cut off
  EXPECT_EQ(Points(3, 2, 0), Color(90, 20, 10, 128) + Vertex(0, 0, 0));
}

TEST_F(VolumeTest, ColoredVoxelsAreWalkedLikeIndexedOnes) {
  for (int axis = 0; axis < 3; ++axis) {
    for (int direction = 0; direction < 2; ++direction) {
      const std::string indexed = Points(1, axis, direction, 2);
      Volume grey = volume;
      volume.data.clear();
      for (const unsigned char value : grey.data) {
        // In the order blue, green, red, so that the colour equals the indexed one's.
        for (const Table* table : {&grey.blue, &grey.green, &grey.red}) volume.data.push_back((*table)[value]);
      }
      EXPECT_EQ(Points(3, axis, direction, 2), indexed) << axis << direction;
      volume = grey;
    }
  }
}

TEST_F(VolumeTest, NearGreyVoxelsVanish) {
  volume.width = volume.height = volume.depth = 1;
  const auto isVisible = [this](int b0, int b1, int b2, int threshold) {
    volume.data = {static_cast<unsigned char>(b0), static_cast<unsigned char>(b1), static_cast<unsigned char>(b2)};
    return !Points(3, 0, 0, 1, threshold).empty();
  };
  EXPECT_TRUE(isVisible(10, 12, 200, 5));
  EXPECT_TRUE(isVisible(200, 12, 10, 5));
  EXPECT_FALSE(isVisible(10, 12, 14, 5));
  EXPECT_TRUE(isVisible(10, 15, 15, 5));
  EXPECT_TRUE(isVisible(10, 10, 15, 5));
  EXPECT_FALSE(isVisible(10, 14, 14, 5));
  EXPECT_FALSE(isVisible(10, 10, 14, 5));
  EXPECT_TRUE(isVisible(7, 7, 7, 0));
  EXPECT_FALSE(isVisible(7, 7, 7, 1));
  EXPECT_TRUE(isVisible(7, 7, 7, -1));
  EXPECT_FALSE(isVisible(0, 255, 0, 256));
  // The first and the last are not compared.
  EXPECT_FALSE(isVisible(10, 14, 18, 5));
}

TEST_F(VolumeTest, TablesOfColorsAreNotLookedAtForColoredVoxels) {
  volume.width = volume.height = volume.depth = 1;
  volume.data = {1, 2, 3};
  const unsigned list = renderer.BuildVolumePoints(volume.data.data(), 1, 1, 1, nullptr, nullptr, nullptr,
                                                   volume.alpha.data(), 3, 0, 0, 1, 0);
  EXPECT_EQ(list, 1U);
  EXPECT_EQ(TakeLog(), kFirst + Color(3, 2, 1, 255) + Vertex(0, 0, 0) + kLast);
}

TEST_F(VolumeTest, ColorScaleIsTheNearestToTheUnit) {
  volume.width = volume.height = volume.depth = 1;
  for (const int byte : {1, 51, 127, 254, 255}) {
    volume.data = {static_cast<unsigned char>(byte)};
    const float expected = static_cast<float>(byte) * 0.003921569F;
    EXPECT_TRUE(
        Points(1, 0, 0).starts_with(Line("glColor4f", expected).substr(0, Line("glColor4f", expected).size() - 1)))
        << byte;
  }
}

TEST_F(VolumeTest, ListNumberIsOpenGLs) {
  recorder::Get().answers.firstList = 77;
  const unsigned list = renderer.BuildVolumePoints(nullptr, 0, 0, 0, nullptr, nullptr, nullptr, nullptr, 1, 0, 0, 1, 0);
  EXPECT_EQ(list, 77U);
  EXPECT_THAT(TakeLog(), HasSubstr("glNewList(77, GL_COMPILE)"));
}

TEST_F(VolumeTest, ListsAreDrawnAtOnceAndDeleted) {
  renderer.DrawVolumePoints(7);
  EXPECT_EQ(TakeLog(), Lines({"glCallList(7)", "glFlush()"}));
  renderer.DeleteVolumePoints(7);
  EXPECT_EQ(TakeLog(), "glDeleteLists(7, 1)\n");
}

}  // namespace
