#pragma once

// The data-management library's record access, through which legacy ".SDB"
// sample lists are read: a caller-owned block describes the file and holds
// the open file between AccessDBOpen and AccessDBClose. An ".SDB" file is a
// record store of kind 5 (4262-byte sample records, docs/record-store.md);
// unlike the record-database calls, any number of blocks may be open at once.
//
// Results: non-zero for success, 0 for failure. Nothing throws.

#include <cstdint>

namespace kvdao::platform {

struct tagACCESSDB {
  // The file's name in three parts, as the sample-file loader fills them.
  char szDirectory[260];
  char szName[260];
  char szExtension[16];
  std::int32_t nKind;        // record kind of the open file
  std::int32_t nRecordSize;  // its record size in bytes
  std::int32_t nMaxRecords;  // capacity of pRecords, in records
  std::int32_t nNumRecords;  // records in the file (or as set by AccessDBSetNumRecords)
  void* pRecords;            // the caller's record buffer
  void* pStore;              // the open file; null while closed. Owned: AccessDBClose frees it.
};
using ACCESSDB = tagACCESSDB;

// Opens the store at `path`, which must hold records of `kind` and
// `recordSize`, into `block` (its other fields are left alone) and sets the
// record count. `flags` is reserved (0). Fails when the block is already open.
int AccessDBOpen(const char* path, int kind, int recordSize, tagACCESSDB* block, int flags);
// Copies record `number` (1 … the count) of the open file into `record`.
int AccessDBGetRecord(tagACCESSDB* block, int number, void* record);
// Sets the block's record count; fails for a null block or a negative count.
int AccessDBSetNumRecords(tagACCESSDB* block, int count);
// Closes the file of an open block; nothing otherwise. `flags` is reserved (0).
void AccessDBClose(tagACCESSDB* block, int flags);

}  // namespace kvdao::platform
