#include "kvdao/platform/stdio_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "kvdao/platform/path.h"

namespace kvdao {

StdioFile::~StdioFile() { Close(); }

bool StdioFile::Open(const char* path, unsigned flags) {
  Close();
  error_ = 0;
  if (path == nullptr) {
    error_ = EINVAL;
    return false;
  }
  int access = O_RDONLY;
  const char* mode = "rb";
  if ((flags & modeReadWrite) != 0) {
    access = O_RDWR;
    mode = "r+b";
  } else if ((flags & modeWrite) != 0) {
    access = O_WRONLY;
    mode = "wb";  // fdopen never truncates; O_TRUNC below decides that
  }
  int oflags = access | O_CLOEXEC;
  if ((flags & modeCreate) != 0) {
    oflags |= O_CREAT;
    if ((flags & modeNoTruncate) == 0) oflags |= O_TRUNC;
  }
  std::string native = platform::ToNativePath(path);
  int fd = ::open(native.c_str(), oflags, 0666);
  if (fd < 0) {
    error_ = errno;
    return false;
  }
  file_ = ::fdopen(fd, mode);
  if (file_ == nullptr) {
    error_ = errno;
    ::close(fd);
    return false;
  }
  path_ = path;
  return true;
}

bool StdioFile::Close() {
  if (file_ == nullptr) return true;
  bool ok = std::fclose(file_) == 0;
  if (!ok) error_ = errno;
  file_ = nullptr;
  return ok;
}

bool StdioFile::WriteString(std::string_view text) { return Write(text.data(), text.size()); }

bool StdioFile::ReadString(std::string& line) {
  line.clear();
  if (file_ == nullptr) return false;
  bool readAny = false;
  int c;
  while ((c = std::getc(file_)) != EOF) {
    readAny = true;
    if (c == '\n') break;
    line.push_back(static_cast<char>(c));
  }
  if (!line.empty() && line.back() == '\r' && c == '\n') line.pop_back();
  return readAny;
}

std::size_t StdioFile::Read(void* buffer, std::size_t count) {
  if (file_ == nullptr || count == 0) return 0;
  return std::fread(buffer, 1, count, file_);
}

bool StdioFile::Write(const void* buffer, std::size_t count) {
  if (file_ == nullptr) return false;
  if (count == 0) return true;
  if (std::fwrite(buffer, 1, count, file_) != count) {
    error_ = errno;
    return false;
  }
  return true;
}

bool StdioFile::Flush() { return file_ != nullptr && std::fflush(file_) == 0; }

bool StdioFile::Sync() { return Flush() && ::fsync(::fileno(file_)) == 0; }

bool StdioFile::SeekToBegin() { return file_ != nullptr && std::fseek(file_, 0, SEEK_SET) == 0; }

bool StdioFile::SeekToEnd() { return file_ != nullptr && std::fseek(file_, 0, SEEK_END) == 0; }

std::int64_t StdioFile::GetLength() const {
  if (file_ == nullptr) return -1;
  std::fflush(file_);
  struct stat info {};
  if (::fstat(::fileno(file_), &info) != 0) return -1;
  return static_cast<std::int64_t>(info.st_size);
}

}  // namespace kvdao
