// A record store stays whole when its writer dies or runs out of space half
// way through a commit, and when two processes write it at once. Each case
// forks a child that writes; the parent checks what is on disk afterwards.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "common/test_env.h"
#include "recordstore/record_store.h"
#include "recordstore/store_test_util.h"

namespace kvdao::platform {
namespace {

using test::ReadAll;
using test::TaggedRecord;
using Records = std::vector<std::vector<std::uint8_t>>;

constexpr int kMethod = kDB3KindMethod;
constexpr int kOldCount = 300;
constexpr int kAppended = 600;

// The store before the big write (tags 1 … 300) and after it (every record
// replaced by tag + 1000, then 600 appended with tags 2001 …).
Records OldState() {
  Records records;
  for (int n = 1; n <= kOldCount; ++n) records.push_back(TaggedRecord(static_cast<std::uint32_t>(n)));
  return records;
}
Records NewState() {
  Records records;
  for (int n = 1; n <= kOldCount; ++n) records.push_back(TaggedRecord(static_cast<std::uint32_t>(1000 + n)));
  for (int n = 1; n <= kAppended; ++n) records.push_back(TaggedRecord(static_cast<std::uint32_t>(2000 + n)));
  return records;
}

// The big write, in one batch; true when it committed.
bool WriteNewState(const std::string& path) {
  if (DB3Open(kMethod, path.c_str(), kDB3OpenExisting) != 0 || DB3BeginBatch(kMethod) != 0) return false;
  Records next = NewState();
  bool ok = true;
  for (int n = 1; ok && n <= kOldCount; ++n)
    ok = DB3HandleRecord(kMethod, n, next[static_cast<std::size_t>(n - 1)].data(), kDB3Replace, 1) == 0;
  for (std::size_t i = kOldCount; ok && i < next.size(); ++i)
    ok = DB3HandleRecord(kMethod, 0, next[i].data(), kDB3Append, 1) == 0;
  ok = DB3EndBatch(kMethod, ok ? 1 : 0) == 0 && ok;
  DB3Close(kMethod);
  return ok;
}

// Where the child kills itself: at a stage, after that many record chunks.
recordstore::CommitStage g_killStage;
int g_killAfterChunks;
void KillAtStage(recordstore::CommitStage stage) {
  if (stage == recordstore::CommitStage::kRecordsWritten && --g_killAfterChunks > 0) return;
  if (stage == g_killStage) ::raise(SIGKILL);
}

// Runs `child` in a child process; returns its wait status.
template <typename Child>
int RunChild(Child child, int killAfterMicroseconds = -1) {
  pid_t pid = ::fork();
  if (pid == 0) ::_exit(child() ? 0 : 1);
  if (killAfterMicroseconds >= 0) {
    std::this_thread::sleep_for(std::chrono::microseconds(killAfterMicroseconds));
    ::kill(pid, SIGKILL);
  }
  int status = 0;
  ::waitpid(pid, &status, 0);
  return status;
}

class CrashSafetyTest : public test::TempEnvTest {
 protected:
  void SetUp() override {
    TempEnvTest::SetUp();
    path_ = PathTo("method.db3");
    ASSERT_EQ(DB3Open(kMethod, path_.c_str(), kDB3Create), 0);
    ASSERT_EQ(DB3BeginBatch(kMethod), 0);
    for (auto& record : OldState()) ASSERT_EQ(DB3HandleRecord(kMethod, 0, record.data(), kDB3Append, 1), 0);
    ASSERT_EQ(DB3EndBatch(kMethod, 1), 0);
    DB3Close(kMethod);
  }

  // The store's content as the next process finds it; fails the test when
  // it cannot be opened or read.
  Records Reopen() {
    Records records;
    if (DB3Open(kMethod, path_.c_str(), kDB3OpenExisting) != 0) {
      ADD_FAILURE() << "store does not open";
      return records;
    }
    bool ok = false;
    records = ReadAll(kMethod, ok);
    EXPECT_TRUE(ok) << "store does not read";
    DB3Close(kMethod);
    return records;
  }

