#pragma once

// Path helpers that accept both '\' and '/' as separators, so that paths
// written on Windows into files and databases keep working. Paths are
// handled as text; nothing here touches the file system except where said.
//
// Separator choice when joining: the separator the left part already uses,
// else '/'. Folders returned by these helpers keep their trailing separator.

#include <string>
#include <string_view>

namespace kvdao::platform {

bool IsSeparator(char c) noexcept;

// A path split into folder (with its trailing separator, or empty), name
// without extension, and extension (with its dot, or empty). A Windows drive
// prefix such as "c:" belongs to the folder.
struct PathParts {
  std::string folder;
  std::string name;
  std::string extension;
};
PathParts SplitPath(std::string_view path);

// True for "/x", "\x", "c:\x" and "c:/x".
bool IsAbsolutePath(std::string_view path) noexcept;

// folder + name, with exactly one separator between them; separators at the
// start of name are dropped. Either part may be empty.
std::string JoinPath(std::string_view folder, std::string_view name);

// The folder part of a path, with its trailing separator ("c:\tools\" for
// "c:\tools\proc.exe"); empty when the path has no folder.
std::string GetPathDirectory(std::string_view path);

// A full path from a name and a default extension: the extension (given with
// or without its dot) is added when the name has none, and a relative name
// is taken from the current working directory.
std::string CreatePathName(std::string_view name, std::string_view defaultExtension);

// The path with every '\' turned into '/', for opening on this system.
std::string ToNativePath(std::string_view path);

}  // namespace kvdao::platform
