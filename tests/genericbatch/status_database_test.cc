#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <set>

#include "common/test_env.h"
#include "kvdao/genericbatch/generic_batch.h"

namespace kvdao {
namespace {

class StatusDatabaseTest : public test::TempEnvTest {
 protected:
  std::string Login() const { return root() + "/ZQLogin/users"; }
  std::string Database() const { return root() + "/ZQStatus.db"; }

  static GenericBatch Batch(const std::string& id, std::initializer_list<int> wellsPerPlate) {
    GenericBatch batch;
    batch.BatchID(id);
    batch.MSMethod("ms1");
    for (int wells : wellsPerPlate) {
      GenericPlate plate;
      plate.PlatePosition("P" + std::to_string(batch.NumPlates() + 1));
      for (int w = 1; w <= wells; ++w) {
        GenericSample sample;
        sample.Location(std::to_string(w));
        sample.SampleID(id + "-" + std::to_string(w));
        plate.AddSample(sample);
      }
      batch.AddPlate(plate);
    }
    return batch;
  }

  // Rows of a query, each cell as "type:text" (type as SQLite's typeof()).
  std::vector<std::vector<std::string>> Query(const std::string& sql) const {
    std::vector<std::vector<std::string>> rows;
    sqlite3* db = nullptr;
    EXPECT_EQ(sqlite3_open(Database().c_str(), &db), SQLITE_OK);
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr), SQLITE_OK) << sql;
    while (statement != nullptr && sqlite3_step(statement) == SQLITE_ROW) {
      std::vector<std::string> row;
      for (int c = 0; c < sqlite3_column_count(statement); ++c) {
        static const char* const kTypes[] = {"?", "int", "real", "text", "blob", "null"};
        const unsigned char* text = sqlite3_column_text(statement, c);
        row.push_back(std::string(kTypes[sqlite3_column_type(statement, c)]) + ":" +
                      (text != nullptr ? reinterpret_cast<const char*>(text) : ""));
      }
      rows.push_back(row);
    }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return rows;
  }
};

TEST_F(StatusDatabaseTest, DatabaseLivesBesideTheLoginArea) {
  EXPECT_EQ(GenericBatch::StatusDatabasePath("C:\\OA\\ZQLogin\\users"), "C:\\OA\\ZQStatus.db");
  EXPECT_EQ(GenericBatch::StatusDatabasePath("/srv/oa/ZQLogin/x/ZQLogin"), "/srv/oa/ZQStatus.db");
  EXPECT_EQ(GenericBatch::StatusDatabasePath("/srv/oa/login"), "\\ZQStatus.db");
}

TEST_F(StatusDatabaseTest, FirstSubmissionCreatesTheTableAndNumbersRowsFromZero) {
  GenericBatch batch = Batch("B1", {3, 4});
  GenericSample& first = const_cast<GenericSample&>(batch.Plates()[0].Samples()[0]);
  first.Masses({150.2, 151.3});
  first.Location("A1");
  first.FractionTriggers({"Mass A"});
  ASSERT_EQ(batch.WriteZQStatus(Login(), true), 1);

  auto columns = Query("PRAGMA table_info(batches);");
  ASSERT_EQ(columns.size(), 120u);
  EXPECT_EQ(columns[26][1] + " " + columns[26][2], "text:FractionMethod text:REAL");
  EXPECT_EQ(columns[119][1], "text:User5");

  auto rows = Query("SELECT ID, IsQC, IsExpanded, NumberOfPlates, PlatePosition, Well, "
                    "Mass1, Mass2, Mass3, Fraction1, Fraction2, PrepInjectionVolume "
                    "FROM batches ORDER BY ID;");
  ASSERT_EQ(rows.size(), 7u);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i][0], "int:" + std::to_string(i));
    EXPECT_EQ(rows[i][3], "int:2");
  }
  // Texts as the quoted statement would store them: numbers given as text
  // take the column's affinity, empty texts stay texts.
  EXPECT_EQ(rows[0], (std::vector<std::string>{"int:0", "int:1", "int:0", "int:2", "text:P1",
                                               "text:A1", "real:150.2", "real:151.3", "text:",
                                               "text:Mass A", "text:", "real:0.0"}));
  EXPECT_EQ(rows[1][5], "int:2");
  EXPECT_EQ(rows[6][4], "text:P2");

  // A second submission continues after the largest ID.
  GenericBatch second = Batch("B2", {1});
  ASSERT_EQ(second.WriteZQStatus(Login(), false), 1);
  EXPECT_EQ(Query("SELECT ID, IsQC, BatchID FROM batches WHERE ID = 7;")[0],
            (std::vector<std::string>{"int:7", "int:0", "text:B2"}));
}