  std::string path_;
};

TEST_F(CrashSafetyTest, AKillAtAnyStageOfACommitLeavesTheOldContent) {
  using recordstore::CommitStage;
  struct Point {
    CommitStage stage;
    int chunks;
  };
  // 900 changed records are written in chunks of 256: chunks 1 and 3 are
  // the middle and the last of the record writes.
  const Point points[] = {{CommitStage::kJournalWritten, 0}, {CommitStage::kRecordsWritten, 1},
                          {CommitStage::kRecordsWritten, 3}, {CommitStage::kHeaderWritten, 0},
                          {CommitStage::kStoreSynced, 0}};
  for (const Point& point : points) {
    int status = RunChild([&] {
      g_killStage = point.stage;
      g_killAfterChunks = point.chunks;
      recordstore::SetCommitHook(KillAtStage);
      return WriteNewState(path_);
    });
    ASSERT_TRUE(WIFSIGNALED(status)) << "the child was to die at stage " << static_cast<int>(point.stage);
    EXPECT_TRUE(std::filesystem::exists(path_ + "-journal"));
    EXPECT_TRUE(Reopen() == OldState()) << "stage " << static_cast<int>(point.stage);
    EXPECT_FALSE(std::filesystem::exists(path_ + "-journal")) << "the journal is used up";
  }
  ASSERT_EQ(RunChild([&] { return WriteNewState(path_); }), 0);
  EXPECT_TRUE(Reopen() == NewState());
}

TEST_F(CrashSafetyTest, AKillAtAnyMomentLeavesTheOldOrTheNewContent) {
  const Records before = OldState(), after = NewState();
  for (int delay : {0, 100, 300, 1000, 2000, 5000, 10000, 30000}) {
    // Start each round from the old state.
    ASSERT_EQ(DB3Open(kMethod, path_.c_str(), kDB3Create), 0);
    for (auto record : before) ASSERT_EQ(DB3HandleRecord(kMethod, 0, record.data(), kDB3Append, 1), 0);
    DB3Close(kMethod);
    RunChild([&] { return WriteNewState(path_); }, delay);
    Records found = Reopen();
    EXPECT_TRUE(found == before || found == after) << "killed after " << delay << " us: " << found.size() << " records";
  }
}

TEST_F(CrashSafetyTest, AFullDiskFailsTheWriteAndKeepsTheOldContent) {
  const auto size = std::filesystem::file_size(path_);
  int status = RunChild([&] {
    // Files may not grow much beyond the store: the journal of the replaced
    // records fits, the appended records do not.
    ::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{size + 100000, size + 100000};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return false;
    return !WriteNewState(path_);
  });
  EXPECT_EQ(status, 0) << "the write should have failed";
  EXPECT_FALSE(std::filesystem::exists(path_ + "-journal")) << "the failed commit rolled itself back";
  EXPECT_TRUE(Reopen() == OldState());
}

TEST_F(CrashSafetyTest, UnfinishedJournalsAreDiscardedOnlyBesideAnIntactStore) {
  const std::string journal = path_ + "-journal";
  test::WriteFile(journal, "KVRSJRNL half a journal");
  EXPECT_TRUE(Reopen() == OldState());
  EXPECT_FALSE(std::filesystem::exists(journal));

  // A damaged store beside an unfinished journal: neither is touched.
  std::string bytes = test::ReadFile(path_);
  bytes[0] = 'X';
  test::WriteFile(path_, bytes);
  test::WriteFile(journal, "KVRSJRNL half a journal");
  EXPECT_NE(DB3Open(kMethod, path_.c_str(), kDB3OpenExisting), 0);
  EXPECT_EQ(test::ReadFile(path_), bytes);
  EXPECT_TRUE(std::filesystem::exists(journal));
}

TEST_F(CrashSafetyTest, TwoProcessesWritingAtOnceLoseNothing) {
  constexpr int kEach = 150;
  ASSERT_EQ(DB3Open(kMethod, path_.c_str(), kDB3Create), 0);
  DB3Close(kMethod);
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  // Each process appends its own tags one call at a time.
  auto appendTagged = [&](std::uint32_t base) {
    if (DB3Open(kMethod, path_.c_str(), kDB3OpenExisting) != 0) return false;
    bool ok = true;
    for (int i = 0; ok && i < kEach; ++i) {
      auto record = TaggedRecord(base + static_cast<std::uint32_t>(i));
      ok = DB3HandleRecord(kMethod, 0, record.data(), kDB3Append, 1) == 0;
    }
    DB3Close(kMethod);
    return ok;
  };
  pid_t pid = ::fork();
  if (pid == 0) {
    char go;
    ::_exit(::read(ready[0], &go, 1) == 1 && appendTagged(10000) ? 0 : 1);
  }
  ASSERT_EQ(::write(ready[1], "g", 1), 1);
  EXPECT_TRUE(appendTagged(20000));
  int status = 0;
  ::waitpid(pid, &status, 0);
  EXPECT_EQ(status, 0);

  Records found = Reopen();
  ASSERT_EQ(found.size(), 2u * kEach);
  // Every record is one of the two processes', each process's in its order.
  std::uint32_t next[2] = {10000, 20000};
  for (const auto& record : found) {
    bool matched = false;
    for (auto& tag : next) {
      if (!matched && record == TaggedRecord(tag)) {
        ++tag;
        matched = true;
      }
    }
    ASSERT_TRUE(matched) << "a record that neither process wrote in that order";
  }
  EXPECT_EQ(next[0], 10000u + kEach);
  EXPECT_EQ(next[1], 20000u + kEach);
}

TEST_F(CrashSafetyTest, AnOpenStoreSeesWhatAnotherProcessCommitted) {
  ASSERT_EQ(DB3Open(kMethod, path_.c_str(), kDB3OpenExisting), 0);
  ASSERT_EQ(DB3GetRecordsInDB(kMethod), kOldCount);
  DB3Close(kMethod);  // the child opens the kind itself
  ASSERT_EQ(DB3Open(kDB3KindMethod, path_.c_str(), kDB3OpenExisting), 0);
  int status = RunChild([&] {
    DB3Close(kMethod);  // the copy of the parent's open file
    if (DB3Open(kMethod, path_.c_str(), kDB3OpenExisting) != 0) return false;
    auto record = TaggedRecord(5555);
    bool ok = DB3HandleRecord(kMethod, 2, record.data(), kDB3Replace, 1) == 0 &&
              DB3HandleRecord(kMethod, 0, record.data(), kDB3Append, 1) == 0;
    DB3Close(kMethod);
    return ok;
  });
  ASSERT_EQ(status, 0);
  EXPECT_EQ(DB3GetRecordsInDB(kMethod), kOldCount + 1);
  std::vector<std::uint8_t> read(3504);
  ASSERT_EQ(DB3HandleRecord(kMethod, 2, read.data(), kDB3Read, 0), 0);
  EXPECT_EQ(read, TaggedRecord(5555));
  DB3Close(kMethod);
}

}  // namespace
}  // namespace kvdao::platform
