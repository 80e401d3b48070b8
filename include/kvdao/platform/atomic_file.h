#pragma once

// Replacing a file's whole content without ever leaving a half-written file
// behind: the new content goes to a temporary file in the same folder, is
// flushed to disk, and is then renamed over the target. A reader sees the
// old file or the new one, never a mixture.

#include <functional>
#include <string>
#include <string_view>

#include "kvdao/platform/stdio_file.h"

namespace kvdao::platform {

// Writes `content` as the file at `path` (created if missing). Returns false,
// leaving any existing file untouched and no temporary file behind, when it
// cannot be written.
bool ReplaceFileContents(const std::string& path, std::string_view content);

// Writes the file at `path` through `write`, which receives the open
// temporary file beside it; the temporary is flushed to disk and renamed
// over the target only when `write` returns true. Returns false, leaving any
// existing file untouched and no temporary behind, on any failure.
bool WriteFileThrough(const std::string& path, const std::function<bool(StdioFile&)>& write);

// The whole content of a file; false when it cannot be read.
bool ReadFileContents(const std::string& path, std::string& content);

}  // namespace kvdao::platform
