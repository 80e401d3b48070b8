#pragma once

// RecordStore: a file of fixed-size records of one kind, numbered from 1
// (layout in docs/record-store.md).
//
// Promises:
//  - a store opens only when its header is intact, names the expected kind
//    and record size, and the file's length matches the header's count;
//    every record read is checked against its checksum. Anything else is a
//    failure, and nothing is read or written;
//  - every change (one call outside a batch, or everything between
//    BeginBatch and CommitBatch) is all or nothing, even if the process is
//    killed or the disk fills up: the bytes about to be overwritten are
//    first saved in a rollback journal beside the file, which the next
//    process to use the store applies. A commit costs two file syncs and a
//    folder sync however many records it changes;
//  - several processes may use one store: readers share an advisory lock,
//    a writer holds it exclusively while it commits, and each call outside
//    a batch sees the changes that other processes committed before it.
//
// One object is used from one thread at a time.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "file_io.h"
#include "format.h"

namespace kvdao::recordstore {

// Points in a commit at which a test can stop the process, to prove that a
// commit interrupted there leaves the old or the new content.
enum class CommitStage { kJournalWritten, kRecordsWritten, kHeaderWritten, kStoreSynced };
using CommitHook = void (*)(CommitStage stage);
// Installs a process-wide hook called at each stage (null removes it);
// kRecordsWritten is reported after each chunk of records.
void SetCommitHook(CommitHook hook);

class RecordStore {
 public:
  enum class Mode {
    kOpenExisting,  // the file must be a store of this kind
    kCreate,        // a new empty store; an existing store of this kind is emptied
  };

  // Null on failure. A create never replaces a file that is not a store of
  // this kind (an empty file excepted).
  static std::unique_ptr<RecordStore> Open(const std::string& path, std::uint32_t kind,
                                           std::uint32_t recordSize, Mode mode);
  ~RecordStore();
  RecordStore(const RecordStore&) = delete;
  RecordStore& operator=(const RecordStore&) = delete;

  std::uint32_t kind() const noexcept { return header_.kind; }
  std::uint32_t recordSize() const noexcept { return header_.recordSize; }
  const std::string& path() const noexcept { return path_; }

  // The number of records, or -1 when the store cannot be read.
  std::int64_t Count();
  // Copies record `number` (1 … Count()) into `record` (recordSize bytes).
  bool Read(std::uint64_t number, void* record);
  // Overwrites record `number` (1 … Count()).
  bool Replace(std::uint64_t number, const void* record);
  // Adds a record after the last.
  bool Append(const void* record);
  // Drops the records after the first `count`.
  bool Truncate(std::uint64_t count);

  // Groups the calls up to CommitBatch: the store is read under one lock,
  // and all changes are committed together (or not at all). Reads inside a
  // batch see the batch's own changes. Batches do not nest.
  bool BeginBatch();
  bool CommitBatch();
  // Drops the batch's changes.
  void AbortBatch();
  bool InBatch() const noexcept { return inBatch_; }

 private:
  RecordStore(std::string path, int fd, bool readOnly, StoreHeader expected);

  // Takes the lock at `level`, finishes (rolls back) any interrupted commit
  // and reads the header. Releases the lock again on failure.
  bool Lock(LockLevel level);
  void Unlock();
  bool LoadHeader();
  bool Recover();
  bool StartWriting();
  // Runs `change` inside the current batch, or in a batch of its own that
  // is committed when it succeeds.
  bool Change(const std::function<bool()>& change);
  std::vector<std::uint8_t> MakeSlot(std::uint64_t number, const void* record) const;
  bool Commit();
  bool WriteChangedSlots();
  bool ReadSlot(std::uint64_t number, void* record);
  bool CreateEmpty();

  std::string path_;
  std::string journalPath_;
  int fd_ = -1;
  bool readOnly_ = false;
  StoreHeader header_;  // as last read from the file

  LockLevel lock_ = LockLevel::kUnlocked;
  bool inBatch_ = false;
  bool writing_ = false;  // the batch holds the exclusive lock to change the store
  bool failed_ = false;   // the batch lost its lock: every call in it fails
  std::uint64_t lowestCount_ = 0;  // the fewest records the batch cut the store to
  std::uint64_t newCount_ = 0;
  std::map<std::uint64_t, std::vector<std::uint8_t>> changed_;  // whole slots
  std::vector<std::uint8_t> slot_;  // read buffer
};

}  // namespace kvdao::recordstore
