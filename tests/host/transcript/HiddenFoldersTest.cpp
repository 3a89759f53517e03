#include "host/transcript/HiddenFolders.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

HiddenFolders hiding(std::initializer_list<const char*> folders) {
  HiddenFolders hidden;
  for (const char* folder : folders) hidden.add(folder);
  return hidden;
}

TEST(HiddenFoldersTest, APathIsShownFromItsFolderOn) {
  EXPECT_EQ(hiding({"/home/mill"}).shown("Unhandled 53 \"/home/mill/x.par: no such file\""), "Unhandled 53 \"x.par: no such file\"");
  EXPECT_EQ(hiding({"/home/mill/"}).shown("/home/mill/a /home/mill/b"), "a b");
  EXPECT_EQ(hiding({"/home/./mill/x/.."}).shown("/home/mill/a"), "a");
}

TEST(HiddenFoldersTest, OfFoldersInEachOtherTheInnermostGoesInWhicheverOrderTheyCame) {
  EXPECT_EQ(hiding({"/home/mill", "/home/mill/tmp/ostrand-1"}).shown("/home/mill/tmp/ostrand-1/files/x"), "files/x");
  EXPECT_EQ(hiding({"/home/mill/tmp/ostrand-1", "/home/mill"}).shown("/home/mill/tmp/ostrand-1/files/x"), "files/x");
  EXPECT_EQ(hiding({"/home/mill/tmp/ostrand-1", "/home/mill"}).shown("/home/mill/y"), "y");
}

TEST(HiddenFoldersTest, AFolderOfTheSameNameInAnotherPathStays) {
  EXPECT_EQ(hiding({"/tmp"}).shown("files/tmp/x /home/tmp/x"), "files/tmp/x /home/tmp/x");
  EXPECT_EQ(hiding({"/tmp"}).shown("file:///tmp/x"), "file://x");
}

TEST(HiddenFoldersTest, TheRootHidesNothing) { EXPECT_EQ(hiding({"/"}).shown("\"/x/y\""), "\"/x/y\""); }

TEST(HiddenFoldersTest, AFolderWithAQuoteIsFoundInQuotes) { EXPECT_EQ(hiding({"/a \"b\""}).shown("Log 1 \"/a \\\"b\\\"/x\""), "Log 1 \"x\""); }

}  // namespace
}  // namespace ostrand
