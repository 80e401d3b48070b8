#include "journal.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "file_io.h"

namespace kvdao::recordstore {
namespace {

constexpr std::size_t kWriteChunk = 1 << 20;

// Appends to the journal file through a buffer, keeping the running CRC.
class JournalWriter {
 public:
  explicit JournalWriter(int fd) : fd_(fd) { buffer_.reserve(kWriteChunk); }

  bool Append(const void* data, std::size_t size) {
    crc_ = Crc32(crc_, data, size);
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    buffer_.insert(buffer_.end(), bytes, bytes + size);
    return buffer_.size() < kWriteChunk || Flush();
  }
  bool Flush() {
    bool ok = WriteAt(fd_, buffer_.data(), buffer_.size(), offset_);
    offset_ += buffer_.size();
    buffer_.clear();
    return ok;
  }
  std::uint32_t crc() const noexcept { return crc_; }

 private:
  int fd_;
  std::uint64_t offset_ = 0;
  std::uint32_t crc_ = 0;
  std::vector<std::uint8_t> buffer_;
};

}  // namespace

std::string JournalPathOf(const std::string& storePath) { return storePath + "-journal"; }

bool WriteJournal(const std::string& journalPath, int storeFd, const StoreHeader& old,
                  const HeaderBytes& oldHeader, const std::vector<std::uint64_t>& numbers) {
  int fd = ::open(journalPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) return false;
  JournalWriter writer(fd);
  std::uint8_t head[32] = {};
  std::memcpy(head, kJournalMagic, sizeof kJournalMagic);
  PutU32(head + 8, kFormatVersion);
  PutU32(head + 12, static_cast<std::uint32_t>(old.SlotSize()));
  PutU64(head + 16, old.FileLength());
  PutU64(head + 24, numbers.size());
  bool ok = writer.Append(head, sizeof head) && writer.Append(oldHeader.data(), oldHeader.size());

  std::vector<std::uint8_t> slot(old.SlotSize());
  for (std::size_t i = 0; ok && i < numbers.size(); ++i) {
    std::uint8_t number[8];
    PutU64(number, numbers[i]);
    ok = ReadAt(storeFd, slot.data(), slot.size(), old.SlotOffset(numbers[i])) &&
         writer.Append(number, sizeof number) && writer.Append(slot.data(), slot.size());
  }
  if (ok) {
    std::uint8_t trailer[kJournalTrailerSize];
    PutU32(trailer, writer.crc());
    ok = writer.Append(trailer, sizeof trailer) && writer.Flush() && SyncFile(fd);
  }
  ok = ::close(fd) == 0 && ok;
  ok = ok && SyncParentFolder(journalPath);
  if (!ok) ::unlink(journalPath.c_str());
  return ok;
}

JournalState ReadJournal(const std::string& journalPath, Journal& journal) {
  int fd = ::open(journalPath.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return errno == ENOENT ? JournalState::kAbsent : JournalState::kUnreadable;
  std::int64_t length = FileLength(fd);
  bool read = length >= 0;
  if (read) {
    journal.bytes.resize(static_cast<std::size_t>(length));
    read = ReadAt(fd, journal.bytes.data(), journal.bytes.size(), 0);
  }
  ::close(fd);
  if (!read) return JournalState::kUnreadable;

  // Everything must agree: a journal cut short, or bytes that are not a
  // journal, count as unfinished.
  const std::vector<std::uint8_t>& bytes = journal.bytes;
  if (bytes.size() < kJournalHeaderSize + kJournalTrailerSize) return JournalState::kIncomplete;
  const std::uint8_t* at = bytes.data();
  if (std::memcmp(at, kJournalMagic, sizeof kJournalMagic) != 0 || GetU32(at + 8) != kFormatVersion)
    return JournalState::kIncomplete;
  const std::size_t body = bytes.size() - kJournalTrailerSize;
  if (GetU32(at + body) != Crc32(0, at, body)) return JournalState::kIncomplete;
  std::optional<StoreHeader> old = DecodeHeader({at + 32, kHeaderSize});
  if (!old || GetU32(at + 12) != old->SlotSize() || GetU64(at + 16) != old->FileLength())
    return JournalState::kIncomplete;
  const std::uint64_t entries = GetU64(at + 24);
  const std::uint64_t entrySize = 8 + old->SlotSize();
  if (entries > (body - kJournalHeaderSize) / entrySize ||
      kJournalHeaderSize + entries * entrySize != body)
    return JournalState::kIncomplete;
  for (std::uint64_t i = 0; i < entries; ++i) {
    std::uint64_t number = GetU64(at + kJournalHeaderSize + i * entrySize);
    if (number < 1 || number > old->recordCount) return JournalState::kIncomplete;
  }
  std::memcpy(journal.oldHeader.data(), at + 32, kHeaderSize);
  journal.old = *old;
  journal.entryCount = entries;
  return JournalState::kComplete;
}

bool ApplyJournal(int storeFd, const Journal& journal) {
  const std::uint64_t slotSize = journal.old.SlotSize();
  const std::uint8_t* at = journal.bytes.data() + kJournalHeaderSize;
  for (std::uint64_t i = 0; i < journal.entryCount; ++i, at += 8 + slotSize) {
    if (!WriteAt(storeFd, at + 8, slotSize, journal.old.SlotOffset(GetU64(at)))) return false;
  }
  if (!WriteAt(storeFd, journal.oldHeader.data(), journal.oldHeader.size(), 0)) return false;
  while (::ftruncate(storeFd, static_cast<off_t>(journal.old.FileLength())) != 0) {
    if (errno != EINTR) return false;
  }
  return SyncFile(storeFd);
}

}  // namespace kvdao::recordstore
