// kvdao jet tables / schema / export / import, driven in-process.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "cli.h"
#include "common/test_env.h"

namespace kvdao::cli {
namespace {

struct Result {
  int status;
  std::string out;
  std::string err;
};

Result Jet(std::vector<std::string> args) {
  std::ostringstream out, err;
  for (const Command& command : Commands()) {
    if (command.name == "jet") {
      CommandContext context{std::move(args), out, err};
      int status = command.run(context);
      return {status, out.str(), err.str()};
    }
  }
  ADD_FAILURE() << "no jet command";
  return {-1, "", ""};
}

// RFC 4180 records; a field read from quotes is marked by a leading '\x01'
// so that the test can tell "" (empty text) from an empty field (NULL).
std::vector<std::vector<std::string>> ParseCsv(const std::string& text) {
  std::vector<std::vector<std::string>> records(1, std::vector<std::string>(1));
  for (std::size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    std::string& field = records.back().back();
    if (c == '"' && field.empty()) {
      field = "\x01";
      for (++i; i < text.size(); ++i) {
        if (text[i] == '"' && i + 1 < text.size() && text[i + 1] == '"') {
          field += '"';
          ++i;
        } else if (text[i] == '"') {
          break;
        } else {
          field += text[i];
        }
      }
    } else if (c == ',') {
      records.back().emplace_back();
    } else if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
      ++i;
      records.emplace_back(1);
    } else {
      field += c;
    }
  }
  if (records.back().size() == 1 && records.back()[0].empty()) records.pop_back();
  return records;
}

class JetCommandTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string fixtures = kvdao::test::FixturesDir();
    if (fixtures.empty()) GTEST_SKIP() << "shared fixtures folder not found";
    jet_ = fixtures + "/jet/";
  }
  std::string jet_;
};

TEST_F(JetCommandTest, TablesAndSchema) {
  Result tables = Jet({"tables", jet_ + "real/jackcess-indexTestV2000.mdb"});
  EXPECT_EQ(tables.status, 0);
  EXPECT_EQ(tables.out, "Table1\nTable2\nTable3\n");
  Result all = Jet({"tables", "--system", jet_ + "real/jackcess-indexTestV2000.mdb"});
  EXPECT_NE(all.out.find("MSysObjects\n"), std::string::npos);

  Result schema = Jet({"schema", jet_ + "generated/analysis-100.mdb", "ANALYSIS"});
  EXPECT_EQ(schema.status, 0);
  EXPECT_NE(schema.out.find("TABLE ANALYSIS (100 records)"), std::string::npos);
  EXPECT_NE(schema.out.find("FILE_NAME                   10 Text       255    no        yes"), std::string::npos);
  EXPECT_NE(schema.out.find("Index                       7 Double      8      yes       no"), std::string::npos);
  EXPECT_NE(schema.out.find("INDEX PrimaryKey (Index) primary unique"), std::string::npos);
}

TEST_F(JetCommandTest, CsvExportQuotesAndKeepsEmptyTextApartFromNull) {
  Result csv = Jet({"export", jet_ + "generated/analysis-100.mdb", "ANALYSIS", "--no-progress"});
  ASSERT_EQ(csv.status, 0) << csv.err;
  auto records = ParseCsv(csv.out);
  ASSERT_EQ(records.size(), 101u);
  ASSERT_EQ(records[0].size(), 160u);
  EXPECT_EQ(records[0][0], "VERSION");
  EXPECT_EQ(records[0][159], "Index");
  int nulls = 0, empties = 0;
  for (std::size_t row = 1; row < records.size(); ++row) {
    ASSERT_EQ(records[row].size(), 160u) << "record " << row;
    EXPECT_EQ(records[row][0], "31.5");
    EXPECT_EQ(std::atoi(records[row][159].c_str()), static_cast<int>(row) - 1);
    nulls += records[row][2].empty();
    empties += records[row][2] == "\x01";
  }
  EXPECT_GT(nulls, 0);
  EXPECT_GT(empties, 0);
  // SMP_000005 has CR, LF and TAB inside FILE_TEXT.
  const std::string& text5 = records[6][2];
  EXPECT_NE(text5.find('\r'), std::string::npos);
  EXPECT_NE(text5.find('\n'), std::string::npos);
}

