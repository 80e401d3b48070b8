// The record-database calls: results, the one-file-per-kind rule, batches,
// and refusal of files that are not intact stores of the kind asked for.

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "common/test_env.h"
#include "recordstore/record_store.h"
#include "recordstore/store_test_util.h"

namespace kvdao::platform {
namespace {

using test::ReadAll;
using test::TaggedRecord;

constexpr int kMethod = kDB3KindMethod;

class RecordDatabaseTest : public test::TempEnvTest {
 protected:
  void TearDown() override {
    for (int kind : {kDB3KindPeak, kDB3KindSample, kDB3KindCalibration, kDB3KindMethod}) DB3Close(kind);
    recordstore::SetCommitHook(nullptr);
    TempEnvTest::TearDown();
  }

  // A method store at `path` holding records tagged 1 … count, closed.
  void MakeStore(const std::string& path, int count) {
    ASSERT_EQ(DB3Open(kMethod, path.c_str(), kDB3Create), 0);
    for (int n = 1; n <= count; ++n) {
      auto record = TaggedRecord(static_cast<std::uint32_t>(n));
      ASSERT_EQ(DB3HandleRecord(kMethod, 0, record.data(), kDB3Append, 1), 0);
    }
    DB3Close(kMethod);
  }
};

TEST_F(RecordDatabaseTest, RecordsRoundTripAndSurviveReopening) {
  const std::string path = PathTo("m.db3");
  MakeStore(path, 3);
  ASSERT_EQ(DB3Open(kMethod, path.c_str(), kDB3OpenExisting), 0);
  EXPECT_EQ(DB3GetRecordsInDB(kMethod), 3);
  auto replacement = TaggedRecord(99);
  EXPECT_EQ(DB3HandleRecord(kMethod, 2, replacement.data(), kDB3Replace, 1), 0);
  DB3Close(kMethod);

  ASSERT_EQ(DB3Open(kMethod, path.c_str(), kDB3OpenExisting), 0);
  bool ok = false;
  auto records = ReadAll(kMethod, ok);
  ASSERT_TRUE(ok);
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[0], TaggedRecord(1));
  EXPECT_EQ(records[1], TaggedRecord(99));
  EXPECT_EQ(records[2], TaggedRecord(3));
  // The file is exactly a 64-byte header and three 3508-byte slots.
  EXPECT_EQ(std::filesystem::file_size(path), 64u + 3u * 3508u);
}

TEST_F(RecordDatabaseTest, CallsFailOutsideTheirRules) {
  const std::string path = PathTo("m.db3");
  auto record = TaggedRecord(1);
  EXPECT_NE(DB3Open(7, path.c_str(), kDB3Create), 0) << "unknown kind";
  EXPECT_NE(DB3Open(kMethod, path.c_str(), kDB3OpenExisting), 0) << "missing file";
  EXPECT_NE(DB3Open(kMethod, nullptr, kDB3Create), 0);
  EXPECT_NE(DB3Open(kMethod, path.c_str(), 3), 0) << "unknown mode";
  EXPECT_EQ(DB3GetRecordsInDB(kMethod), -1) << "nothing open";
  EXPECT_NE(DB3HandleRecord(kMethod, 1, record.data(), kDB3Read, 0), 0);

  ASSERT_EQ(DB3Open(kMethod, path.c_str(), kDB3Create), 0);
  EXPECT_NE(DB3Open(kMethod, PathTo("other.db3").c_str(), kDB3Create), 0) << "one file per kind";
  EXPECT_EQ(DB3Open(kDB3KindPeak, PathTo("p.db3").c_str(), kDB3Create), 0) << "other kinds are free";
  EXPECT_EQ(DB3GetRecordsInDB(kMethod), 0);
  EXPECT_EQ(DB3HandleRecord(kMethod, 1, record.data(), kDB3Append, 1), 0);
  EXPECT_NE(DB3HandleRecord(kMethod, 2, record.data(), kDB3Read, 0), 0) << "beyond the end";
  EXPECT_NE(DB3HandleRecord(kMethod, 0, record.data(), kDB3Read, 0), 0) << "numbers start at 1";
  EXPECT_NE(DB3HandleRecord(kMethod, 2, record.data(), kDB3Replace, 1), 0) << "replace beyond the end";
  EXPECT_NE(DB3HandleRecord(kMethod, 1, record.data(), kDB3Read, 1), 0) << "read with write flag";
  EXPECT_NE(DB3HandleRecord(kMethod, 1, record.data(), kDB3Replace, 0), 0) << "write without flag";
  EXPECT_NE(DB3HandleRecord(kMethod, 1, nullptr, kDB3Read, 0), 0);
  EXPECT_NE(DB3HandleRecord(kMethod, 1, record.data(), 4, 1), 0) << "unknown operation";
  EXPECT_EQ(DB3GetRecordsInDB(kMethod), 1);
}

TEST_F(RecordDatabaseTest, CreatingEmptiesAnExistingStoreOfTheKind) {
  const std::string path = PathTo("m.db3");
  MakeStore(path, 4);
  ASSERT_EQ(DB3Open(kMethod, path.c_str(), kDB3Create), 0);
  EXPECT_EQ(DB3GetRecordsInDB(kMethod), 0);
  // An empty file (left by a creation that stopped) becomes a store too.
  DB3Close(kMethod);
  test::WriteFile(path, "");
  EXPECT_EQ(DB3Open(kMethod, path.c_str(), kDB3Create), 0);
  EXPECT_EQ(DB3GetRecordsInDB(kMethod), 0);
}

TEST_F(RecordDatabaseTest, BatchesCommitOnceAndReadTheirOwnChanges) {
  static int commits;
  commits = 0;
  recordstore::SetCommitHook([](recordstore::CommitStage stage) {
    if (stage == recordstore::CommitStage::kJournalWritten) ++commits;
  });
  const std::string path = PathTo("m.db3");
  MakeStore(path, 2);
  ASSERT_EQ(commits, 2) << "outside a batch every write is a commit";
  commits = 0;
  ASSERT_EQ(DB3Open(kMethod, path.c_str(), kDB3OpenExisting), 0);

  ASSERT_EQ(DB3BeginBatch(kMethod), 0);
  EXPECT_NE(DB3BeginBatch(kMethod), 0) << "batches do not nest";
  auto changed = TaggedRecord(50);
  ASSERT_EQ(DB3HandleRecord(kMethod, 1, changed.data(), kDB3Replace, 1), 0);
  for (std::uint32_t tag = 100; tag < 400; ++tag) {
    auto record = TaggedRecord(tag);
    ASSERT_EQ(DB3HandleRecord(kMethod, 0, record.data(), kDB3Append, 1), 0);
  }
  EXPECT_EQ(DB3GetRecordsInDB(kMethod), 302);
  std::vector<std::uint8_t> read(3504);
  ASSERT_EQ(DB3HandleRecord(kMethod, 1, read.data(), kDB3Read, 0), 0);
  EXPECT_EQ(read, changed);
  ASSERT_EQ(DB3HandleRecord(kMethod, 302, read.data(), kDB3Read, 0), 0);
  EXPECT_EQ(read, TaggedRecord(399));
  ASSERT_EQ(DB3EndBatch(kMethod, 1), 0);
  EXPECT_EQ(commits, 1);
  EXPECT_NE(DB3EndBatch(kMethod, 1), 0) << "no batch open";

  // A dropped batch changes nothing, a cut followed by appends is one commit.
  ASSERT_EQ(DB3BeginBatch(kMethod), 0);
  ASSERT_EQ(DB3SetRecordsInDB(kMethod, 0), 0);
  EXPECT_EQ(DB3GetRecordsInDB(kMethod), 0);
  ASSERT_EQ(DB3EndBatch(kMethod, 0), 0);
  EXPECT_EQ(DB3GetRecordsInDB(kMethod), 302);
  ASSERT_EQ(DB3BeginBatch(kMethod), 0);
  ASSERT_EQ(DB3SetRecordsInDB(kMethod, 1), 0);
  EXPECT_NE(DB3SetRecordsInDB(kMethod, 5), 0) << "cannot grow by cutting";
  auto last = TaggedRecord(7);
  ASSERT_EQ(DB3HandleRecord(kMethod, 0, last.data(), kDB3Append, 1), 0);
  ASSERT_EQ(DB3EndBatch(kMethod, 1), 0);
  EXPECT_EQ(commits, 2);
  DB3Close(kMethod);

  ASSERT_EQ(DB3Open(kMethod, path.c_str(), kDB3OpenExisting), 0);
  bool ok = false;
  auto records = ReadAll(kMethod, ok);
  ASSERT_TRUE(ok);
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(records[0], changed);
  EXPECT_EQ(records[1], last);
  EXPECT_EQ(std::filesystem::file_size(path), 64u + 2u * 3508u);
  EXPECT_FALSE(std::filesystem::exists(path + "-journal"));
}

// Every damaged or foreign file fails to open, in both modes, and is left
// byte for byte as it was.
TEST_F(RecordDatabaseTest, BadFilesAreRefusedAndLeftAlone) {
  const std::string good = PathTo("good.db3");
  MakeStore(good, 2);
  const std::string bytes = test::ReadFile(good);
  auto flipped = [&](std::size_t at) {
    std::string copy = bytes;
    copy[at] = static_cast<char>(copy[at] ^ 0x40);
    return copy;
  };
  struct Case {
    const char* what;
    std::string content;
  };
  const Case cases[] = {
      {"magic", flipped(0)},
      {"version", flipped(8)},
      {"header checksum", flipped(62)},
      {"record count", flipped(24)},
      {"reserved byte", flipped(40)},
      {"cut short", bytes.substr(0, bytes.size() - 1)},
      {"bytes past the end", bytes + "x"},
      {"header only half there", bytes.substr(0, 30)},
      {"plain text", std::string(5000, 'a')},
  };
  for (const Case& c : cases) {
    const std::string path = PathTo("bad.db3");
    test::WriteFile(path, c.content);
    EXPECT_NE(DB3Open(kMethod, path.c_str(), kDB3OpenExisting), 0) << c.what;
    EXPECT_NE(DB3Open(kMethod, path.c_str(), kDB3Create), 0) << c.what;
    EXPECT_EQ(test::ReadFile(path), c.content) << c.what;
  }
  // A store of another kind: its record size does not match.
  EXPECT_NE(DB3Open(kDB3KindSample, good.c_str(), kDB3OpenExisting), 0);
  EXPECT_NE(DB3Open(kDB3KindSample, good.c_str(), kDB3Create), 0);
  EXPECT_EQ(test::ReadFile(good), bytes);
}

TEST_F(RecordDatabaseTest, ADamagedRecordFailsToReadAndTheOthersStillRead) {
  const std::string path = PathTo("m.db3");
  MakeStore(path, 3);
  std::string bytes = test::ReadFile(path);
  bytes[64 + 3508 + 100] ^= 1;  // inside record 2
  test::WriteFile(path, bytes);
  ASSERT_EQ(DB3Open(kMethod, path.c_str(), kDB3OpenExisting), 0);
  std::vector<std::uint8_t> read(3504);
  EXPECT_EQ(DB3HandleRecord(kMethod, 1, read.data(), kDB3Read, 0), 0);
  EXPECT_NE(DB3HandleRecord(kMethod, 2, read.data(), kDB3Read, 0), 0);
  EXPECT_EQ(DB3HandleRecord(kMethod, 3, read.data(), kDB3Read, 0), 0);
  EXPECT_EQ(read, TaggedRecord(3));
  // Two records swapped on disk: each is intact but in the wrong place.
  DB3Close(kMethod);
  MakeStore(path, 3);
  bytes = test::ReadFile(path);
  std::string first = bytes.substr(64, 3508);
  bytes.replace(64, 3508, bytes.substr(64 + 3508, 3508));
  bytes.replace(64 + 3508, 3508, first);
  test::WriteFile(path, bytes);
  ASSERT_EQ(DB3Open(kMethod, path.c_str(), kDB3OpenExisting), 0);
  EXPECT_NE(DB3HandleRecord(kMethod, 1, read.data(), kDB3Read, 0), 0);
  EXPECT_NE(DB3HandleRecord(kMethod, 2, read.data(), kDB3Read, 0), 0);
}

}  // namespace
}  // namespace kvdao::platform
