#pragma once

// CSampleListMem: a sample list held wholly in memory, the form from which
// every stored form of a sample list derives. A storage (an Access database,
// an import) derives from it and supplies Load and Save.
//
// Promises beyond the base:
//  - a modified flag, set by every change of content (a cell set to the
//    value it already holds is no change), cleared by New();
//  - an untitled flag, set by construction and New(), cleared by a
//    successful Open();
//  - after New() the list has exactly one blank row;
//  - the cursor is not moved by insertion or deletion; an operation on the
//    current row when the cursor is past the last row does nothing (GetItem
//    gives an empty value, SetItem 0).

#include <memory>
#include <string>
#include <vector>

#include "kvdao/samplelist/sample_list.h"

namespace kvdao {

class CSampleListMem : public CSampleList {
 public:
  CSampleListMem();
  ~CSampleListMem() override;

  // Copies the rows of `other` (not its file name or programs) after New(),
  // and marks the list modified.
  CSampleListMem& operator=(const CSampleListMem& other);

  CKVVariant GetItem(int column) override;
  CKVVariant GetItem(int column) const override;
  // Returns 1 whether or not the value changed; 0 only when there is no
  // current row.
  int SetItem(int column, const CKVVariant& value) override;
  int SetRow(int row) override;
  int NextRow() override;
  int PreviousRow() override;
  int AppendRow(const CSampleListRow& row) override;
  int InsertRow(int at, const CSampleListRow& row) override;
  int DeleteRow(int row) override;
  int AppendBlankRows(int count) override;
  int InsertBlankRows(int at, int count) override;
  // Deletes rows first..first+count-1, stopping at the last row.
  int DeleteRows(int first, int count) override;
  int DeleteLastRow() override;
  int Open(const std::string& name) override;
  int Close(int flags) override;
  CSampleListRow* GetSample(int n) override;
  // Appends a copy and returns the new row count.
  int AddSample(const CSampleListRow& row) override;
  int RemoveSample(int n) override;
  int DeleteAllSamples() override;
  int New() override;

  // The row itself; throws std::out_of_range for a row that does not exist.
  CSampleListRow& operator[](int row);
  const CSampleListRow& operator[](int row) const;

  int IsDirty() const noexcept { return m_bModified; }
  int IsUntitled() const noexcept { return m_bUntitled; }
  // The path chosen by the last successful PreSave.
  const std::string& GetSaveName() const noexcept { return m_strSaveName; }

 protected:
  // Chooses the path to save under (see GetSaveName); 0 when there is
  // nothing to save: a titled, unmodified list saved to its own name.
  // An untitled list with no path goes to <project>/SampleDB/default.spl.
  int PreSave(const char* path);

  CSampleListRow* CurrentRow() noexcept;
  const CSampleListRow* CurrentRow() const noexcept;
  void SyncCount() noexcept { m_nRowCount = static_cast<int>(m_rows.size()); }

  int m_bModified = 0;
  int m_bUntitled = 1;
  std::vector<std::unique_ptr<CSampleListRow>> m_rows;
  std::string m_strSaveName;
};

}  // namespace kvdao
