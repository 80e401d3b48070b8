#include "kvdao/genericbatch/generic_file.h"

#include <cstdlib>

#include "kvdao/platform/profile.h"
#include "kvdao/platform/text.h"

namespace kvdao {

int ReadGenericString(std::string& value, const std::string& file, const std::string& section,
                      const std::string& key) {
  value = platform::GetPrivateProfileString(section.c_str(), key.c_str(), "",
                                            kGenericValueMax + 1, file);
  return 1;
}

int ReadGenericInteger(int& value, const std::string& file, const std::string& section,
                       const std::string& key) {
  value = platform::GetPrivateProfileInt(section.c_str(), key.c_str(), 0, file);
  return 1;
}

int ReadGenericDouble(double& value, const std::string& file, const std::string& section,
                      const std::string& key) {
  std::string text;
  ReadGenericString(text, file, section, key);
  value = std::strtod(text.c_str(), nullptr);
  return 1;
}

int WriteGenericSection(StdioFile& file, const std::string& section) {
  if (section.empty()) return 0;
  return file.WriteString("[" + section + "]\n") ? 1 : 0;
}

int WriteGenericEntry(StdioFile& file, const std::string& key, const std::string& value) {
  if (key.empty()) return 0;
  if (value.empty()) return 1;
  std::string line;
  line.reserve(key.size() + value.size() + 2);
  line.append(key).append("=").append(value).append("\n");
  return file.WriteString(line) ? 1 : 0;
}

int WriteGenericEntry(StdioFile& file, const std::string& key, int value) {
  return WriteGenericEntry(file, key, std::to_string(value));
}

int WriteGenericEntry(StdioFile& file, const std::string& key, const char* format, double value) {
  char text[512];
  std::snprintf(text, sizeof text, format, value);
  return WriteGenericEntry(file, key, std::string(text));
}

int CountGenericSections(const std::string& file) {
  return static_cast<int>(platform::GetPrivateProfileSectionNames(file).size());
}

int CountGenericKeys(const std::string& file, const std::string& section) {
  return static_cast<int>(platform::GetPrivateProfileKeys(section.c_str(), file).size());
}

}  // namespace kvdao
