#pragma once

// CDB3File: a record-database file (peaks, samples, calibration curves or
// quantify methods) opened by kind, read and written a record at a time from
// a current record number. One subclass per kind. The file itself is a
// record store (docs/record-store.md), reached through the record-database
// calls, which allow one open file per kind in a process: two CDB3File
// objects of one kind cannot be open at once.
//
// Promises:
//  - results: Open 1 or 0; Read and Write the number of records, 0 when
//    there is nothing to do, -1 on failure; every length or position of a
//    closed file is -1;
//  - a record of another kind, or without a buffer, fails a Read or Write
//    before the file is touched;
//  - one Read or Write of many records reads under one lock and writes as
//    one commit: all the records or none (then -1, position unchanged);
//  - the position moves only by reading, writing and SetCurrentRecord;
//    Seek never moves it.

#include <cstdint>
#include <ctime>
#include <string>

#include "kvdao/samplefile/db3_record.h"

namespace kvdao {

class CDB3File {
 public:
  // The open flag that creates the file (as the platform's file class).
  static constexpr unsigned modeCreate = 0x1000;

  explicit CDB3File(int kind);
  CDB3File(const CDB3File&) = delete;
  CDB3File& operator=(const CDB3File&) = delete;
  // Closes the file.
  virtual ~CDB3File();

  // Records the path and opens the file: created (emptied if it is a file of
  // this kind already) when `flags` holds modeCreate, else it must exist.
  // 1 with the current record at 1, or 0 with nothing changed (also when
  // this object is open already).
  virtual int Open(const char* path, unsigned flags);
  virtual void Close();
  // Reads up to `count` records, cut to those left from the current record
  // on (GetLength() + 1 − current), into consecutive objects of `records`.
  virtual int Read(CDB3Record* records, int count);
  // Writes `count` records from the current record on: replacing while the
  // number is within the file, appending from the first number beyond it on.
  virtual int Write(const CDB3Record* records, int count);
  // The byte-level forms of the platform's file class do nothing here.
  virtual unsigned Read(void* buffer, unsigned count);
  virtual void Write(const void* buffer, unsigned count);
  // Always -1: position with SetCurrentRecord.
  virtual int Seek(int offset, int from);
  // Number of records, or -1 when closed (or unreadable).
  virtual int GetLength() const;
  // Current record number, or -1 when closed.
  virtual int GetPosition() const;

  // Sets the current record (any number: reads and writes check it); 1.
  int SetCurrentRecord(int number);
  int GetCurrentRecord() const noexcept { return m_nCurrentRecord; }
  int GetType() const noexcept { return m_nType; }
  // 1 while open, else 0.
  int VerifyDB() const noexcept { return m_bOpen; }
  const std::string& GetFilePath() const noexcept { return m_strPath; }

  // The file's modification time, or 0 when its status cannot be read.
  std::time_t GetModifiedTime() const;
  // Sets the modification time; only while closed. False otherwise or on
  // failure.
  bool SetModifiedTime(std::time_t time);

  // Makes `records` the whole content of the file, in one commit, and puts
  // the current record after the last. Returns `count` or -1 (nothing
  // changed).
  int WriteFile(const CDB3Record* records, int count);

  // Groups the following reads and writes until EndBatch under one lock
  // and one commit (EndBatch(true)) or none (EndBatch(false)).
  bool BeginBatch();
  bool EndBatch(bool commit);

 private:
  // Kind and buffer checks of `count` records, before any I/O.
  bool RecordsFit(const CDB3Record* records, int count) const;

  std::int32_t m_nType;
  std::int32_t m_bOpen = 0;
  std::int32_t m_nCurrentRecord = 0;
  std::string m_strPath;
  bool m_bInBatch = false;
};

class CDB3PeakFile : public CDB3File {
 public:
  CDB3PeakFile() : CDB3File(CDB3PeakRecord::kKind) {}
};

class CDB3SampleFile : public CDB3File {
 public:
  CDB3SampleFile() : CDB3File(CDB3SampleRecord::kKind) {}
};

class CDB3CalibrationFile : public CDB3File {
 public:
  CDB3CalibrationFile() : CDB3File(CDB3CalibrationRecord::kKind) {}
};

class CDB3MethodFile : public CDB3File {
 public:
  CDB3MethodFile() : CDB3File(CDB3MethodRecord::kKind) {}
};

}  // namespace kvdao
