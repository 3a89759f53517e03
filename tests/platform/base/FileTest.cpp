#include "platform/base/File.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <unistd.h>
#endif

#include "platform/base/RuntimeError.h"

namespace ostrand {
namespace {

namespace fs = std::filesystem;

class FileTest : public testing::Test {
 protected:
  void SetUp() override {
    mFolder = fs::path(testing::TempDir()) / ("ostrand-file-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::remove_all(mFolder);
    fs::create_directories(mFolder);
  }
  void TearDown() override {
    fs::permissions(mFolder, fs::perms::owner_all);
    fs::remove_all(mFolder);
  }

  std::size_t entries() const { return static_cast<std::size_t>(std::distance(fs::directory_iterator(mFolder), {})); }

  template <class Do>
  static int errorOf(Do what) {
    try {
      what();
    } catch (const RuntimeError& error) {
      return error.number();
    }
    return 0;
  }

  fs::path mFolder;
};

TEST_F(FileTest, ReadsWhatWasWritten) {
  std::string text("line\r\nline\n\0binary\xFF", 18);
  text += std::string(300000, 'x');
  writeWholeFile(mFolder / "a", text);
  EXPECT_EQ(readWholeFile(mFolder / "a"), text);
  EXPECT_EQ(entries(), 1u);
}

TEST_F(FileTest, ReplacesAnOlderFileWhole) {
  writeWholeFile(mFolder / "a", "a long old text");
  writeWholeFile(mFolder / "a", "new");
  EXPECT_EQ(readWholeFile(mFolder / "a"), "new");
  writeWholeFile(mFolder / "a", "");
  EXPECT_EQ(readWholeFile(mFolder / "a"), "");
  EXPECT_EQ(entries(), 1u);
}

TEST_F(FileTest, AMissingFileIsNotFound) {
  EXPECT_EQ(errorOf([&] { readWholeFile(mFolder / "missing"); }), RuntimeError::FileNotFound);
  EXPECT_EQ(errorOf([&] { readWholeFile(mFolder / "missing" / "deeper"); }), RuntimeError::FileNotFound);
  EXPECT_EQ(errorOf([&] { readWholeFile(""); }), RuntimeError::FileNotFound);
}

TEST_F(FileTest, AFolderCannotBeReadOrWritten) {
  fs::create_directory(mFolder / "sub");
  EXPECT_EQ(errorOf([&] { readWholeFile(mFolder / "sub"); }), RuntimeError::PermissionDenied);
  EXPECT_EQ(errorOf([&] { writeWholeFile(mFolder / "sub", "text"); }), RuntimeError::PermissionDenied);
  EXPECT_TRUE(fs::is_directory(mFolder / "sub"));
  EXPECT_EQ(entries(), 1u);
}

TEST_F(FileTest, AFailedWriteTellsThePath) {
  try {
    writeWholeFile(mFolder / "no" / "such", "text");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), RuntimeError::PermissionDenied);
    EXPECT_NE(error.description().find("such"), std::string::npos);
  }
  EXPECT_EQ(entries(), 0u);
}

TEST_F(FileTest, AFailedWriteLeavesTheOldFileAndNothingElse) {
  writeWholeFile(mFolder / "a", "old");
  // What stands where the new text would be written first is not ours.
  fs::create_directory(mFolder / "a.new");
  EXPECT_EQ(errorOf([&] { writeWholeFile(mFolder / "a", "new"); }), RuntimeError::PermissionDenied);
  EXPECT_EQ(readWholeFile(mFolder / "a"), "old");
  EXPECT_TRUE(fs::is_directory(mFolder / "a.new"));
  EXPECT_EQ(entries(), 2u);
}

TEST_F(FileTest, TheFileOfAnotherWriterIsLeftAlone) {
  writeWholeFile(mFolder / "a.new", "of another");
  writeWholeFile(mFolder / "a", "text");
  EXPECT_EQ(readWholeFile(mFolder / "a"), "text");
  EXPECT_EQ(readWholeFile(mFolder / "a.new"), "of another");
  EXPECT_EQ(entries(), 2u);
}

TEST_F(FileTest, WritersAtTheSameTimeLeaveAWholeFile) {
  const auto writer = [this](char letter) {
    for (int i = 0; i < 20; ++i) writeWholeFile(mFolder / "a", std::string(50'000, letter));
  };
  std::thread other(writer, 'x');
  writer('y');
  other.join();
  const std::string text = readWholeFile(mFolder / "a");
  EXPECT_EQ(text, std::string(50'000, text.front()));
  EXPECT_EQ(entries(), 1u);
}

#ifndef _WIN32
TEST_F(FileTest, AnUnwritableFolderKeepsItsOldFile) {
  writeWholeFile(mFolder / "a", "old");
  using fs::perms;
  fs::permissions(mFolder, perms::owner_read | perms::owner_exec | perms::others_read | perms::others_exec);
  // Root may write everywhere, so it is nobody for a moment.
  const uid_t user = geteuid();
  ASSERT_EQ(seteuid(user == 0 ? 65534 : user), 0);
  const int error = errorOf([&] { writeWholeFile(mFolder / "a", "new"); });
  ASSERT_EQ(seteuid(user), 0);
  EXPECT_EQ(error, RuntimeError::PermissionDenied);
  EXPECT_EQ(readWholeFile(mFolder / "a"), "old");
  EXPECT_EQ(entries(), 1u);
}
#endif

}  // namespace
}  // namespace ostrand
