#include "kvdao/platform/stdio_file.h"

#include <gtest/gtest.h>

#include "common/test_env.h"
#include "kvdao/platform/archive.h"

namespace kvdao {
namespace {

class StdioFileTest : public test::TempEnvTest {};

std::vector<std::string> ReadLines(const std::string& path) {
  StdioFile file;
  EXPECT_TRUE(file.Open(path.c_str(), StdioFile::modeRead));
  std::vector<std::string> lines;
  std::string line;
  while (file.ReadString(line)) lines.push_back(line);
  return lines;
}

TEST_F(StdioFileTest, ReadsLineFeedAndCarriageReturnLineFeedLines) {
  std::string path = PathTo("lines.txt");
  test::WriteFile(path, "one\r\ntwo\n\nlast\r");
  EXPECT_EQ(ReadLines(path), (std::vector<std::string>{"one", "two", "", "last\r"}));
  test::WriteFile(path, "no end");
  EXPECT_EQ(ReadLines(path), (std::vector<std::string>{"no end"}));
}

TEST_F(StdioFileTest, CreateTruncatesUnlessAskedNotTo) {
  std::string path = PathTo("f.txt");
  StdioFile file;
  ASSERT_TRUE(file.Open(path.c_str(), StdioFile::modeCreate | StdioFile::modeWrite));
  ASSERT_TRUE(file.WriteString("first\n"));
  ASSERT_TRUE(file.Close());

  ASSERT_TRUE(file.Open(path.c_str(),
                        StdioFile::modeCreate | StdioFile::modeNoTruncate | StdioFile::modeWrite));
  ASSERT_TRUE(file.SeekToEnd());
  ASSERT_TRUE(file.WriteString("second\n"));
  EXPECT_EQ(file.GetLength(), 13);
  ASSERT_TRUE(file.Close());
  EXPECT_EQ(test::ReadFile(path), "first\nsecond\n");

  ASSERT_TRUE(file.Open(path.c_str(), StdioFile::modeCreate | StdioFile::modeWrite));
  ASSERT_TRUE(file.Close());
  EXPECT_EQ(test::ReadFile(path), "");
}

TEST_F(StdioFileTest, FailuresAreReportedNotHidden) {
  StdioFile file;
  EXPECT_FALSE(file.Open(PathTo("missing.txt").c_str(), StdioFile::modeRead));
  EXPECT_NE(file.LastError(), 0);
  EXPECT_FALSE(file.Open(nullptr, StdioFile::modeRead));
  // Writing without modeCreate needs an existing file.
  EXPECT_FALSE(file.Open(PathTo("missing.txt").c_str(), StdioFile::modeWrite));
  EXPECT_FALSE(file.WriteString("x"));
  std::string line = "stale";
  EXPECT_FALSE(file.ReadString(line));
  EXPECT_TRUE(line.empty());
  EXPECT_EQ(file.GetLength(), -1);
}

TEST_F(StdioFileTest, BackslashPathsOpen) {
  test::WriteFile(PathTo("x.txt"), "hello\n");
  std::string windowsStyle = root() + "\\x.txt";
  StdioFile file;
  ASSERT_TRUE(file.Open(windowsStyle.c_str(), StdioFile::modeRead));
  Archive archive(file, Archive::load);
  EXPECT_TRUE(archive.IsLoading());
  std::string line;
  ASSERT_TRUE(archive.ReadString(line));
  EXPECT_EQ(line, "hello");
}

}  // namespace
}  // namespace kvdao
