#pragma once

// CRecordArray: a growable array of CRecord pointers that owns its records.
//
// Promises:
//  - the array deletes every non-null element it holds when it is destroyed
//    or when DestructElements() is called; RemoveAt() and SetAt() only move
//    or overwrite pointers and never delete (the record manager decides);
//  - growth: when an insertion needs room, the capacity grows by the grow
//    step, or, with the automatic step (0), by count / 8 clamped to 4 … 1024;
//    when that is still short of the size needed, the capacity becomes
//    exactly that size. New slots are null.
//  - out-of-range indexes are the caller's concern except where a function
//    says otherwise.


#include "kvdao/method/record.h"

namespace kvdao {

class CRecordArray {
 public:
  CRecordArray() = default;
  CRecordArray(const CRecordArray&) = delete;
  CRecordArray& operator=(const CRecordArray&) = delete;
  virtual ~CRecordArray();

  static const char* ClassName() noexcept { return "CRecordArray"; }
  virtual const char* GetClassName() const noexcept { return ClassName(); }

  int GetSize() const noexcept { return m_nSize; }
  int GetCapacity() const noexcept { return m_nMaxSize; }
  // 0 selects the automatic step.
  void SetGrowBy(int growBy) noexcept { m_nGrowBy = growBy < 0 ? 0 : growBy; }

  // Index must be 0 … GetSize() − 1.
  CRecord* GetAt(int index) const noexcept { return m_pData[index]; }
  void SetAt(int index, CRecord* record) noexcept { m_pData[index] = record; }

  // Sets the count; a larger count adds null slots (growing as above), a
  // smaller one drops the pointers beyond it without deleting them.
  void SetSize(int size);
  // Appends a pointer and returns its index.
  int Add(CRecord* record);
  // Inside the array, moves the elements from `index` on up by one and stores
  // the pointer at `index`; at or beyond the end, first extends the array
  // with null slots to `index` + 1.
  void InsertAt(int index, CRecord* record);
  // Removes the slot at `index` (0 … GetSize() − 1), moving later elements
  // down; the record is not deleted.
  void RemoveAt(int index) noexcept;

  // Deletes every non-null element, frees the storage and sets count and
  // capacity to 0.
  virtual void DestructElements();

 protected:
  // Frees the storage without deleting any record; count and capacity 0.
  void FreeStorage() noexcept;

 private:
  void Reserve(int needed);

  CRecord** m_pData = nullptr;
  int m_nSize = 0;
  int m_nMaxSize = 0;
  int m_nGrowBy = 0;
};

}  // namespace kvdao
