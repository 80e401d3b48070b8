#pragma once

// CExternalProgram: a program the suite runs for a sample list or a sample
// (a processing or acquisition step): its full path, its arguments and its
// folder, split from a command line and stored as one comma-separated line.
//
// The split works on a lower-cased copy of the command line, so neither the
// program nor its arguments keep any capitals. The line form has no quoting:
// a comma inside a member splits it when the line is loaded back.

#include <string>

#include "kvdao/platform/archive.h"

namespace kvdao {

class CExternalProgram {
 public:
  // Version number written at the start of the line form.
  static constexpr int kVersion = 1000;

  explicit CExternalProgram(const char* commandLine = nullptr);
  CExternalProgram(const CExternalProgram&) = default;
  CExternalProgram& operator=(const CExternalProgram&) = default;
  virtual ~CExternalProgram() = default;

  // Splits a command line at its first ".exe " (arguments keep the blank
  // that follows "exe"); the part before becomes a full path ending in
  // ".exe", whose folder becomes the directory. Returns 1, or 0 for a null
  // command line, which empties all three members.
  int SetProgram(const char* commandLine);

  // Stores "1000,program,arguments,directory\r\n", or loads one such line:
  // the first field is dropped, the next three become the members and any
  // that are missing stay empty.
  void Serialize(Archive& archive);

  const std::string& GetProgram() const noexcept { return m_strProgram; }
  const std::string& GetArguments() const noexcept { return m_strArguments; }
  const std::string& GetDirectory() const noexcept { return m_strDirectory; }

 protected:
  // Returns `line` up to its first comma and leaves what follows the comma
  // in `line`; without a comma, returns the whole line and empties it.
  static std::string ExtractField(std::string& line);

  std::string m_strProgram;
  std::string m_strArguments;
  std::string m_strDirectory;
};

}  // namespace kvdao
