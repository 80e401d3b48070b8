#include "kvdao/platform/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "kvdao/platform/path.h"

namespace kvdao::platform {

bool ReplaceFileContents(const std::string& path, std::string_view content) {
  std::string native = ToNativePath(path);
  std::string temp = native + ".XXXXXX";
  int fd = ::mkstemp(temp.data());
  if (fd < 0) return false;
  // Keep the permissions of the file being replaced, else the usual ones.
  struct stat old {};
  mode_t mode = ::stat(native.c_str(), &old) == 0 ? (old.st_mode & 07777) : 0644;
  ::fchmod(fd, mode);
  bool ok = true;
  const char* data = content.data();
  std::size_t left = content.size();
  while (ok && left > 0) {
    ssize_t written = ::write(fd, data, left);
    if (written < 0 && errno == EINTR) continue;
    ok = written > 0;
    if (ok) {
      data += written;
      left -= static_cast<std::size_t>(written);
    }
  }
  ok = ok && ::fsync(fd) == 0;
  ok = (::close(fd) == 0) && ok;
  ok = ok && ::rename(temp.c_str(), native.c_str()) == 0;
  if (!ok) ::unlink(temp.c_str());
  return ok;
}

bool ReadFileContents(const std::string& path, std::string& content) {
  content.clear();
  int fd = ::open(ToNativePath(path).c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  char buffer[65536];
  bool ok = true;
  for (;;) {
    ssize_t got = ::read(fd, buffer, sizeof buffer);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) ok = false;
    if (got <= 0) break;
    content.append(buffer, static_cast<std::size_t>(got));
  }
  ::close(fd);
  return ok;
}

}  // namespace kvdao::platform