TEST_F(JetCommandTest, JsonLinesTypes) {
  Result json = Jet({"export", jet_ + "real/jackcess-testV1997.mdb", "Table1", "--format", "jsonl"});
  ASSERT_EQ(json.status, 0) << json.err;
  EXPECT_EQ(json.out,
            "{\"A\":\"a\",\"B\":\"b\",\"C\":0,\"D\":0,\"E\":0,\"F\":0,\"G\":\"1981-12-12T00:00:00\",\"H\":\"0\","
            "\"I\":false}\n"
            "{\"A\":\"abcdefg\",\"B\":\"hijklmnop\",\"C\":2,\"D\":222,\"E\":333333333,\"F\":444.555,"
            "\"G\":\"1974-09-21T00:00:00\",\"H\":\"3.5\",\"I\":true}\n");

  Result numeric = Jet({"export", jet_ + "real/jackcess-fixedNumericTestV2000.mdb", "test", "--format=jsonl"});
  EXPECT_NE(numeric.out.find("\"col6\":\"-1\""), std::string::npos) << numeric.out;

  Result ole = Jet({"export", jet_ + "real/jackcess-test2V1997.mdb", "MSP_PROJECTS", "--format", "jsonl"});
  EXPECT_NE(ole.out.find("\"PROJ_OPT_CURRENCY_SYMBOL\":\"\xC2\xA3\""), std::string::npos);  // £ as UTF-8
  EXPECT_NE(ole.out.find("\"PROJ_PROP_CATEGORY\":null"), std::string::npos);

  Result utf8 = Jet({"export", jet_ + "real/jackcess-testUnicodeCompV2003.mdb", "Table", "--format", "jsonl"});
  EXPECT_NE(utf8.out.find("\"\xD0\x9C\xD0\xB8\xD1\x80\""), std::string::npos);  // Мир survives export
}

TEST_F(JetCommandTest, ErrorsGoToStandardErrorWithNonZeroStatus) {
  Result missing = Jet({"export", jet_ + "real/missing.mdb", "T"});
  EXPECT_EQ(missing.status, kExitFailure);
  EXPECT_NE(missing.err.find("missing.mdb"), std::string::npos);
  Result table = Jet({"export", jet_ + "generated/analysis-100.mdb", "NOPE"});
  EXPECT_EQ(table.status, kExitFailure);
  EXPECT_NE(table.err.find("NOPE"), std::string::npos);
  EXPECT_TRUE(table.out.empty());
  EXPECT_EQ(Jet({"export", jet_ + "generated/analysis-100.mdb", "ANALYSIS", "--format", "xml"}).status, kExitUsage);
  EXPECT_EQ(Jet({"frobnicate"}).status, kExitUsage);
  EXPECT_EQ(Jet({"tables"}).status, kExitUsage);
  Result not_jet = Jet({"tables", jet_ + "README.md"});
  EXPECT_EQ(not_jet.status, kExitFailure);
  EXPECT_NE(not_jet.err.find("not a Jet database"), std::string::npos);
}

class JetImportTest : public test::TempEnvTest {};

