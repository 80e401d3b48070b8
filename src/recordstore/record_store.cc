#include "record_store.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstring>

#include "journal.h"
#include "kvdao/platform/path.h"

namespace kvdao::recordstore {
namespace {

std::atomic<CommitHook> g_commitHook{nullptr};

void Reach(CommitStage stage) {
  if (CommitHook hook = g_commitHook.load(std::memory_order_relaxed)) hook(stage);
}

// How many slots one gathered write takes; the hook sees each such chunk.
constexpr std::size_t kSlotsPerWrite = 256;

// Creates a new store file with an empty header: written and synced under a
// temporary name, then linked to `path`, so that the name never shows a
// half-written header. False with errno EEXIST when `path` already exists.
bool CreateNewFile(const std::string& path, const StoreHeader& header) {
  std::string temp = path + ".XXXXXX";
  int fd = ::mkstemp(temp.data());
  if (fd < 0) return false;
  HeaderBytes bytes = EncodeHeader(header);
  bool ok = ::fchmod(fd, 0644) == 0 && WriteAt(fd, bytes.data(), bytes.size(), 0) && SyncFile(fd);
  ok = ::close(fd) == 0 && ok;
  int error = 0;
  if (ok && ::link(temp.c_str(), path.c_str()) != 0) {
    error = errno;
    ok = false;
  }
  ::unlink(temp.c_str());
  if (ok) SyncParentFolder(path);
  if (error != 0) errno = error;
  return ok;
}

}  // namespace

void SetCommitHook(CommitHook hook) { g_commitHook.store(hook, std::memory_order_relaxed); }

RecordStore::RecordStore(std::string path, int fd, bool readOnly, StoreHeader expected)
    : path_(std::move(path)),
      journalPath_(JournalPathOf(path_)),
      fd_(fd),
      readOnly_(readOnly),
      header_(expected) {}

RecordStore::~RecordStore() {
  if (inBatch_) AbortBatch();
  ::close(fd_);  // also drops any lock
}

std::unique_ptr<RecordStore> RecordStore::Open(const std::string& path, std::uint32_t kind,
                                               std::uint32_t recordSize, Mode mode) {
  if (path.empty() || recordSize == 0) return nullptr;
  const std::string native = platform::ToNativePath(path);
  const StoreHeader expected{kind, recordSize, 0};
  if (mode == Mode::kCreate && !FileExists(native) && !CreateNewFile(native, expected) &&
      errno != EEXIST)
    return nullptr;

  bool readOnly = false;
  int fd = ::open(native.c_str(), O_RDWR | O_CLOEXEC);
  if (fd < 0 && (errno == EACCES || errno == EROFS) && mode == Mode::kOpenExisting) {
    fd = ::open(native.c_str(), O_RDONLY | O_CLOEXEC);
    readOnly = true;
  }
  if (fd < 0) return nullptr;
  struct stat status {};
  if (::fstat(fd, &status) != 0 || !S_ISREG(status.st_mode)) {
    ::close(fd);
    return nullptr;
  }
  std::unique_ptr<RecordStore> store(new RecordStore(native, fd, readOnly, expected));

  if (mode == Mode::kOpenExisting) {
    if (!store->Lock(LockLevel::kShared)) return nullptr;
    store->Unlock();
    return store;
  }
  // Create: an empty file becomes an empty store; a store of this kind is
  // emptied like any other change (so a crash keeps its old records).
  if (!store->BeginBatch()) {
    if (!SetLock(fd, LockLevel::kExclusive)) return nullptr;
    store->lock_ = LockLevel::kExclusive;
    bool made = FileLength(fd) == 0 && !FileExists(store->journalPath_) && store->CreateEmpty();
    store->Unlock();
    return made ? std::move(store) : nullptr;
  }
  if (!store->Truncate(0) || !store->CommitBatch()) {
    store->AbortBatch();
    return nullptr;
  }
  return store;
}

bool RecordStore::CreateEmpty() {
  if (readOnly_) return false;
  StoreHeader empty{header_.kind, header_.recordSize, 0};
  HeaderBytes bytes = EncodeHeader(empty);
  if (!WriteAt(fd_, bytes.data(), bytes.size(), 0) || !SyncFile(fd_)) return false;
  header_ = empty;
  return true;
}

bool RecordStore::LoadHeader() {
  std::uint8_t bytes[kHeaderSize];
  if (!ReadAt(fd_, bytes, sizeof bytes, 0)) return false;
  std::optional<StoreHeader> header = DecodeHeader(bytes);
  if (!header || header->kind != header_.kind || header->recordSize != header_.recordSize) return false;
  std::int64_t length = FileLength(fd_);
  if (length < 0 || static_cast<std::uint64_t>(length) != header->FileLength()) return false;
  header_ = *header;
  return true;
}

bool RecordStore::Lock(LockLevel level) {
  if (!SetLock(fd_, level)) return false;
  lock_ = level;
  if (FileExists(journalPath_)) {
    // Only the holder of the exclusive lock may finish another's commit.
    bool ok = level == LockLevel::kExclusive || SetLock(fd_, LockLevel::kExclusive);
    ok = ok && Recover();
    ok = ok && (level == LockLevel::kExclusive || SetLock(fd_, level));
    if (!ok) {
      Unlock();
      return false;
    }
  }
  if (!LoadHeader()) {
    Unlock();
    return false;
  }
  return true;
}

void RecordStore::Unlock() {
  if (lock_ != LockLevel::kUnlocked) SetLock(fd_, LockLevel::kUnlocked);
  lock_ = LockLevel::kUnlocked;
}

bool RecordStore::Recover() {
  Journal journal;
  switch (ReadJournal(journalPath_, journal)) {
    case JournalState::kAbsent:
      return true;
    case JournalState::kUnreadable:
      return false;
    case JournalState::kIncomplete:
      // The commit stopped while writing its journal, before it touched the
      // store, so the store must be intact; only then is the journal junk.
      if (!LoadHeader()) return false;
      ::unlink(journalPath_.c_str());
      return true;
    case JournalState::kComplete:
      if (journal.old.kind != header_.kind || journal.old.recordSize != header_.recordSize || readOnly_)
        return false;
      if (!ApplyJournal(fd_, journal)) return false;
      ::unlink(journalPath_.c_str());
      return true;
  }
  return false;
}

std::int64_t RecordStore::Count() {
  if (inBatch_) return failed_ ? -1 : static_cast<std::int64_t>(writing_ ? newCount_ : header_.recordCount);
  if (!Lock(LockLevel::kShared)) return -1;
  auto count = static_cast<std::int64_t>(header_.recordCount);
  Unlock();
  return count;
}

bool RecordStore::ReadSlot(std::uint64_t number, void* record) {
  slot_.resize(header_.SlotSize());
  if (!ReadAt(fd_, slot_.data(), slot_.size(), header_.SlotOffset(number))) return false;
  if (GetU32(slot_.data() + header_.recordSize) != SlotChecksum(number, slot_.data(), header_.recordSize))
    return false;
  std::memcpy(record, slot_.data(), header_.recordSize);
  return true;
}

bool RecordStore::Read(std::uint64_t number, void* record) {
  if (record == nullptr) return false;
  if (inBatch_) {
    if (failed_ || number < 1 || number > (writing_ ? newCount_ : header_.recordCount)) return false;
    if (writing_) {
      auto found = changed_.find(number);
      if (found != changed_.end()) {
        std::memcpy(record, found->second.data(), header_.recordSize);
        return true;
      }
    }
    return ReadSlot(number, record);
  }
  if (!Lock(LockLevel::kShared)) return false;
  bool ok = number >= 1 && number <= header_.recordCount && ReadSlot(number, record);
  Unlock();
  return ok;
}

bool RecordStore::BeginBatch() {
  if (inBatch_ || !Lock(LockLevel::kShared)) return false;
  inBatch_ = true;
  writing_ = false;
  failed_ = false;
  return true;
}

bool RecordStore::StartWriting() {
  if (failed_) return false;
  if (writing_) return true;
  if (readOnly_) return false;
  // Changing the lock level lets another writer in between, so the header
  // is read again once the exclusive lock is held.
  if (!Lock(LockLevel::kExclusive)) {
    failed_ = true;
    return false;
  }
  writing_ = true;
  newCount_ = lowestCount_ = header_.recordCount;
  return true;
}

std::vector<std::uint8_t> RecordStore::MakeSlot(std::uint64_t number, const void* record) const {
  std::vector<std::uint8_t> slot(header_.SlotSize());
  std::memcpy(slot.data(), record, header_.recordSize);
  PutU32(slot.data() + header_.recordSize, SlotChecksum(number, record, header_.recordSize));
  return slot;
}

bool RecordStore::Change(const std::function<bool()>& change) {
  bool own = !inBatch_;
  if (own && !BeginBatch()) return false;
  bool ok = StartWriting() && change();
  if (own) {
    if (ok) return CommitBatch();
    AbortBatch();
  }
  return ok;
}

bool RecordStore::Replace(std::uint64_t number, const void* record) {
  return record != nullptr && Change([&] {
    if (number < 1 || number > newCount_) return false;
    changed_[number] = MakeSlot(number, record);
    return true;
  });
}

bool RecordStore::Append(const void* record) {
  return record != nullptr && Change([&] {
    changed_[newCount_ + 1] = MakeSlot(newCount_ + 1, record);
    ++newCount_;
    return true;
  });
}

bool RecordStore::Truncate(std::uint64_t count) {
  return Change([&] {
    if (count > newCount_) return false;
    changed_.erase(changed_.upper_bound(count), changed_.end());
    newCount_ = count;
    if (count < lowestCount_) lowestCount_ = count;
    return true;
  });
}

bool RecordStore::CommitBatch() {
  if (!inBatch_) return false;
  bool ok = !failed_ && (!writing_ || Commit());
  AbortBatch();
  return ok;
}

void RecordStore::AbortBatch() {
  changed_.clear();
  inBatch_ = writing_ = failed_ = false;
  Unlock();
}

bool RecordStore::WriteChangedSlots() {
  std::vector<iovec> pieces;
  std::uint64_t first = 0, next = 0;
  auto flush = [&] {
    if (pieces.empty()) return true;
    bool ok = WriteGather(fd_, pieces, header_.SlotOffset(first));
    pieces.clear();
    Reach(CommitStage::kRecordsWritten);
    return ok;
  };
  for (auto& [number, slot] : changed_) {
    if (number != next || pieces.size() == kSlotsPerWrite) {
      if (!flush()) return false;
      first = number;
    }
    pieces.push_back({slot.data(), slot.size()});
    next = number + 1;
  }
  return flush();
}

bool RecordStore::Commit() {
  const StoreHeader old = header_;
  if (changed_.empty() && newCount_ == old.recordCount) return true;

  // Journal every old record that is overwritten or cut off.
  std::vector<std::uint64_t> saved;
  for (const auto& entry : changed_) {
    if (entry.first <= old.recordCount) saved.push_back(entry.first);
  }
  for (std::uint64_t number = newCount_ + 1; number <= old.recordCount; ++number) saved.push_back(number);
  if (!WriteJournal(journalPath_, fd_, old, EncodeHeader(old), saved)) return false;
  Reach(CommitStage::kJournalWritten);

  StoreHeader now = old;
  now.recordCount = newCount_;
  HeaderBytes bytes = EncodeHeader(now);
  bool ok = WriteChangedSlots() && WriteAt(fd_, bytes.data(), bytes.size(), 0);
  while (ok && now.recordCount < old.recordCount && ::ftruncate(fd_, static_cast<off_t>(now.FileLength())) != 0)
    ok = errno == EINTR;
  Reach(CommitStage::kHeaderWritten);
  ok = ok && SyncFile(fd_);
  Reach(CommitStage::kStoreSynced);
  if (!ok) {
    // Put the old content back now; if even that fails, the journal stays
    // and the next user of the store rolls back.
    int error = errno;
    Journal journal;
    if (ReadJournal(journalPath_, journal) == JournalState::kComplete && ApplyJournal(fd_, journal))
      ::unlink(journalPath_.c_str());
    errno = error;
    return false;
  }
  // Once the journal is gone the commit stands. Should its removal not
  // reach the disk before a power loss, the journal reappears and the next
  // open restores the old content: one of the two states all the same.
  ::unlink(journalPath_.c_str());
  header_ = now;
  return true;
}

}  // namespace kvdao::recordstore
