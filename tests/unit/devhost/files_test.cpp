// Files as the host's classes and functions read and write them.
#include "devhost/data/files.h"

#include <sys/resource.h>

#include <csignal>
#include <filesystem>

#include "tests/unit/support/devhost_fixture.h"

namespace {

using devhost::ReadFile;
using devhost::WriteFile;

// While it lives, no file can hold more than 4 bytes, as when the disk is full.
class FullDisk {
 public:
  FullDisk() {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit limit = before;
    limit.rlim_cur = 4;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, SIG_DFL);
  }

 private:
  rlimit before{};
};

class FilesTest : public DevhostTest {
 protected:
  void TearDown() override {
    std::filesystem::remove_all(folder);
    DevhostTest::TearDown();
  }

  std::string Content(const std::string& path) {
    std::string content;
    ReadFile(path, content);
    return content;
  }
  // How many files and folders lie in the test's folder.
  long Count() { return std::distance(std::filesystem::recursive_directory_iterator(folder), {}); }

  const std::string folder = testing::TempDir() + "devhost_files";
};

TEST_F(FilesTest, WritingMakesTheFolder) {
  EXPECT_TRUE(WriteFile(folder + "/a/b.c/text", "one"));
  EXPECT_TRUE(WriteFile(folder + "/a/b.c/text", "two"));
  EXPECT_EQ(Content(folder + "/a/b.c/text"), "two");
  EXPECT_EQ(Count(), 3);
  EXPECT_EQ(TakeError(), "");
}

TEST_F(FilesTest, AFolderThatCannotBeIsNamedWithItsReason) {
  ASSERT_TRUE(WriteFile(folder + "/text", "one"));
  EXPECT_FALSE(WriteFile(folder + "/text/a/b", "two"));
  EXPECT_EQ(TakeError(), "23 " + folder + "/text/a/b cannot be written: Not a directory.");
}

TEST_F(FilesTest, AFailureLeavesTheFileAsItWas) {
  const std::string path = folder + "/text";
  ASSERT_TRUE(WriteFile(path, "one"));
  bool written = true;
  {
    const FullDisk full;
    written = WriteFile(path, "three");
  }
  EXPECT_FALSE(written);
  EXPECT_EQ(TakeError(), "23 " + path + " cannot be written: File too large.");
  EXPECT_EQ(Content(path), "one");
  EXPECT_EQ(Count(), 1);
}

TEST_F(FilesTest, AFolderIsNotReplaced) {
  ASSERT_TRUE(WriteFile(folder + "/a/text", "one"));
  EXPECT_FALSE(WriteFile(folder + "/a", "two"));
  EXPECT_EQ(TakeError(), "23 " + folder + "/a cannot be written: Is a directory.");
  EXPECT_EQ(Count(), 2);
}

}  // namespace
