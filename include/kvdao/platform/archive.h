#pragma once

// kvdao::Archive: the storing or loading side of an object's persistence
// over an open StdioFile. An object's Serialize(Archive&) asks IsStoring()
// and then writes or reads through it. The archive does not own the file.

#include <cstddef>
#include <string>
#include <string_view>

#include "kvdao/platform/stdio_file.h"

namespace kvdao {

class Archive {
 public:
  static constexpr unsigned store = 0;
  static constexpr unsigned load = 1;

  Archive(StdioFile& file, unsigned mode) noexcept : file_(file), mode_(mode) {}
  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;

  bool IsStoring() const noexcept { return mode_ == store; }
  bool IsLoading() const noexcept { return mode_ == load; }
  StdioFile& GetFile() noexcept { return file_; }

  bool WriteString(std::string_view text) { return file_.WriteString(text); }
  // One line without its line end ("\n" or "\r\n"); false at the end.
  bool ReadString(std::string& line) { return file_.ReadString(line); }
  bool Write(const void* buffer, std::size_t count) { return file_.Write(buffer, count); }
  std::size_t Read(void* buffer, std::size_t count) { return file_.Read(buffer, count); }
  bool Flush() { return file_.Flush(); }

 private:
  StdioFile& file_;
  unsigned mode_;
};

}  // namespace kvdao
