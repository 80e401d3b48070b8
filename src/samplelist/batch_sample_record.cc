#include "kvdao/samplelist/batch_sample_record.h"

#include <unistd.h>

#include <cstdlib>

#include "kvdao/platform/atomic_file.h"
#include "kvdao/platform/environment.h"
#include "kvdao/platform/path.h"
#include "kvdao/platform/text.h"

namespace kvdao {

const std::string CBatchSampleRecord::BatchParagraph = "Batch";
const std::string CBatchSampleRecord::BatchFile = "Batch File Name";
const std::string CBatchSampleRecord::FirstSample = "First Sample";
const std::string CBatchSampleRecord::LastSample = "Last Sample";
const std::string CBatchSampleRecord::CurrentSample = "Current Sample";
const std::string CBatchSampleRecord::BatchUserName = "Batch User Name";
const std::string CBatchSampleRecord::DefaultFileName = "KVCurSmp.txt";

CBatchSampleRecord& CBatchSampleRecord::operator=(const CBatchSampleRecord& other) {
  if (this == &other) return *this;
  CSampleRecord::operator=(other);
  m_strBatchFile = other.m_strBatchFile;
  m_nFirstSample = other.m_nFirstSample;
  m_nCurrentSample = other.m_nCurrentSample;
  m_nLastSample = other.m_nLastSample;
  m_strBatchUserName = other.m_strBatchUserName;
  return *this;
}

std::string CBatchSampleRecord::GetDefaultFileName() {
  return platform::JoinPath(platform::GetHomeDirectory(), DefaultFileName);
}

int CBatchSampleRecord::Write(StdioFile& file) {
  auto line = [&](const std::string& key, const std::string& value) {
    return file.WriteString(platform::Format("%s=%s\n", key.c_str(), value.c_str()));
  };
  auto number = [](int n) { return platform::Format("%.*f", 0, static_cast<double>(n)); };
  bool ok = file.WriteString(platform::Format("[%s]\n", BatchParagraph.c_str()));
  ok = ok && line(BatchFile, m_strBatchFile);
  ok = ok && line(FirstSample, number(m_nFirstSample));
  ok = ok && line(LastSample, number(m_nLastSample));
  ok = ok && line(CurrentSample, number(m_nCurrentSample));
  ok = ok && line(BatchUserName, m_strBatchUserName);
  ok = ok && file.WriteString("\n");
  ok = ok && CSampleRecord::Write(file) != 0;
  return ok ? 1 : 0;
}

int CBatchSampleRecord::Write(const char* path) {
  std::string target = path != nullptr ? std::string(path) : GetDefaultFileName();
  return platform::WriteFileThrough(target, [&](StdioFile& file) { return Write(file) != 0; })
             ? 1
             : 0;
}

int CBatchSampleRecord::Read(const char* path) {
  std::string source = path != nullptr ? std::string(path) : GetDefaultFileName();
  if (::access(platform::ToNativePath(source).c_str(), R_OK) != 0) return 0;
  const char* file = source.c_str();
  const char* section = BatchParagraph.c_str();
  m_strBatchFile = ReadField(file, section, BatchFile.c_str(), "");
  m_nFirstSample = std::atoi(ReadField(file, section, FirstSample.c_str(), "").c_str());
  m_nLastSample = std::atoi(ReadField(file, section, LastSample.c_str(), "").c_str());
  m_nCurrentSample = std::atoi(ReadField(file, section, CurrentSample.c_str(), "").c_str());
  m_strBatchUserName = ReadField(file, section, BatchUserName.c_str(), "");
  CSampleRecord::Read(file);
  return 1;
}

}  // namespace kvdao
