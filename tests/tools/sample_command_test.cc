#include <gtest/gtest.h>

#include <sstream>

#include "cli.h"
#include "common/test_env.h"
#include "kvdao/samplelist/batch_sample_record.h"

namespace kvdao::cli {
namespace {

class SampleCommandTest : public test::TempEnvTest {
 protected:
  int Run(std::vector<std::string> args) {
    out_.str("");
    err_.str("");
    for (const Command& command : Commands()) {
      if (command.name == "sample") {
        CommandContext context{std::move(args), out_, err_};
        return command.run(context);
      }
    }
    return -1;
  }
  std::ostringstream out_, err_;
};

TEST_F(SampleCommandTest, ShowsTheFilledFieldsOfASample) {
  CSampleRecord first, second;
  first.SetDataFile("RUN_1");
  second.SetDataFile("RUN_2");
  second.SetMass(0, "301.2");
  std::string path = PathTo("samples.txt");
  ASSERT_EQ(first.Write(path.c_str(), 1), 1);
  ASSERT_EQ(second.Add(path.c_str(), 2), 1);

  ASSERT_EQ(Run({"show", path, "--sample", "2"}), kExitOk);
  EXPECT_NE(out_.str().find("FILE_NAME               RUN_2\n"), std::string::npos) << out_.str();
  EXPECT_NE(out_.str().find("MASS_A                  301.2\n"), std::string::npos);
  EXPECT_EQ(out_.str().find("RUN_1"), std::string::npos);

  EXPECT_EQ(Run({"show", path, "--sample", "3"}), kExitFailure);
  EXPECT_NE(err_.str().find("no sample 3"), std::string::npos);
  EXPECT_EQ(Run({"show"}), kExitUsage);
  EXPECT_EQ(Run({"list", path}), kExitUsage);
}

TEST_F(SampleCommandTest, ShowsTheCurrentSampleFileWithItsBatch) {
  CBatchSampleRecord record;
  record.SetBatchFile("plate1.xbt");
  record.SetCurrentSample(12);
  record.SetDataFile("RUN_12");
  ASSERT_EQ(record.Write(nullptr), 1);
  ASSERT_EQ(Run({"show", "--current"}), kExitOk);
  EXPECT_EQ(out_.str().rfind("batch plate1.xbt\n", 0), 0u) << out_.str();
  EXPECT_NE(out_.str().find("current 12"), std::string::npos);
  EXPECT_NE(out_.str().find("RUN_12"), std::string::npos);
}

}  // namespace
}  // namespace kvdao::cli
