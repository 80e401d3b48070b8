#include <gtest/gtest.h>

#include <sstream>

#include "cli.h"
#include "common/test_env.h"
#include "kvdao/genericbatch/generic_batch.h"

namespace kvdao::cli {
namespace {

class BatchCommandTest : public test::TempEnvTest {
 protected:
  int Run(std::vector<std::string> args) {
    out_.str("");
    err_.str("");
    for (const Command& command : Commands()) {
      if (command.name == "batch") {
        CommandContext context{std::move(args), out_, err_};
        return command.run(context);
      }
    }
    return -1;
  }
  std::string WriteBatch() {
    GenericBatch batch;
    batch.BatchID("B7");
    batch.UserName("ann");
    GenericPlate plate;
    plate.PlateID("P1");
    for (const char* well : {"A1", "A2"}) {
      GenericSample sample;
      sample.Location(well);
      sample.SampleID(std::string("id-") + well);
      sample.AddMass(150.0);
      plate.AddSample(sample);
    }
    batch.AddPlate(plate);
    std::string path = PathTo("b.xbt");
    EXPECT_EQ(batch.Write(path, ":"), 1);
    return path;
  }
  std::ostringstream out_, err_;
};

TEST_F(BatchCommandTest, ShowsPlatesSamplesAndFieldsInUseAndRewrites) {
  // A hand-written file with CRLF line ends and keys out of order.
  std::string path = PathTo("hand.xbt");
  test::WriteFile(path,
                  "[Batch]\r\nNumberOfPlates=1\r\nBatchID=B7\r\n[Plate:1]\r\nNumberOfWells=1\r\n"
                  "[Sample:1:1]\r\nSampleID=s1\r\nWell=A1\r\nNumberOfMasses=1\r\nMass1=150\r\n");
  std::string canonical = PathTo("canonical.xbt");
  ASSERT_EQ(Run({"show", path, "--rewrite", canonical}), kExitOk) << err_.str();
  EXPECT_EQ(out_.str().rfind("batch B7, user -, 1 plates, 1 samples\n", 0), 0u) << out_.str();
  EXPECT_NE(out_.str().find("  Sample    A1      s1"), std::string::npos);
  EXPECT_NE(out_.str().find("  Mass                    1\n"), std::string::npos);
  EXPECT_EQ(out_.str().find("  MSMethod"), std::string::npos);
  std::string written = test::ReadFile(canonical);
  EXPECT_EQ(written.rfind("[Batch]\nEconomyScheduling=0\n", 0), 0u);
  EXPECT_NE(written.find("[Sample:1:1]\nWell=A1\nSampleID=s1\n"),
            std::string::npos);

  EXPECT_EQ(Run({"show", PathTo("bad.xbt"), "extra"}), kExitUsage);
  test::WriteFile(PathTo("bad.xbt"), "[Batch]\nNumberOfPlates=-1\n");
  EXPECT_EQ(Run({"show", PathTo("bad.xbt")}), kExitFailure);
  EXPECT_NE(err_.str().find("cannot read"), std::string::npos);
  EXPECT_EQ(Run({"frobnicate"}), kExitUsage);
}

TEST_F(BatchCommandTest, SubmitsAndListsTheStatusDatabase) {
  std::string path = WriteBatch();
  std::string login = root() + "/ZQLogin";
  ASSERT_EQ(Run({"submit", path, login, "--qc"}), kExitOk) << err_.str();
  EXPECT_EQ(out_.str(), "2 samples recorded in " + root() + "/ZQStatus.db\n");
  EXPECT_NE(err_.str().find("submitting 2 samples"), std::string::npos);
  ASSERT_EQ(Run({"submit", path, login}), kExitOk);

  ASSERT_EQ(Run({"status", root() + "/ZQStatus.db", "--batch", "B7"}), kExitOk) << err_.str();
  std::istringstream lines(out_.str());
  std::vector<std::string> rows;
  for (std::string line; std::getline(lines, line);) rows.push_back(line);
  ASSERT_EQ(rows.size(), 5u) << out_.str();
  EXPECT_EQ(rows[0].rfind("ID", 0), 0u);
  EXPECT_EQ(rows[1].rfind("0          1  B7              ann         -        A1    id-A1", 0),
            0u)
      << rows[1];
  EXPECT_EQ(rows[4].rfind("3          0  B7", 0), 0u) << rows[4];
  ASSERT_EQ(Run({"status", root() + "/ZQStatus.db", "--batch", "other"}), kExitOk);
  EXPECT_EQ(err_.str(), "0 rows\n");

  EXPECT_EQ(Run({"status", PathTo("none.db")}), kExitFailure);
  EXPECT_EQ(Run({"submit", path, root() + "/missing/ZQLogin"}), kExitFailure);
  EXPECT_EQ(Run({"submit", path}), kExitUsage);
}

}  // namespace
}  // namespace kvdao::cli
