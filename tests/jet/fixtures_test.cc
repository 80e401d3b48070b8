// Every table of every shared Jet fixture must read exactly as its expected
// dump says.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "common/test_env.h"
#include "dump_format.h"
#include "kvdao/jet/jet.h"

namespace kvdao::jet {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> SortedLines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  std::sort(lines.begin(), lines.end());
  return lines;
}

// Checks every .mdb in one fixture folder; returns how many were checked.
int CheckFolder(const fs::path& folder) {
  int checked = 0;
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".mdb") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  for (const fs::path& file : files) {
    SCOPED_TRACE(file.filename().string());
    fs::path expected_path = file;
    expected_path.replace_extension(".expected.txt");
    std::string expected = kvdao::test::ReadFile(expected_path.string());
    Database database;
    database.Open(file.string());
    std::string actual = test::DumpDatabase(database);
    // Jackcess's scan order for rows moved to overflow pages is not the
    // only reasonable one; that file is compared as a set of lines.
    if (file.filename() == "jackcess-overflowTestV2000.mdb") {
      EXPECT_EQ(SortedLines(actual), SortedLines(expected));
    } else {
      EXPECT_TRUE(actual == expected) << "dump differs; first bytes:\n" << actual.substr(0, 400);
    }
    ++checked;
  }
  return checked;
}

TEST(JetFixtures, RealAccessFilesReadAsExpected) {
  std::string fixtures = kvdao::test::FixturesDir();
  if (fixtures.empty()) GTEST_SKIP() << "shared fixtures folder not found";
  EXPECT_GE(CheckFolder(fs::path(fixtures) / "jet" / "real"), 20);
}

TEST(JetFixtures, GeneratedSampleListsReadAsExpected) {
  std::string fixtures = kvdao::test::FixturesDir();
  if (fixtures.empty()) GTEST_SKIP() << "shared fixtures folder not found";
  EXPECT_GE(CheckFolder(fs::path(fixtures) / "jet" / "generated"), 2);
}

}  // namespace
}  // namespace kvdao::jet
