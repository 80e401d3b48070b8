#include "kvdao/support/external_program.h"

#include "kvdao/platform/path.h"
#include "kvdao/platform/text.h"

namespace kvdao {

CExternalProgram::CExternalProgram(const char* commandLine) { SetProgram(commandLine); }

int CExternalProgram::SetProgram(const char* commandLine) {
  m_strArguments.clear();
  if (commandLine == nullptr) {
    m_strProgram.clear();
    m_strDirectory.clear();
    return 0;
  }
  std::string copy = platform::ToLower1252(commandLine);
  std::size_t exe = copy.find(".exe ");
  if (exe != std::string::npos) {
    m_strArguments = copy.substr(exe + 4);
    copy.resize(exe);
  }
  if (copy.empty()) {
    // Nothing names a program: no path is made up from the working folder.
    m_strProgram.clear();
    m_strDirectory.clear();
    return 1;
  }
  m_strProgram = platform::CreatePathName(copy, "exe");
  m_strDirectory = platform::GetPathDirectory(m_strProgram);
  return 1;
}

void CExternalProgram::Serialize(Archive& archive) {
  if (archive.IsStoring()) {
    archive.WriteString(platform::Format("%d,%s,%s,%s\r\n", kVersion, m_strProgram.c_str(),
                                         m_strArguments.c_str(), m_strDirectory.c_str()));
    return;
  }
  std::string line;
  if (!archive.ReadString(line)) return;
  ExtractField(line);  // the version
  m_strProgram = ExtractField(line);
  m_strArguments = ExtractField(line);
  m_strDirectory = ExtractField(line);
}

std::string CExternalProgram::ExtractField(std::string& line) {
  std::size_t comma = line.find(',');
  std::string field;
  if (comma == std::string::npos) {
    field.swap(line);
  } else {
    field = line.substr(0, comma);
    line.erase(0, comma + 1);
  }
  return field;
}

}  // namespace kvdao
