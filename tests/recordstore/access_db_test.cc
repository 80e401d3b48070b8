// The ".SDB" record access: a block opens a kind 5 store of sample records
// and reads them by number; it refuses other stores and keeps no limit of
// one file per kind.

#include <gtest/gtest.h>

#include <cstring>

#include "common/test_env.h"
#include "kvdao/platform/access_db.h"
#include "kvdao/samplelist/sample_db_record.h"
#include "recordstore/store_test_util.h"

namespace kvdao::platform {
namespace {

class AccessDbTest : public test::TempEnvTest {};

TEST_F(AccessDbTest, ReadsTheSamplesOfAStoreOfKindFive) {
  const std::string path = PathTo("list.sdb");
  ASSERT_EQ(DB3Open(kDB3KindSample, path.c_str(), kDB3Create), 0);
  for (std::uint32_t tag : {1u, 2u}) {
    auto record = test::TaggedRecord(tag, static_cast<int>(kSampleRecordSize));
    ASSERT_EQ(DB3HandleRecord(kDB3KindSample, 0, record.data(), kDB3Append, 1), 0);
  }
  // The record-database file of the kind stays open: the block is separate.
  tagACCESSDB block{}, second{};
  ASSERT_EQ(AccessDBOpen(path.c_str(), 5, 4262, &block, 0), 1);
  EXPECT_EQ(AccessDBOpen(path.c_str(), 5, 4262, &block, 0), 0) << "block already open";
  ASSERT_EQ(AccessDBOpen(path.c_str(), 5, 4262, &second, 0), 1);
  EXPECT_EQ(block.nNumRecords, 2);
  _tagINTERNAL_SAMPLES_DB_RECORD sample{};
  ASSERT_EQ(AccessDBGetRecord(&block, 2, &sample), 1);
  auto expected = test::TaggedRecord(2, static_cast<int>(kSampleRecordSize));
  EXPECT_EQ(std::memcmp(&sample, expected.data(), sizeof sample), 0);
  EXPECT_EQ(AccessDBGetRecord(&block, 3, &sample), 0);
  EXPECT_EQ(AccessDBGetRecord(&block, 0, &sample), 0);
  EXPECT_EQ(AccessDBSetNumRecords(&block, 1), 1);
  EXPECT_EQ(block.nNumRecords, 1);
  EXPECT_EQ(AccessDBSetNumRecords(&block, -1), 0);
  AccessDBClose(&block, 0);
  AccessDBClose(&second, 0);
  EXPECT_EQ(block.pStore, nullptr);
  EXPECT_EQ(AccessDBGetRecord(&block, 1, &sample), 0) << "closed";
  DB3Close(kDB3KindSample);

  // A method store is not a sample list.
  ASSERT_EQ(DB3Open(kDB3KindMethod, PathTo("m.db3").c_str(), kDB3Create), 0);
  DB3Close(kDB3KindMethod);
  EXPECT_EQ(AccessDBOpen(PathTo("m.db3").c_str(), 5, 4262, &block, 0), 0);
  EXPECT_EQ(AccessDBOpen(PathTo("missing.sdb").c_str(), 5, 4262, &block, 0), 0);
  EXPECT_EQ(block.pStore, nullptr);
}

}  // namespace
}  // namespace kvdao::platform
