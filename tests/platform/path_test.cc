#include "kvdao/platform/path.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace kvdao::platform {
namespace {

TEST(PathTest, SplitAcceptsBothSeparatorsAndDrives) {
  PathParts parts = SplitPath("c:\\data/lists\\run.01.spl");
  EXPECT_EQ(parts.folder, "c:\\data/lists\\");
  EXPECT_EQ(parts.name, "run.01");
  EXPECT_EQ(parts.extension, ".spl");

  parts = SplitPath("c:proc.exe");
  EXPECT_EQ(parts.folder, "c:");
  EXPECT_EQ(parts.name, "proc");

  parts = SplitPath("/home/u/.profile");
  EXPECT_EQ(parts.folder, "/home/u/");
  EXPECT_EQ(parts.name, ".profile");
  EXPECT_EQ(parts.extension, "");

  parts = SplitPath("noext");
  EXPECT_EQ(parts.folder, "");
  EXPECT_EQ(parts.name, "noext");
  EXPECT_EQ(GetPathDirectory("c:\\tools\\proc.exe"), "c:\\tools\\");
  EXPECT_EQ(GetPathDirectory("proc.exe"), "");
}

TEST(PathTest, JoinKeepsTheFoldersSeparatorAndAddsExactlyOne) {
  EXPECT_EQ(JoinPath("c:\\data", "x.spl"), "c:\\data\\x.spl");
  EXPECT_EQ(JoinPath("/data/", "\\SampleDB\\"), "/data/SampleDB\\");
  EXPECT_EQ(JoinPath("/data", "/x"), "/data/x");
  EXPECT_EQ(JoinPath("", "x"), "x");
  EXPECT_EQ(JoinPath("/data", ""), "/data");
  EXPECT_EQ(JoinPath("data", "x"), "data/x");
}

TEST(PathTest, AbsolutePathsAndFullNames) {
  EXPECT_TRUE(IsAbsolutePath("/x"));
  EXPECT_TRUE(IsAbsolutePath("\\x"));
  EXPECT_TRUE(IsAbsolutePath("c:\\x"));
  EXPECT_TRUE(IsAbsolutePath("D:/x"));
  EXPECT_FALSE(IsAbsolutePath("c:x"));
  EXPECT_FALSE(IsAbsolutePath("x/y"));

  EXPECT_EQ(CreatePathName("c:\\tools\\proc", "exe"), "c:\\tools\\proc.exe");
  EXPECT_EQ(CreatePathName("c:\\tools\\proc.com", "exe"), "c:\\tools\\proc.com");
  EXPECT_EQ(CreatePathName("/bin/tool", ".exe"), "/bin/tool.exe");
  char cwd[4096];
  ASSERT_NE(::getcwd(cwd, sizeof cwd), nullptr);
  EXPECT_EQ(CreatePathName("tool", "exe"), std::string(cwd) + "/tool.exe");
  EXPECT_EQ(ToNativePath("c:\\a\\b"), "c:/a/b");
}

}  // namespace
}  // namespace kvdao::platform
