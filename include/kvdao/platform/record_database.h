#pragma once

// The record-database library: files of fixed-size records of one kind,
// numbered from 1. Every call names the kind, not a handle: a process has at
// most one file of each kind open at a time.
//
// Kinds and their record sizes: 2 peaks (4112 bytes), 5 samples (4262),
// 16 calibration curves (19496), 20 quantify methods (3504). The file layout
// is this library's own (docs/record-store.md): a checked header, then the
// records, each with a checksum. A file that is not a store of the kind
// asked for, is cut short or damaged fails to open or to read; nothing in it
// is changed. Each write is all or nothing, even if the process dies half
// way (a rollback journal "<file>-journal" is kept while it runs), and
// several processes may use one file at once (advisory locks).
//
// Results: 0 for success and non-zero for failure, except where noted.
// No call throws or shows a message.

namespace kvdao::platform {

inline constexpr int kDB3KindPeak = 2;
inline constexpr int kDB3KindSample = 5;
inline constexpr int kDB3KindCalibration = 16;
inline constexpr int kDB3KindMethod = 20;

// DB3Open modes.
inline constexpr int kDB3OpenExisting = 1;
inline constexpr int kDB3Create = 2;  // a new empty file; an existing file of the kind is emptied

// DB3HandleRecord operations.
inline constexpr int kDB3Read = 1;
inline constexpr int kDB3Replace = 2;
inline constexpr int kDB3Append = 3;

// The record size of a kind, or 0 for a kind the library does not know.
int DB3RecordSize(int kind);

// Opens (mode 1) or creates (mode 2) the file of `kind` at `path`. Fails
// for an unknown kind, a null or empty path, or when a file of this kind is
// already open in the process.
int DB3Open(int kind, const char* path, int mode);

// One record of the open file of `kind`, through `buffer` (the kind's
// record size): operation 1 reads record `number`, 2 replaces it (both
// 1 … the record count), 3 appends the buffer after the last record (the
// number is not used). `write` must be 0 for a read and 1 otherwise.
int DB3HandleRecord(int kind, int number, void* buffer, int operation, int write);

// The number of records of the open file of `kind`; -1 when none is open or
// the file cannot be read.
int DB3GetRecordsInDB(int kind);

// Closes the file of `kind` (an unfinished batch is dropped); nothing when
// none is open.
void DB3Close(int kind);

// Batches: the calls between DB3BeginBatch and DB3EndBatch read the file
// under one lock and write it in one step, with one flush, all or nothing.
// DB3EndBatch(kind, 1) commits; DB3EndBatch(kind, 0) drops the changes.
int DB3BeginBatch(int kind);
int DB3EndBatch(int kind, int commit);

// Drops the records after the first `count` (0 empties the file).
int DB3SetRecordsInDB(int kind, int count);

}  // namespace kvdao::platform
