#pragma once

// CSampleList: the abstract base of every sample list, whatever its storage.
//
// It knows the column schema, the file name, a cursor (the current row) and
// three external-program slots, and offers typed access by column index or
// key name on the current row through the virtual cell operations that each
// storage supplies. Operations report by result: 0 for failure, 1 or a count
// for success.
//
// Typed access is deliberately asymmetric: text can be put into any column
// (double columns parse it as atof does), a number only into a double column.

#include <array>
#include <memory>
#include <string>

#include "kvdao/samplelist/kv_variant.h"
#include "kvdao/samplelist/sample_list_row.h"
#include "kvdao/samplelist/schema.h"
#include "kvdao/support/external_program.h"

namespace kvdao {

class CSampleList {
 public:
  static constexpr const SampleColumnDef* m_SampleListDefinition = kSampleColumns;
  static constexpr int m_nSLFieldDefs = kSampleColumnCount;
  // Version of the sample-list layout.
  static constexpr double m_fVersion = 31.5;
  static const std::string m_strTableName;                   // "ANALYSIS"
  static const std::string m_strDefaultFilename;             // "default.spl"
  static const std::string m_strDefaultSampleListDirectory;  // "\SampleDB\"

  CSampleList();
  CSampleList(const CSampleList&) = delete;
  CSampleList& operator=(const CSampleList&) = delete;
  virtual ~CSampleList();

  // --- cells and rows, supplied by the storage ---
  // A copy of cell `column` of the current row.
  virtual CKVVariant GetItem(int column) = 0;
  virtual CKVVariant GetItem(int column) const = 0;
  virtual int SetItem(int column, const CKVVariant& value) = 0;
  virtual int SetRow(int row) = 0;
  virtual int NextRow() = 0;
  virtual int PreviousRow() = 0;
  virtual int AppendRow(const CSampleListRow& row) = 0;
  virtual int InsertRow(int at, const CSampleListRow& row) = 0;
  virtual int DeleteRow(int row) = 0;
  virtual int AppendBlankRows(int count) = 0;
  virtual int InsertBlankRows(int at, int count) = 0;
  virtual int DeleteRows(int first, int count) = 0;
  virtual int DeleteLastRow() = 0;
  // Sets the open flag and file name, then checks that the file can be
  // opened for reading: 0 when already open or when it cannot (the open
  // flag then stays set), else 1.
  virtual int Open(const std::string& name);
  // 0 when not open; else clears the open flag, 1.
  virtual int Close(int flags);
  // Row number n counted from 1; null when there is no such row.
  virtual CSampleListRow* GetSample(int n) = 0;
  virtual int AddSample(const CSampleListRow& row) = 0;
  // Deletes row n counted from 0 (unlike GetSample).
  virtual int RemoveSample(int n) = 0;
  virtual int DeleteAllSamples() = 0;
  virtual int New() = 0;
  virtual int Load(const char* path) = 0;
  virtual int Save(const char* path) = 0;

  // --- navigation and editing through the slots above ---
  int GetNumSamples() const noexcept { return m_nRowCount; }
  int GetRecordCount() const noexcept { return m_nRowCount; }
  int GetRecordSetCount() const noexcept { return m_nRowCount; }
  int GetCurrentRow() const noexcept { return m_nCurrentRow; }
  bool IsOpen() const noexcept { return m_bOpen != 0; }
  std::string GetFileName() const { return m_strFileName; }
  const std::string& GetFileTitleName() const noexcept { return m_strFileName; }

  int MoveFirst() { return SetRow(0); }
  int MoveToFirstRecord() { return SetRow(0); }
  int MoveNext() { return NextRow(); }
  int MoveToNextRecord() { return NextRow(); }
  int MoveToPrevRecord() { return PreviousRow(); }
  int MoveLast() { return SetRow(m_nRowCount - 1); }
  int MoveToRecord(int row) { return SetRow(row); }
  // Steps n rows forward (n > 0) or back (n < 0), stopping at either end.
  void Move(long n);
  int AddRecords(int count);
  int InsertRecords(int at, int count);
  // Note the order: the count comes first here, unlike DeleteRows.
  int DeleteRecords(int count, int first);

  // --- schema ---
  static int GetNumFields() noexcept { return kSampleColumnCount; }
  static int GetFieldIndex(const std::string& name) noexcept;
  static int IsIndexField(int column) noexcept { return column == kColumnIndex ? 1 : 0; }
  // dbDouble or dbText; 0 for a column outside the schema.
  static int GetType(int column) noexcept;

  // --- typed access to the current row ---
  int SetMemberVar(int column, const std::string& value);
  int SetMemberVar(int column, double value);
  int SetMemberVar(const std::string& name, const std::string& value);
  int SetMemberVar(const std::string& name, double value);
  // The cell as GetString gives it. A column outside the schema throws
  // NotSupportedException.
  std::string GetMemberVar(int column);
  std::string GetMemberVar(const std::string& name);
  // The cell's 8-byte numeric payload, whatever its tag: 0 when `out` is null
  // (or the name unknown), else 1.
  int GetMemberVar(int column, double* out);
  int GetMemberVar(const std::string& name, double* out);

  // --- external programs, slots 0..2 ---
  int GetExternalProgram(CExternalProgram& out, int slot) const;
  int SetExternalProgram(const CExternalProgram& program, int slot);

 protected:
  std::array<std::unique_ptr<CExternalProgram>, 3> m_pExternalPrograms;
  std::string m_strFileName;
  int m_bOpen = 0;
  int m_nCurrentRow = 0;
  int m_nRowCount = 0;
};

}  // namespace kvdao
