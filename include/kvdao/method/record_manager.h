#pragma once

// CRecordManager: the list side of a manager of file-held records. It keeps
// a working list (a CRecordArray, absent until a concrete manager creates it
// in CreateArray or elsewhere) and a current position in it, and drives the
// open/close protocol whose file-level steps a concrete manager supplies.
//
// Promises:
//  - every list operation does nothing (or returns null / 0) while there is
//    no working list;
//  - records handed to the list belong to it: RemoveAt, Close and the
//    destructor delete them;
//  - DeleteAll has a fixed, surprising behaviour that stored callers rely on;
//    see its comment.
//  - Close and Open leave the current index alone.

#include <cstdint>
#include <memory>

#include "kvdao/method/record.h"
#include "kvdao/method/record_array.h"

namespace kvdao {

class CRecordManager {
 public:
  CRecordManager() = default;
  CRecordManager(const CRecordManager&) = delete;
  CRecordManager& operator=(const CRecordManager&) = delete;
  virtual ~CRecordManager();

  static const char* ClassName() noexcept { return "CRecordManager"; }
  virtual const char* GetClassName() const noexcept { return ClassName(); }

  // Empties the list by walking an index from 0 while it is below the count:
  // the record at the index is deleted, its slot removed (later elements move
  // down) and then the index advances. So only the records at even positions
  // (0, 2, 4, …) are deleted; the others leave the list without being
  // deleted, and whoever still holds them must free them. Afterwards the
  // storage is freed and count and capacity are 0.
  virtual void DeleteAll();
  // Inside the list, shifts the elements from `index` up and stores the
  // record there; at or beyond the end, grows the list to `index` + 1 (null
  // slots) and stores it last. A negative index is ignored.
  virtual void InsertAt(const int& index, CRecord* record);
  // Stores the pointer at `index` with no bounds test and without deleting
  // the previous element: the caller guarantees 0 <= index < GetSize().
  virtual void SetAt(const int& index, CRecord* record);
  // As SetAt, after growing the list to `index` + 1 when `index` is beyond
  // the end. A negative index is ignored.
  virtual void SetAtGrow(const int& index, CRecord* record);
  // The element, or null when `index` is outside 0 … GetSize() − 1.
  virtual CRecord* GetAt(const int& index) const;
  // Deletes the record at an index inside the list and closes the gap;
  // otherwise does nothing.
  virtual void RemoveAt(const int& index);
  // Appends the pointer.
  virtual void AddEntry(CRecord* record);
  virtual bool Read(CRecord* record, const int& number) = 0;
  // Close(), then OpenFile(); false when that fails, else CreateArray().
  virtual bool Open(const char* path, unsigned flags);
  // CloseFile(), then deletes the working list and its records. The result
  // is CloseFile's.
  virtual bool Close();
  virtual bool Save(const int& index) = 0;
  virtual bool SaveAll() = 0;
  virtual bool OpenFile(const char* path, unsigned flags) = 0;
  virtual bool CloseFile() = 0;
  virtual bool New() = 0;
  virtual bool CreateArray() = 0;

  int GetSize() const noexcept { return m_pArray ? m_pArray->GetSize() : 0; }
  // Accepted when 0 <= index < GetSize(), or when the list is empty (or
  // absent) and index is 0; any other value is ignored.
  void SetCurrentIndex(const int& index) noexcept;
  int GetCurrentIndex() const noexcept { return m_nCurrentIndex; }
  CRecord* GetCurrentRecord() const { return GetAt(m_nCurrentIndex); }

 protected:
  // The working list, for concrete managers that create or replace it.
  std::unique_ptr<CRecordArray> m_pArray;
  std::int32_t m_nCurrentIndex = 0;
};

}  // namespace kvdao
