#pragma once

// The line-level reading and writing of generic batch files, shared by the
// sample, plate and batch sections.
//
// Writing: a section header is "[" + name + "]\n"; a key line is
// key + "=" + value + "\n". An empty section name or key fails (0); an
// empty value writes nothing and succeeds, so that an absent text and an
// absent key read back alike. Numbers are formatted first and then written
// by the same rule, so number keys are always written.
//
// Reading goes through the platform's initialisation-file component (the
// file is parsed once and served from memory). Texts are cut to 1023
// characters, as a 1024-character buffer would hold; absent keys read as
// "", 0 and 0.0. The readers always return 1.

#include <string>

#include "kvdao/platform/stdio_file.h"

namespace kvdao {

// The longest text a generic reader returns.
inline constexpr std::size_t kGenericValueMax = 1023;

int ReadGenericString(std::string& value, const std::string& file, const std::string& section,
                      const std::string& key);
int ReadGenericInteger(int& value, const std::string& file, const std::string& section,
                       const std::string& key);
int ReadGenericDouble(double& value, const std::string& file, const std::string& section,
                      const std::string& key);

int WriteGenericSection(StdioFile& file, const std::string& section);
int WriteGenericEntry(StdioFile& file, const std::string& key, const std::string& value);
int WriteGenericEntry(StdioFile& file, const std::string& key, int value);
// `format` is a printf format for one double ("%.4f", "%.f", …).
int WriteGenericEntry(StdioFile& file, const std::string& key, const char* format, double value);

// The number of distinct sections of a file, and of distinct keys of one
// section: what bounds the counts a reader believes.
int CountGenericSections(const std::string& file);
int CountGenericKeys(const std::string& file, const std::string& section);

}  // namespace kvdao
