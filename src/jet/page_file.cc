#include "page_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>

#include "format.h"
#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/path.h"

namespace kvdao::jet::internal {
namespace {

constexpr std::uint32_t kPageSize = format::kJet4.page_size;

[[noreturn]] void ThrowIo(const std::string& what, const std::string& path) {
  throw DaoException("Disk or network error: cannot " + what + " '" + path + "': " + std::strerror(errno) + ".");
}

int MakeTemporary(const std::string& target, std::string& temp) {
  temp = target + ".XXXXXX";
  int fd = ::mkstemp(temp.data());
  if (fd < 0) ThrowIo("create a temporary file beside", target);
  // Keep the permissions of a file being replaced, else the usual ones
  // (mkstemp makes the file private).
  struct stat old {};
  ::fchmod(fd, ::stat(target.c_str(), &old) == 0 ? (old.st_mode & 07777) : 0644);
  return fd;
}

}  // namespace

PageFile::PageFile(std::string target, std::string temp, int fd)
    : target_(std::move(target)), temp_(std::move(temp)), fd_(fd) {}

std::unique_ptr<PageFile> PageFile::Create(const std::string& target) {
  std::string native = platform::ToNativePath(target);
  std::string temp;
  int fd = MakeTemporary(native, temp);
  return std::unique_ptr<PageFile>(new PageFile(native, temp, fd));
}

std::unique_ptr<PageFile> PageFile::OpenCopy(const std::string& target, std::vector<std::uint32_t> free_pages) {
  std::string native = platform::ToNativePath(target);
  int in = ::open(native.c_str(), O_RDONLY | O_CLOEXEC);
  if (in < 0) ThrowIo("open", native);
  struct stat info {};
  if (::fstat(in, &info) != 0 || info.st_size % kPageSize != 0) {
    ::close(in);
    throw DaoException("Cannot open '" + target + "' for writing: its size is not a whole number of Jet 4 pages.");
  }
  std::string temp;
  int fd = -1;
  try {
    fd = MakeTemporary(native, temp);
  } catch (...) {
    ::close(in);
    throw;
  }
  std::unique_ptr<PageFile> file(new PageFile(native, temp, fd));
  std::vector<std::uint8_t> buffer(256 * kPageSize);
  for (off_t done = 0; done < info.st_size;) {
    ssize_t got = ::pread(in, buffer.data(), buffer.size(), done);
    if (got <= 0 || ::pwrite(fd, buffer.data(), static_cast<std::size_t>(got), done) != got) {
      ::close(in);
      ThrowIo("copy", native);
    }
    done += got;
  }
  ::close(in);
  const std::size_t count = static_cast<std::size_t>(info.st_size / kPageSize);
  file->pages_.resize(count);
  file->dirty_.assign(count, false);
  std::sort(free_pages.begin(), free_pages.end(), std::greater<>());
  free_pages.erase(std::unique(free_pages.begin(), free_pages.end()), free_pages.end());
  free_pages.erase(std::remove_if(free_pages.begin(), free_pages.end(),
                                  [&](std::uint32_t page) { return page < 2 || page >= count; }),
                   free_pages.end());
  // Handed out from the back: lowest page first.
  file->free_ = std::move(free_pages);
  return file;
}

PageFile::~PageFile() { Discard(); }

void PageFile::Discard() noexcept {
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
  if (!committed_ && !temp_.empty()) ::unlink(temp_.c_str());
  temp_.clear();
}

std::uint32_t PageFile::PageSize() const noexcept { return kPageSize; }

std::uint32_t PageFile::AllocatePage(std::uint32_t owner_tdef_page) {
  modified_ = true;
  std::uint32_t page;
  if (!free_.empty()) {
    page = free_.back();
    free_.pop_back();
    std::memset(Resident(page), 0, kPageSize);
    dirty_[page] = true;
  } else {
    page = static_cast<std::uint32_t>(pages_.size());
    pages_.emplace_back(new std::uint8_t[kPageSize]());
    dirty_.push_back(true);
  }
  taken_[owner_tdef_page].push_back(page);
  return page;
}

void PageFile::FreePage(std::uint32_t owner_tdef_page, std::uint32_t page) {
  modified_ = true;
  auto& taken = taken_[owner_tdef_page];
  taken.erase(std::remove(taken.begin(), taken.end(), page), taken.end());
  std::memset(Resident(page), 0, kPageSize);
  dirty_[page] = true;
  free_.push_back(page);
}

std::span<std::uint8_t> PageFile::MutablePage(std::uint32_t page) {
  std::uint8_t* bytes = Resident(page);
  dirty_[page] = true;
  modified_ = true;
  return {bytes, kPageSize};
}

std::span<const std::uint8_t> PageFile::Page(std::uint32_t page) const { return {Resident(page), kPageSize}; }

const std::vector<std::uint32_t>& PageFile::PagesTakenBy(std::uint32_t owner_tdef_page) const {
  static const std::vector<std::uint32_t> kNone;
  auto found = taken_.find(owner_tdef_page);
  return found == taken_.end() ? kNone : found->second;
}

std::uint8_t* PageFile::Resident(std::uint32_t page) const {
  if (page >= pages_.size()) {
    throw DaoException("The database file is damaged: page " + std::to_string(page) + " lies outside the file.");
  }
  if (!pages_[page]) {
    std::unique_ptr<std::uint8_t[]> bytes(new std::uint8_t[kPageSize]);
    if (::pread(fd_, bytes.get(), kPageSize, static_cast<off_t>(page) * kPageSize) != kPageSize) {
      ThrowIo("read back a page of", temp_);
    }
    pages_[page] = std::move(bytes);
  }
  return pages_[page].get();
}

void PageFile::WriteOut(std::uint32_t page) const {
  if (!pages_[page] || !dirty_[page]) return;
  if (::pwrite(fd_, pages_[page].get(), kPageSize, static_cast<off_t>(page) * kPageSize) != kPageSize) {
    ThrowIo("write", temp_);
  }
  dirty_[page] = false;
}

void PageFile::Retire(std::uint32_t page) {
  if (page >= pages_.size()) return;
  WriteOut(page);
  pages_[page].reset();
}

void PageFile::Commit() {
  for (std::uint32_t page = 0; page < pages_.size(); ++page) WriteOut(page);
  if (::ftruncate(fd_, static_cast<off_t>(pages_.size()) * kPageSize) != 0) ThrowIo("size", temp_);
  if (::fsync(fd_) != 0) ThrowIo("flush", temp_);
  if (::close(fd_) != 0) {
    fd_ = -1;
    ThrowIo("close", temp_);
  }
  fd_ = -1;
  if (::rename(temp_.c_str(), target_.c_str()) != 0) ThrowIo("rename the temporary file onto", target_);
  committed_ = true;
}

}  // namespace kvdao::jet::internal
