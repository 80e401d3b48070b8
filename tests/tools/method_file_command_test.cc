// kvdao method-file and kvdao sample show on record-database files, driven
// in-process: XML → method file → list and XML again, refusal of files that
// are not method files, and the samples of a legacy .SDB list.

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "cli.h"
#include "common/test_env.h"
#include "kvdao/method/method_manager.h"
#include "kvdao/platform/record_database.h"
#include "kvdao/samplelist/sample_record.h"

namespace kvdao::cli {
int RunMethodFileCommand(CommandContext& context);
int RunSampleCommand(CommandContext& context);
namespace {

class RecordFileCommandTest : public test::TempEnvTest {
 protected:
  int Run(int (*command)(CommandContext&), std::vector<std::string> args) {
    out.str("");
    err.str("");
    CommandContext context{std::move(args), out, err};
    return command(context);
  }
  std::ostringstream out;
  std::ostringstream err;
};

constexpr const char* kXml =
    "<?xml version=\"1.0\"?>\n<METHOD><METHODRECORD/><METHODRECORD/></METHOD>";

TEST_F(RecordFileCommandTest, BuildListAndDumpAMethodFile) {
  // Two records that differ: build them, then name them through the manager.
  test::WriteFile(PathTo("in.xml"), kXml);
  const std::string file = PathTo("quan.mdb3");
  ASSERT_EQ(Run(RunMethodFileCommand, {"build", PathTo("in.xml"), file}), kExitOk) << err.str();
  {
    CMethodManager manager;
    ASSERT_TRUE(manager.Open(file.c_str(), 0));
    static_cast<CMethodRecord*>(manager.GetAt(0))->SetName("Atrazine");
    static_cast<CMethodRecord*>(manager.GetAt(1))->SetName("Simazine");
    ASSERT_TRUE(manager.SaveAll());
  }
  ASSERT_EQ(Run(RunMethodFileCommand, {"list", file}), kExitOk) << err.str();
  EXPECT_NE(out.str().find("1       Atrazine"), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("2       Simazine"), std::string::npos) << out.str();

  // A dump, built into a file and dumped again, gives the same XML.
  ASSERT_EQ(Run(RunMethodFileCommand, {"dump", file, PathTo("out.xml")}), kExitOk) << err.str();
  ASSERT_EQ(Run(RunMethodFileCommand, {"build", PathTo("out.xml"), PathTo("again.mdb3")}), kExitOk);
  ASSERT_EQ(Run(RunMethodFileCommand, {"dump", PathTo("again.mdb3")}), kExitOk);
  const std::string xml = test::ReadFile(PathTo("out.xml"));
  EXPECT_TRUE(out.str() == xml) << "the XML changed on its way through a method file";
  EXPECT_NE(xml.find("Simazine"), std::string::npos);
}

TEST_F(RecordFileCommandTest, MethodFileErrors) {
  test::WriteFile(PathTo("in.xml"), kXml);
  test::WriteFile(PathTo("notes.txt"), "not a method file");
  EXPECT_EQ(Run(RunMethodFileCommand, {"build", PathTo("in.xml"), PathTo("notes.txt")}), kExitFailure);
  EXPECT_EQ(test::ReadFile(PathTo("notes.txt")), "not a method file");
  EXPECT_EQ(Run(RunMethodFileCommand, {"list", PathTo("notes.txt")}), kExitFailure);
  EXPECT_NE(err.str().find("not a readable method file"), std::string::npos);
  EXPECT_EQ(Run(RunMethodFileCommand, {"build", PathTo("notes.txt"), PathTo("x.mdb3")}), kExitFailure);

  // A damaged record is reported, not dumped as garbage.
  ASSERT_EQ(Run(RunMethodFileCommand, {"build", PathTo("in.xml"), PathTo("m.mdb3")}), kExitOk);
  std::string bytes = test::ReadFile(PathTo("m.mdb3"));
  bytes[64 + 3508 + 10] ^= 1;
  test::WriteFile(PathTo("m.mdb3"), bytes);
  EXPECT_EQ(Run(RunMethodFileCommand, {"dump", PathTo("m.mdb3")}), kExitFailure);
  EXPECT_NE(err.str().find("record 2"), std::string::npos) << err.str();
  EXPECT_EQ(Run(RunMethodFileCommand, {"list"}), kExitUsage);
  EXPECT_EQ(Run(RunMethodFileCommand, {"copy", "a", "b"}), kExitUsage);
}

TEST_F(RecordFileCommandTest, SampleShowListsTheSamplesOfAnSdbFile) {
  const std::string path = PathTo("LIST.SDB");
  ASSERT_EQ(platform::DB3Open(platform::kDB3KindSample, path.c_str(), platform::kDB3Create), 0);
  for (const char* name : {"RUN_001", "RUN_002"}) {
    CSampleRecord record;
    record.SetDataFile(name);
    _tagINTERNAL_SAMPLES_DB_RECORD flat{};
    record.GetSample(&flat);
    ASSERT_EQ(platform::DB3HandleRecord(platform::kDB3KindSample, 0, &flat, platform::kDB3Append, 1), 0);
  }
  platform::DB3Close(platform::kDB3KindSample);

  ASSERT_EQ(Run(RunSampleCommand, {"show", path}), kExitOk) << err.str();
  EXPECT_NE(out.str().find("sample 1\n"), std::string::npos);
  EXPECT_NE(out.str().find("RUN_001"), std::string::npos);
  EXPECT_NE(out.str().find("RUN_002"), std::string::npos);
  ASSERT_EQ(Run(RunSampleCommand, {"show", path, "--sample", "2"}), kExitOk);
  EXPECT_EQ(out.str().find("RUN_001"), std::string::npos);
  EXPECT_NE(out.str().find("RUN_002"), std::string::npos);
  EXPECT_EQ(Run(RunSampleCommand, {"show", path, "--sample", "3"}), kExitFailure);
  test::WriteFile(PathTo("bad.sdb"), "garbage");
  EXPECT_EQ(Run(RunSampleCommand, {"show", PathTo("bad.sdb")}), kExitFailure);
}

}  // namespace
}  // namespace kvdao::cli
