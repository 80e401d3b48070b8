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

// The same databases saved by Access 97 (Jet 3) and Access 2000 (Jet 4) must
// describe their indexes alike: the two formats keep an index's flags at
// different offsets, and reading one of them at the wrong place shows up as
// indexes that differ between the twins.
std::string DescribeIndexes(const std::string& path) {
  Database db;
  db.Open(path);
  std::ostringstream out;
  for (const std::string& table : db.GetTableNames()) {
    TableDef def = db.GetTableDef(table);
    std::vector<IndexInfo> indexes = def.indexes;
    std::sort(indexes.begin(), indexes.end(),
              [](const IndexInfo& a, const IndexInfo& b) { return a.name < b.name; });
    for (const IndexInfo& index : indexes) {
      out << table << "." << index.name << " p" << index.primary << " u" << index.unique << " n"
          << index.ignore_nulls << " r" << index.required << " f" << index.foreign << "\n";
    }
  }
  return out.str();
}

TEST(JetFixtures, Jet3AndJet4TwinsDescribeTheirIndexesAlike) {
  std::string fixtures = kvdao::test::FixturesDir();
  if (fixtures.empty()) GTEST_SKIP() << "shared fixtures folder not found";
  fs::path real = fs::path(fixtures) / "jet" / "real";
  for (const char* name : {"indexTest", "testV", "delTest", "overflowTest", "test2"}) {
    std::string base = std::string("jackcess-") + name;
    if (base.back() == 'V') base.pop_back();
    std::string jet3 = DescribeIndexes((real / (base + "V1997.mdb")).string());
    std::string jet4 = DescribeIndexes((real / (base + "V2000.mdb")).string());
    EXPECT_EQ(jet3, jet4) << base;
    if (std::string(name) == "indexTest") {
      EXPECT_NE(jet3.find("p1 u1 n0 r1"), std::string::npos);
    }
  }
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
