#pragma once

// kvdao::StdioFile: a buffered file opened by path, read and written as
// bytes or as lines of text.
//
// Lines are written as given (callers end them with "\n"); ReadString
// accepts both "\n" and "\r\n" line ends and returns the line without them.
// Paths may use '\' or '/' as separators. The file is closed by Close() or
// by the destructor.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace kvdao {

class StdioFile {
 public:
  // Open flags, combinable as in MFC: one access mode, optionally with
  // modeCreate (create, truncating an existing file unless modeNoTruncate).
  static constexpr unsigned modeRead = 0x0000;
  static constexpr unsigned modeWrite = 0x0001;
  static constexpr unsigned modeReadWrite = 0x0002;
  static constexpr unsigned modeCreate = 0x1000;
  static constexpr unsigned modeNoTruncate = 0x2000;
  static constexpr unsigned typeText = 0x4000;    // accepted, no effect here
  static constexpr unsigned typeBinary = 0x8000;  // accepted, no effect here

  StdioFile() = default;
  StdioFile(const StdioFile&) = delete;
  StdioFile& operator=(const StdioFile&) = delete;
  ~StdioFile();

  // Opens the file; false (and the errno of the failure in LastError()) when
  // it cannot be opened. A file that is already open is closed first.
  bool Open(const char* path, unsigned flags);
  bool IsOpen() const noexcept { return file_ != nullptr; }
  // Flushes and closes; false when buffered data could not be written.
  bool Close();

  // Writes text as it stands; false on a write error.
  bool WriteString(std::string_view text);
  // Reads the next line into `line` without its line end; false at the end
  // of the file when nothing was read (the line is then empty).
  bool ReadString(std::string& line);

  std::size_t Read(void* buffer, std::size_t count);
  bool Write(const void* buffer, std::size_t count);
  bool Flush();
  // Forces written data to the disk (fsync).
  bool Sync();
  bool SeekToBegin();
  bool SeekToEnd();
  // Length in bytes, or -1 when not open.
  std::int64_t GetLength() const;
  const std::string& GetFilePath() const noexcept { return path_; }
  int LastError() const noexcept { return error_; }

 private:
  std::FILE* file_ = nullptr;
  std::string path_;
  int error_ = 0;
};

}  // namespace kvdao
