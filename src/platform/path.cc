#include "kvdao/platform/path.h"

#include <unistd.h>

#include <cctype>
#include <string>

namespace kvdao::platform {
namespace {

bool HasDrive(std::string_view path) noexcept {
  return path.size() >= 2 && path[1] == ':' &&
         std::isalpha(static_cast<unsigned char>(path[0])) != 0;
}

char PreferredSeparator(std::string_view path) noexcept {
  for (char c : path) {
    if (c == '\\') return '\\';
    if (c == '/') return '/';
  }
  return '/';
}

std::string CurrentDirectory() {
  std::string buffer(256, '\0');
  while (::getcwd(buffer.data(), buffer.size()) == nullptr) {
    if (buffer.size() > (1u << 20)) return ".";
    buffer.resize(buffer.size() * 2);
  }
  buffer.resize(std::char_traits<char>::length(buffer.c_str()));
  return buffer;
}

}  // namespace

bool IsSeparator(char c) noexcept { return c == '/' || c == '\\'; }

PathParts SplitPath(std::string_view path) {
  PathParts parts;
  std::size_t nameStart = HasDrive(path) ? 2 : 0;
  for (std::size_t i = path.size(); i > nameStart; --i) {
    if (IsSeparator(path[i - 1])) {
      nameStart = i;
      break;
    }
  }
  parts.folder = std::string(path.substr(0, nameStart));
  std::string_view file = path.substr(nameStart);
  std::size_t dot = file.rfind('.');
  if (dot == std::string_view::npos || dot == 0) {
    parts.name = std::string(file);
  } else {
    parts.name = std::string(file.substr(0, dot));
    parts.extension = std::string(file.substr(dot));
  }
  return parts;
}

bool IsAbsolutePath(std::string_view path) noexcept {
  if (!path.empty() && IsSeparator(path[0])) return true;
  return HasDrive(path) && path.size() >= 3 && IsSeparator(path[2]);
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  while (!name.empty() && IsSeparator(name.front())) name.remove_prefix(1);
  std::string result(folder);
  if (result.empty()) return std::string(name);
  if (name.empty()) return result;
  if (!IsSeparator(result.back())) result += PreferredSeparator(folder);
  result += name;
  return result;
}

std::string GetPathDirectory(std::string_view path) { return SplitPath(path).folder; }

std::string CreatePathName(std::string_view name, std::string_view defaultExtension) {
  std::string path(name);
  if (SplitPath(path).extension.empty() && !defaultExtension.empty()) {
    if (defaultExtension.front() != '.') path += '.';
    path += defaultExtension;
  }
  if (!IsAbsolutePath(path) && !HasDrive(path)) path = JoinPath(CurrentDirectory(), path);
  return path;
}

std::string ToNativePath(std::string_view path) {
  std::string native(path);
  for (char& c : native) {
    if (c == '\\') c = '/';
  }
  return native;
}

}  // namespace kvdao::platform
