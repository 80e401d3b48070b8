#include "file_io.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cerrno>
#include <algorithm>

namespace kvdao::recordstore {

bool ReadAt(int fd, void* buffer, std::size_t size, std::uint64_t offset) {
  auto* at = static_cast<char*>(buffer);
  while (size > 0) {
    ssize_t got = ::pread(fd, at, size, static_cast<off_t>(offset));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) {
      if (got == 0) errno = EIO;
      return false;
    }
    at += got;
    size -= static_cast<std::size_t>(got);
    offset += static_cast<std::uint64_t>(got);
  }
  return true;
}

bool WriteAt(int fd, const void* buffer, std::size_t size, std::uint64_t offset) {
  const auto* at = static_cast<const char*>(buffer);
  while (size > 0) {
    ssize_t put = ::pwrite(fd, at, size, static_cast<off_t>(offset));
    if (put < 0 && errno == EINTR) continue;
    if (put <= 0) {
      if (put == 0) errno = ENOSPC;
      return false;
    }
    at += put;
    size -= static_cast<std::size_t>(put);
    offset += static_cast<std::uint64_t>(put);
  }
  return true;
}

bool SyncFile(int fd) {
  while (::fdatasync(fd) != 0) {
    if (errno != EINTR) return false;
  }
  return true;
}

bool SyncParentFolder(const std::string& path) {
  std::string::size_type slash = path.rfind('/');
  std::string folder = slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
  int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return false;
  bool ok = ::fsync(fd) == 0 || errno == EINVAL;  // some file systems cannot sync folders
  ::close(fd);
  return ok;
}

std::int64_t FileLength(int fd) {
  struct stat status {};
  if (::fstat(fd, &status) != 0) return -1;
  return static_cast<std::int64_t>(status.st_size);
}

bool FileExists(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0;
}

bool SetLock(int fd, LockLevel level) {
  int operation = level == LockLevel::kExclusive ? LOCK_EX : level == LockLevel::kShared ? LOCK_SH : LOCK_UN;
  while (::flock(fd, operation) != 0) {
    if (errno != EINTR) return false;
  }
  return true;
}

}  // namespace kvdao::recordstore

namespace kvdao::recordstore {

bool WriteGather(int fd, std::vector<iovec>& pieces, std::uint64_t offset) {
  std::size_t first = 0;
  while (first < pieces.size()) {
    int count = static_cast<int>(std::min<std::size_t>(pieces.size() - first, IOV_MAX));
    ssize_t put = ::pwritev(fd, &pieces[first], count, static_cast<off_t>(offset));
    if (put < 0 && errno == EINTR) continue;
    if (put <= 0) {
      if (put == 0) errno = ENOSPC;
      return false;
    }
    offset += static_cast<std::uint64_t>(put);
    // Skip what was written; a piece written in part keeps its rest.
    auto left = static_cast<std::size_t>(put);
    while (first < pieces.size() && left >= pieces[first].iov_len) left -= pieces[first++].iov_len;
    if (left > 0) {
      pieces[first].iov_base = static_cast<char*>(pieces[first].iov_base) + left;
      pieces[first].iov_len -= left;
    }
  }
  return true;
}

}  // namespace kvdao::recordstore
