#include "kvdao/platform/environment.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>

#include "kvdao/platform/path.h"

namespace kvdao::platform {
namespace {

std::string FromEnvironment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? std::string(value) : std::string();
}

std::string WithoutTrailingSeparator(std::string path) {
  while (path.size() > 1 && IsSeparator(path.back())) path.pop_back();
  return path;
}

std::string Ensured(std::string path) {
  path = WithoutTrailingSeparator(std::move(path));
  MakeDirectories(path);
  return path;
}

}  // namespace

bool MakeDirectories(std::string_view path) {
  std::string native = ToNativePath(path);
  if (native.empty()) return false;
  for (std::size_t i = 1; i <= native.size(); ++i) {
    if (i == native.size() || native[i] == '/') {
      std::string prefix = native.substr(0, i);
      if (::mkdir(prefix.c_str(), 0777) != 0 && errno != EEXIST) return false;
    }
  }
  struct stat info {};
  return ::stat(native.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::string GetHomeDirectory() {
  std::string home = FromEnvironment("KVDAO_HOME");
  if (home.empty()) {
    std::string data = FromEnvironment("XDG_DATA_HOME");
    if (!data.empty()) {
      home = JoinPath(data, "kvdao");
    } else {
      std::string user = FromEnvironment("HOME");
      home = JoinPath(user.empty() ? std::string("/tmp") : user, ".local/share/kvdao");
    }
  }
  return Ensured(home);
}

std::string GetTempDirectory() {
  std::string temp = FromEnvironment("TMPDIR");
  return Ensured(temp.empty() ? std::string("/tmp") : temp);
}

std::string GetProjectDirectory() {
  std::string project = FromEnvironment("KVDAO_PROJECT");
  if (project.empty()) project = JoinPath(GetHomeDirectory(), "project");
  return Ensured(project);
}

}  // namespace kvdao::platform
