// Method records published through shared memory: the values of one
// process read byte for byte in another, the value rules, and the
// deliberate fill of GetMethodValues on a failed read. Every test runs with
// its own block-name prefix and removes its block afterwards.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "kvdao/method/method_share_mem.h"

namespace kvdao {
namespace {

constexpr int kRecord = static_cast<int>(kMethodRecordSize);

class MethodShareMemTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string prefix = "kvdao-test-" + std::to_string(::getpid()) + "-" +
                         ::testing::UnitTest::GetInstance()->current_test_info()->name() + "-";
    ::setenv("KVDAO_SHM_PREFIX", prefix.c_str(), 1);
  }
  void TearDown() override {
    CShareMem::Remove(CMethodShareMem::kBlockName);
    ::unsetenv("KVDAO_SHM_PREFIX");
  }
};

CMethodRecord Named(const std::string& name, double conc) {
  CMethodRecord record;
  record.SetName(name);
  record.SetStdConc(conc);
  return record;
}

TEST_F(MethodShareMemTest, AnotherProcessReadsTheSameBytes) {
  CMethodShareMem memory(64 * 1024, 8);
  ASSERT_TRUE(memory.IsValid());
  const CMethodRecord records[] = {Named("first", 1.5), Named("second", 2.5), Named("third", 3.5)};
  ASSERT_TRUE(memory.SetMethodValues(records, 3, 7, 3 * kRecord));

  // The child opens the block by name (asking for a different size, which
  // an existing block ignores), checks the bytes and answers with a value.
  pid_t pid = ::fork();
  if (pid == 0) {
    CMethodShareMem other(1, 1);
    CMethodRecord read[3];
    bool same = other.GetMethodValues(read, 3, 7, 3 * kRecord);
    for (int i = 0; same && i < 3; ++i)
      same = std::memcmp(read[i].GetData(), records[i].GetData(), kMethodRecordSize) == 0;
    same = same && other.SetMethodValue(Named("from the child", 9.0), 8, kRecord);
    ::_exit(same ? 0 : 1);
  }
  int status = 0;
  ::waitpid(pid, &status, 0);
  ASSERT_EQ(status, 0) << "the child did not read the same bytes";
  CMethodRecord answer;
  ASSERT_TRUE(memory.GetMethodValue(answer, 8, kRecord));
  EXPECT_EQ(answer.GetName(), "from the child");
  EXPECT_EQ(answer.GetStdConc(), 9.0);
}

TEST_F(MethodShareMemTest, ValuesKeepTheirSizeAndTag) {
  CMethodShareMem memory(3 * kRecord + 64, 2);
  ASSERT_TRUE(memory.IsValid());
  EXPECT_TRUE(memory.CreateMethodValue(1, kRecord));
  EXPECT_TRUE(memory.CreateMethodValue(1, kRecord)) << "the same value again";
  EXPECT_FALSE(memory.CreateMethodValue(1, 2 * kRecord)) << "another size";
  EXPECT_FALSE(memory.CreateValue(1, kRecord, 99)) << "another tag";
  EXPECT_FALSE(memory.CreateMethodValue(2, 3 * kRecord)) << "no room left";
  EXPECT_TRUE(memory.CreateMethodValue(2, 2 * kRecord));
  EXPECT_FALSE(memory.CreateMethodValue(3, 8)) << "no slot left";

  CMethodRecord record = Named("kept", 1.0);
  EXPECT_FALSE(memory.SetMethodValues(&record, 0, 1, kRecord));
  EXPECT_FALSE(memory.SetMethodValues(nullptr, 1, 1, kRecord));
  CMethodRecord two[2] = {Named("a", 1), Named("b", 2)};
  EXPECT_FALSE(memory.SetMethodValues(two, 2, 1, 2 * kRecord)) << "value 1 holds one record";
  EXPECT_FALSE(memory.GetMethodValue(record, 5, kRecord)) << "no such value";
  EXPECT_EQ(record.GetName(), "kept");

  // A failed read still assigns every record, from zero bytes.
  CMethodRecord filled[2] = {Named("x", 1), Named("y", 2)};
  EXPECT_FALSE(memory.GetMethodValues(filled, 2, 5, 2 * kRecord));
  EXPECT_EQ(filled[0].GetName(), "");
  EXPECT_EQ(filled[1].GetStdConc(), 0.0);
}

TEST_F(MethodShareMemTest, CopiesOpenTheSameBlockAndBlocksOutliveTheirObjects) {
  {
    CMethodShareMem memory(4 * kRecord, 4);
    CMethodShareMem copy(memory);
    ASSERT_TRUE(copy.IsValid());
    ASSERT_TRUE(memory.SetMethodValue(Named("shared", 4.0), 3, kRecord));
    CMethodRecord read;
    ASSERT_TRUE(copy.GetMethodValue(read, 3, kRecord));
    EXPECT_EQ(read.GetName(), "shared");
  }
  CMethodShareMem later(1, 1);
  CMethodRecord read;
  ASSERT_TRUE(later.GetMethodValue(read, 3, kRecord));
  EXPECT_EQ(read.GetStdConc(), 4.0);
  EXPECT_TRUE(CShareMem::Remove(CMethodShareMem::kBlockName));
  EXPECT_FALSE(CShareMem(CMethodShareMem::kBlockName, 0, 0).IsValid()) << "opening needs the block";
}

}  // namespace
}  // namespace kvdao
