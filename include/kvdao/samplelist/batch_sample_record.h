#pragma once

// CBatchSampleRecord: a sample record that also says where it stands in a
// running batch: the batch file it came from, the first, last and current
// sample numbers of the run and the user who submitted the batch. The
// applications tell each other which sample is being acquired through the
// current-sample file ("KVCurSmp.txt" in the library's home folder), which
// holds a "[Batch]" section followed by the sample record's text form.

#include <string>

#include "kvdao/samplelist/sample_record.h"

namespace kvdao {

class CBatchSampleRecord : public CSampleRecord {
 public:
  static const std::string BatchParagraph;  // "Batch"
  static const std::string BatchFile;       // "Batch File Name"
  static const std::string FirstSample;     // "First Sample"
  static const std::string LastSample;      // "Last Sample"
  static const std::string CurrentSample;   // "Current Sample"
  static const std::string BatchUserName;   // "Batch User Name"
  static const std::string DefaultFileName;  // "KVCurSmp.txt"

  CBatchSampleRecord() = default;
  CBatchSampleRecord(const CBatchSampleRecord& other) = default;
  explicit CBatchSampleRecord(const CSampleRecord& record) : CSampleRecord(record) {}
  CBatchSampleRecord& operator=(const CBatchSampleRecord& other);

  static const char* ClassName() { return "CBatchSampleRecord"; }
  const char* GetClassName() const override { return ClassName(); }
  static CBatchSampleRecord* CreateInstance() { return new CBatchSampleRecord(); }

  const std::string& GetBatchFile() const noexcept { return m_strBatchFile; }
  void SetBatchFile(const char* file) { m_strBatchFile = file != nullptr ? file : ""; }
  int GetFirstSample() const noexcept { return m_nFirstSample; }
  void SetFirstSample(int n) noexcept { m_nFirstSample = n; }
  int GetLastSample() const noexcept { return m_nLastSample; }
  void SetLastSample(int n) noexcept { m_nLastSample = n; }
  int GetCurrentSample() const noexcept { return m_nCurrentSample; }
  void SetCurrentSample(int n) noexcept { m_nCurrentSample = n; }
  const std::string& GetBatchUserName() const noexcept { return m_strBatchUserName; }
  void SetBatchUserName(const char* name) { m_strBatchUserName = name != nullptr ? name : ""; }

  // The current-sample file: KVCurSmp.txt in the library's home folder.
  static std::string GetDefaultFileName();

  using CSampleRecord::Read;
  using CSampleRecord::Write;

  // Writes the "[Batch]" section, an empty line and the sample record to the
  // file (null: the current-sample file), replacing it; 0 when it cannot be
  // written, in which case nothing is left behind.
  int Write(const char* path);
  int Write(StdioFile& file);
  // Reads the batch members (missing or non-numeric numbers read as 0) and
  // the sample record; 0 when the file cannot be read.
  int Read(const char* path);

 private:
  std::string m_strBatchFile;
  int m_nFirstSample = 0;
  int m_nCurrentSample = 0;
  int m_nLastSample = 0;
  std::string m_strBatchUserName;
};

}  // namespace kvdao
