#include "kvdao/platform/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "kvdao/platform/path.h"

namespace kvdao::platform {

bool ReplaceFileContents(const std::string& path, std::string_view content) {
  return WriteFileThrough(
      path, [&](StdioFile& file) { return file.Write(content.data(), content.size()); });
}

bool WriteFileThrough(const std::string& path, const std::function<bool(StdioFile&)>& write) {
  const std::string target = ToNativePath(path);
  std::string temp = target + ".XXXXXX";
  int fd = ::mkstemp(temp.data());
  if (fd < 0) return false;
  // Keep the permissions of the file being replaced, else the usual ones
  // (mkstemp makes the file private).
  struct stat old {};
  ::fchmod(fd, ::stat(target.c_str(), &old) == 0 ? (old.st_mode & 07777) : 0644);
  ::close(fd);
  StdioFile file;
  bool ok = file.Open(temp.c_str(), StdioFile::modeWrite);
  ok = ok && write(file);
  ok = ok && file.Sync();
  ok = file.Close() && ok;
  ok = ok && ::rename(temp.c_str(), target.c_str()) == 0;
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