TEST_F(StatusDatabaseTest, QuotesAreStoredIntactAndOverlongRowsAreSkipped) {
  GenericBatch batch = Batch("B\"1", {3});
  GenericSample& quoted = const_cast<GenericSample&>(batch.Plates()[0].Samples()[0]);
  quoted.SampleID("say \"hi\"); DROP TABLE batches; --");
  GenericSample& overlong = const_cast<GenericSample&>(batch.Plates()[0].Samples()[1]);
  for (int i = 0; i < 31; ++i) overlong.AddUserField("u");  // 31 > 5 columns
  ASSERT_EQ(batch.WriteZQStatus(Login(), false), 1);
  auto rows = Query("SELECT ID, SampleID, BatchID FROM batches ORDER BY ID;");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0][1], "text:say \"hi\"); DROP TABLE batches; --");
  EXPECT_EQ(rows[0][2], "text:B\"1");
  EXPECT_EQ(rows[1][0], "int:2");  // the skipped row used ID 1 all the same
}

TEST_F(StatusDatabaseTest, IdsWrapToZeroAfterTheLargestIntAndMissingFoldersDoNotFail) {
  GenericBatch seed = Batch("seed", {1});
  ASSERT_EQ(seed.WriteZQStatus(Login(), false), 1);
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(Database().c_str(), &db), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(db, "UPDATE batches SET ID = 2147483645;", nullptr, nullptr, nullptr),
            SQLITE_OK);
  sqlite3_close(db);
  GenericBatch batch = Batch("wrap", {3});
  ASSERT_EQ(batch.WriteZQStatus(Login(), false), 1);
  auto rows = Query("SELECT ID, BatchID FROM batches ORDER BY ID;");
  ASSERT_EQ(rows.size(), 4u);
  EXPECT_EQ(rows[0][0] + rows[1][0] + rows[3][0], "int:0int:1int:2147483646");
  EXPECT_EQ(rows[2][1], "text:seed");

  EXPECT_EQ(batch.WriteZQStatus(root() + "/no/such/folder/ZQLogin/x", false), 1);
  EXPECT_NE(GenericBatch::LastStatusResult(), SQLITE_OK);
}

TEST_F(StatusDatabaseTest, ConcurrentSubmittersFromSeveralProcessesLoseNoRow) {
  constexpr int kChildren = 6;
  constexpr int kRounds = 3;
  std::vector<pid_t> children;
  for (int c = 0; c < kChildren; ++c) {
    pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
      int status = 0;
      for (int round = 0; round < kRounds; ++round) {
        GenericBatch batch = Batch("child" + std::to_string(c), {5, 5});
        if (batch.WriteZQStatus(Login(), false) != 1) status = 1;
      }
      _exit(status);
    }
    children.push_back(pid);
  }
  for (pid_t pid : children) {
    int status = -1;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }
  auto rows = Query("SELECT ID, BatchID FROM batches;");
  ASSERT_EQ(rows.size(), static_cast<std::size_t>(kChildren * kRounds * 10));
  std::set<std::string> ids;
  std::map<std::string, int> perChild;
  for (const auto& row : rows) {
    ids.insert(row[0]);
    ++perChild[row[1]];
  }
  EXPECT_EQ(ids.size(), rows.size());
  EXPECT_EQ(Query("SELECT MAX(ID) FROM batches;")[0][0],
            "int:" + std::to_string(kChildren * kRounds * 10 - 1));
  for (const auto& [child, count] : perChild) EXPECT_EQ(count, kRounds * 10) << child;
}

}  // namespace
}  // namespace kvdao