// Import then export gives back the CSV: null and empty text kept apart,
// types inferred or given, the primary key made, a second import refused.
TEST_F(JetImportTest, ImportedTableExportsTheSameRecords) {
  const std::string csv_path = PathTo("in.csv");
  const std::string db_path = PathTo("out.mdb");
  test::WriteFile(csv_path,
                  "\xEF\xBB\xBFId,Name,Price,Flag\n"
                  "1,caf\xC3\xA9,2.5,1\n"
                  "2,\"\",3,0\n"
                  "3,,,\n");
  Result imported = Jet({"import", db_path, "Items", csv_path, "--types", "Flag:Boolean", "--primary-key", "Id"});
  ASSERT_EQ(imported.status, 0) << imported.err;
  Result schema = Jet({"schema", db_path, "Items"});
  EXPECT_NE(schema.out.find("4 Long"), std::string::npos) << schema.out;
  EXPECT_NE(schema.out.find("7 Double"), std::string::npos);
  EXPECT_NE(schema.out.find("1 Boolean"), std::string::npos);
  EXPECT_NE(schema.out.find("INDEX PrimaryKey (Id) primary unique"), std::string::npos);
  auto records = ParseCsv(Jet({"export", db_path, "Items", "--format", "csv"}).out);
  ASSERT_GE(records.size(), 4u);
  EXPECT_EQ(records[1], (std::vector<std::string>{"1", "caf\xC3\xA9", "2.5", "true"}));
  EXPECT_EQ(records[2], (std::vector<std::string>{"2", "\x01", "3", "false"}));
  EXPECT_EQ(records[3], (std::vector<std::string>{"3", "", "", "false"}));

  // A Text key: its entries in the General sort order, where case does not
  // make a key different.
  test::WriteFile(csv_path, "Code,Qty\nb-2,1\nA\xC3\xA9,2\nB2,3\n");
  Result text_key = Jet({"import", PathTo("codes.mdb"), "Codes", csv_path, "--primary-key", "Code"});
  EXPECT_EQ(text_key.status, 0) << text_key.err;
  EXPECT_NE(Jet({"schema", PathTo("codes.mdb"), "Codes"}).out.find("INDEX PrimaryKey (Code) primary unique"),
            std::string::npos);
  test::WriteFile(csv_path, "Id\n1\n1\n");
  Result duplicate = Jet({"import", PathTo("dup.mdb"), "T", csv_path, "--primary-key", "Id"});
  EXPECT_NE(duplicate.status, 0);
  EXPECT_NE(duplicate.err.find("duplicate"), std::string::npos) << duplicate.err;
  EXPECT_FALSE(std::filesystem::exists(PathTo("dup.mdb")));  // nothing half-written
}

// Importing into a database that exists adds the table; a table name that
// exists, or an import that fails half-way, leaves the file as it was.
TEST_F(JetImportTest, ImportAddsTablesToAnExistingDatabase) {
  const std::string csv_path = PathTo("in.csv");
  const std::string db_path = PathTo("out.mdb");
  test::WriteFile(csv_path, "Id,Name\n1,one\n2,two\n");
  ASSERT_EQ(Jet({"import", db_path, "First", csv_path}).status, 0);
  test::WriteFile(csv_path, "Key,Value\n10,1.5\n20,2.5\n30,\n");
  Result second = Jet({"import", db_path, "Second", csv_path, "--primary-key", "Key"});
  ASSERT_EQ(second.status, 0) << second.err;
  EXPECT_EQ(Jet({"tables", db_path}).out, "First\nSecond\n");
  auto first = ParseCsv(Jet({"export", db_path, "First", "--format", "csv"}).out);
  ASSERT_GE(first.size(), 3u);
  EXPECT_EQ(first[2], (std::vector<std::string>{"2", "two"}));
  auto records = ParseCsv(Jet({"export", db_path, "Second", "--format", "csv"}).out);
  ASSERT_GE(records.size(), 4u);
  EXPECT_EQ(records[3], (std::vector<std::string>{"30", ""}));

  const std::string before = test::ReadFile(db_path);
  Result again = Jet({"import", db_path, "first", csv_path});
  EXPECT_NE(again.status, 0);
  EXPECT_NE(again.err.find("already exists"), std::string::npos) << again.err;
  test::WriteFile(csv_path, "Key\n5\n5\n");
  Result duplicate = Jet({"import", db_path, "Third", csv_path, "--primary-key", "Key"});
  EXPECT_NE(duplicate.status, 0);
  EXPECT_EQ(test::ReadFile(db_path), before);
}

}  // namespace
}  // namespace kvdao::cli
