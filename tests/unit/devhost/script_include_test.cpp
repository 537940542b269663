// Includes: which file a name means, and what an included file may do.
#include <map>

#include "tests/unit/support/script_runner.h"

namespace {

using devhost::script::ResolvePath;
using testing::StartsWith;

const std::map<std::string, std::string>& Files() {
  static const std::map<std::string, std::string> files = {
      {"lib/shapes.talq", "include \"more/area.talq\";\nsides = 4;\nfunction Sides() { return sides; }\n"},
      {"lib/more/area.talq", "include \"../shapes.talq\";\nfunction Area(a, b) {\n  return a * b;\n}\n"},
      {"broken.talq", "a = 1;\nb = ;\n"},
      {"late.talq", "param a;\n"},
      {"lib/model.talq", "function Model() { return Beside(\"models/../hare.obj\"); }\n"},
  };
  return files;
}

bool ReadTestFile(const std::string& path, std::string& text) {
  int level = 0;
  if (std::sscanf(path.c_str(), "chain%d", &level) == 1) {
    char next[48];
    std::snprintf(next, sizeof next, "include \"chain%d\";", level + 1);
    text = next;
    return true;
  }
  const auto file = Files().find(path);
  if (file == Files().end()) return false;
  text = file->second;
  return true;
}

TEST(ScriptIncludeTest, ResolvesPaths) {
  EXPECT_EQ(ResolvePath("a/b.talq", "c.talq"), "a/c.talq");
  EXPECT_EQ(ResolvePath("b.talq", "c.talq"), "c.talq");
  EXPECT_EQ(ResolvePath("a/b.talq", "../c.talq"), "c.talq");
  EXPECT_EQ(ResolvePath("../b.talq", "../c.talq"), "../../c.talq");
  EXPECT_EQ(ResolvePath("a/b.talq", "./x/./y//../c.talq"), "a/x/c.talq");
  EXPECT_EQ(ResolvePath("/a/b.talq", "../../../c.talq"), "/c.talq");
  EXPECT_EQ(ResolvePath("a/b.talq", "/c.talq"), "/c.talq");
  EXPECT_EQ(ResolvePath("Z:\\a\\b.talq", "c.talq"), "Z:\\a/c.talq");
  EXPECT_EQ(ResolvePath("a/b.talq", "Z:\\c.talq"), "Z:\\c.talq");
}

TEST(ScriptIncludeTest, SharesFunctionsAndVariables) {
  EXPECT_EQ(RunScript("include \"lib/shapes.talq\"; return [Sides(), Area(2, 3), sides];", {}, ReadTestFile),
            "[4, 6, 4]");
}

TEST(ScriptIncludeTest, ReadsAFileOnce) {
  EXPECT_EQ(RunScript("include \"lib/shapes.talq\"; sides = 5; include \"lib/../lib/shapes.talq\"; return sides;", {},
                      ReadTestFile),
            "5");
}

TEST(ScriptIncludeTest, FindsFilesBesideTheScriptThatAsks) {
  EXPECT_EQ(RunScript("include \"lib/model.talq\"; return [Model(), Beside(\"hare.obj\"), Beside(\"/a\")];", {},
                      ReadTestFile),
            "[lib/hare.obj, hare.obj, /a]");
  EXPECT_EQ(RunScript("try { Beside(1); } catch (code, text) { return code; }"), "20");
}

TEST(ScriptIncludeTest, MessagesNameTheFile) {
  EXPECT_EQ(RunScript("include \"broken.talq\";", {}, ReadTestFile),
            "broken.talq:2:5: expected a value, found ';'\n  b = ;\n      ^\n");
  EXPECT_EQ(RunScript("include \"lib/shapes.talq\";\nArea(1, [2] < 3);", {}, ReadTestFile).substr(0, 15),
            "test.talq:2:13:");
  const std::string message = RunScript("include \"lib/shapes.talq\";\nArea([], 1);", {}, ReadTestFile);
  EXPECT_EQ(message.substr(0, 24), "lib/more/area.talq:3:12:") << message;
  EXPECT_THAT(message, HasSubstr("in Area, called from test.talq:2\n"));
}

class ScriptIncludePathTest : public testing::Test {
 protected:
  void SetUp() override { setenv("TALQ_PATH", "nowhere;;lib/more;lib", 1); }
  void TearDown() override { unsetenv("TALQ_PATH"); }
};

TEST_F(ScriptIncludePathTest, FilesComeFromTheFirstFolderThatHasThem) {
  EXPECT_EQ(RunScript("include \"shapes.talq\"; return [Sides(), Area(2, 3)];", {}, ReadTestFile), "[4, 6]");
  EXPECT_EQ(RunScript("include \"area.talq\"; include \"area.talq\"; return Area(2, 3);", {}, ReadTestFile), "6");
  EXPECT_EQ(RunScript("include \"model.talq\"; return Model();", {}, ReadTestFile), "lib/hare.obj");
  EXPECT_EQ(RunScript("include \"broken.talq\";", {}, ReadTestFile).substr(0, 16), "broken.talq:2:5:");
}

TEST_F(ScriptIncludePathTest, MessageNamesTheFolders) {
  EXPECT_THAT(RunScript("include \"a/none.talq\";", {}, ReadTestFile),
              StartsWith("test.talq:1:9: cannot read the file 'a/none.talq', nor find it in nowhere, lib/more, lib\n"));
}

TEST(ScriptIncludeTest, Failures) {
  EXPECT_EQ(RunScript("a = 1;\ninclude \"none.talq\";", {}, ReadTestFile),
            "test.talq:2:9: cannot read the file 'none.talq'\n  include \"none.talq\";\n          ^\n");
  EXPECT_EQ(RunScript("include \"late.talq\";", {}, ReadTestFile).substr(0, 63),
            "late.talq:1:1: 'param' must be the script's first statement\n  p");
  EXPECT_EQ(HeadlineOf("include \"x\";"), "1:9: files cannot be included here");
  EXPECT_EQ(HeadlineOf("include 3;"), "1:9: expected the file's name as a text after 'include', found '3'");
  EXPECT_THAT(RunScript("include \"chain0\";", {}, ReadTestFile), HasSubstr("nested too deeply"));
}

}  // namespace
