#pragma once

// CMethodManager: a quantify method being edited. It keeps the method's
// records in two lists, the working list (the record manager's list, which
// an editor changes) and the permanent list (the last committed state), and
// reads and writes them through the method's record-database file.
//
// The editing cycle: OpenFile → CreateArray → CopyTempToPermanent (snapshot)
// → edits → SaveAll or WriteFile, then CopyTempToPermanent; or
// CopyPermanentToTemp (revert) → CloseFile.
//
// Promises:
//  - the two lists never share a record: copying between them copies every
//    record deeply;
//  - list positions are 0-based and record numbers in the file 1-based:
//    list position i is file record i + 1 (Read, Save);
//  - SaveAll and WriteFile each change the file in one commit (see
//    docs/record-store.md); WriteFile is all or nothing;
//  - failures are reported as false; nothing throws or shows a message.

#include <memory>

#include "kvdao/method/method_array.h"
#include "kvdao/method/method_record.h"
#include "kvdao/method/record_manager.h"
#include "kvdao/samplefile/db3_file.h"

namespace kvdao {

class CMethodManager : public CRecordManager {
 public:
  CMethodManager();
  ~CMethodManager() override;

  static const char* ClassName() noexcept { return "CMethodManager"; }
  const char* GetClassName() const noexcept override { return ClassName(); }
  static CMethodManager* CreateInstance() { return new CMethodManager; }
  static void ReleaseInstance(CMethodManager* manager) { delete manager; }

  // Opens the method file (mode: the file's open flags, modeCreate to make
  // a new one).
  bool OpenFile(const char* path, unsigned mode) override;
  // False only when there is no file object.
  bool CloseFile() override;
  // Fills the working list with every record of the file, in order. False
  // (list untouched) with no file or a file of fewer than 1 record.
  bool CreateArray() override;
  // Reads file record number + 1 into `record` (a CMethodRecord).
  bool Read(CRecord* record, const int& number) override;
  // The file-level read: file record number + 1 into `record`.
  virtual bool Read(CDB3Record* record, const int& number);
  // A new empty working list; the old one and its records are deleted.
  bool New() override;
  // Writes working record `index` as file record index + 1.
  bool Save(const int& index) override;
  // Save for every index from 0; stops at the first failure, keeping what
  // was saved before it. True for an empty list.
  bool SaveAll() override;
  // Makes the working list the whole content of the file. False for an
  // absent or empty list.
  virtual bool WriteFile();
  virtual bool WriteFile(const CMethodRecord* records, const int& count);
  virtual bool WriteFile(const CDB3Record* records, const int& count);
  // Empties the working list, then fills it with copies of the permanent
  // records; false when there is no permanent list.
  virtual bool CopyPermanentToTemp();
  // Replaces the permanent list by copies of the working records; false
  // when there is no working list (the permanent list is then empty).
  virtual bool CopyTempToPermanent();
  // The permanent record at `index`, or null.
  CMethodRecord* GetPermanentAt(const int& index) const;
  virtual int GetPermanentSize() const;

  CDB3MethodFile* GetFile() const noexcept { return m_pFile.get(); }

 private:
  CMethodArray& WorkingList();

  std::unique_ptr<CMethodArray> m_pPermanent;
  std::unique_ptr<CDB3MethodFile> m_pFile;
  void* m_pReserved = nullptr;  // kept for the layout; unused
};

}  // namespace kvdao
