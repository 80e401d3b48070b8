#include "kvdao/samplelist/batch_sample_record.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "common/test_env.h"

namespace kvdao {
namespace {

class BatchSampleRecordTest : public test::TempEnvTest {};

TEST_F(BatchSampleRecordTest, DefaultRecordWritesZerosToTheCurrentSampleFile) {
  CBatchSampleRecord record;
  ASSERT_EQ(record.Write(nullptr), 1);
  std::string path = CBatchSampleRecord::GetDefaultFileName();
  EXPECT_EQ(path, root() + "/home/KVCurSmp.txt");
  std::string text = test::ReadFile(path);
  EXPECT_EQ(text.rfind("[Batch]\nBatch File Name=\nFirst Sample=0\nLast Sample=0\n"
                       "Current Sample=0\nBatch User Name=\n\n[Sample1]\n",
                       0),
            0u)
      << text;
}

TEST_F(BatchSampleRecordTest, WriteThenReadRestoresTheWholeObject) {
  CBatchSampleRecord record;
  record.SetBatchFile("C:\\Batches\\plate1.xbt");
  record.SetFirstSample(1);
  record.SetLastSample(96);
  record.SetCurrentSample(12);
  record.SetBatchUserName("lab user");
  record.SetDataFile("RUN_012");
  record.SetMass(0, "301.2");
  std::string path = PathTo("current.txt");
  ASSERT_EQ(record.Write(path.c_str()), 1);

  CBatchSampleRecord read;
  ASSERT_EQ(read.Read(path.c_str()), 1);
  EXPECT_EQ(read.GetBatchFile(), "C:\\Batches\\plate1.xbt");
  EXPECT_EQ(read.GetFirstSample(), 1);
  EXPECT_EQ(read.GetLastSample(), 96);
  EXPECT_EQ(read.GetCurrentSample(), 12);
  EXPECT_EQ(read.GetBatchUserName(), "lab user");
  EXPECT_EQ(read.GetDataFile(), "RUN_012");
  EXPECT_EQ(read.GetMassText(0), "301.2");

  CBatchSampleRecord copy;
  copy = read;
  EXPECT_EQ(copy.GetCurrentSample(), 12);
  EXPECT_EQ(copy.GetDataFile(), "RUN_012");
  EXPECT_STREQ(copy.GetClassName(), "CBatchSampleRecord");
}

TEST_F(BatchSampleRecordTest, MissingKeysFoldersAndFiles) {
  std::string path = PathTo("partial.txt");
  test::WriteFile(path, "[batch]\r\nFirst Sample=5\r\nLast Sample=x9\r\n");
  CBatchSampleRecord read;
  read.SetCurrentSample(7);
  ASSERT_EQ(read.Read(path.c_str()), 1);
  EXPECT_EQ(read.GetFirstSample(), 5);
  EXPECT_EQ(read.GetLastSample(), 0);
  EXPECT_EQ(read.GetCurrentSample(), 0);
  EXPECT_EQ(read.Read(PathTo("missing.txt").c_str()), 0);

  CBatchSampleRecord record;
  std::string folder = PathTo("no-such-folder");
  EXPECT_EQ(record.Write((folder + "/KVCurSmp.txt").c_str()), 0);
  EXPECT_FALSE(std::filesystem::exists(folder));
}

}  // namespace
}  // namespace kvdao
