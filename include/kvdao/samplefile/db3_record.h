#pragma once

// CDB3Record: one record of a record-database file, as a buffer of its
// kind's size, and one subclass per kind (peak, sample, calibration curve,
// quantify method) that converts to and from the record's structure.
//
// Promises:
//  - a record owns its buffer; copies copy kind, size and bytes;
//  - a new record's buffer is all zero bytes (GetBuffer is null only when
//    it could not be allocated);
//  - the subclasses add no data, so an array of any of them can be walked
//    as CDB3Record objects (CDB3File's Read and Write take such arrays).

#include <cstdint>

#include "kvdao/method/internal_method.h"
#include "kvdao/samplelist/sample_db_record.h"

namespace kvdao {

class CMethodRecord;

// Peak and calibration-curve records are carried whole; their fields are
// the business of the programs that make them.
struct _tagINTERNAL_PEAK_DB_RECORD {
  std::uint8_t bytes[4112];
};
struct _tagINTERNAL_CURVE_DB_RECORD {
  std::uint8_t bytes[19496];
};

class CDB3Record {
 public:
  CDB3Record(int kind, int size);
  CDB3Record(const CDB3Record& other);
  CDB3Record& operator=(const CDB3Record& other);
  virtual ~CDB3Record();

  // Allocates the buffer if there is none and fills it with zero bytes;
  // 0 only when the allocation fails.
  int Initialise();
  virtual void* GetBuffer() { return m_pBuffer; }
  virtual const void* GetBuffer() const { return m_pBuffer; }
  int GetType() const noexcept { return m_nType; }
  int GetSize() const noexcept { return m_nSize; }

 protected:
  // Copies GetSize() bytes into the buffer (allocating it if needed).
  void Assign(const void* bytes);

 private:
  std::uint8_t* m_pBuffer = nullptr;
  std::int32_t m_nType;
  std::int32_t m_nSize;
};

// The part every kind shares: construction from, assignment from and
// conversion to the record structure `Struct`.
template <int Kind, typename Struct>
class CDB3TypedRecord : public CDB3Record {
 public:
  static constexpr int kKind = Kind;

  CDB3TypedRecord() : CDB3Record(Kind, static_cast<int>(sizeof(Struct))) {}
  explicit CDB3TypedRecord(const Struct& record) : CDB3TypedRecord() { Assign(&record); }
  explicit CDB3TypedRecord(const Struct* record) : CDB3TypedRecord() {
    if (record != nullptr) Assign(record);
  }
  CDB3TypedRecord& operator=(const Struct& record) {
    Assign(&record);
    return *this;
  }

  // The buffer itself, as the structure (null if it could not be allocated).
  operator Struct*() { return static_cast<Struct*>(GetBuffer()); }
  operator const Struct*() const { return static_cast<const Struct*>(GetBuffer()); }
  operator const Struct&() const { return *static_cast<const Struct*>(GetBuffer()); }
};

class CDB3PeakRecord : public CDB3TypedRecord<2, _tagINTERNAL_PEAK_DB_RECORD> {
 public:
  using CDB3TypedRecord::CDB3TypedRecord;
  using CDB3TypedRecord::operator=;
};

class CDB3SampleRecord : public CDB3TypedRecord<5, _tagINTERNAL_SAMPLES_DB_RECORD> {
 public:
  using CDB3TypedRecord::CDB3TypedRecord;
  using CDB3TypedRecord::operator=;
};

class CDB3CalibrationRecord : public CDB3TypedRecord<16, _tagINTERNAL_CURVE_DB_RECORD> {
 public:
  using CDB3TypedRecord::CDB3TypedRecord;
  using CDB3TypedRecord::operator=;
};

class CDB3MethodRecord : public CDB3TypedRecord<20, tagINTERNAL_METHOD> {
 public:
  using CDB3TypedRecord::CDB3TypedRecord;
  using CDB3TypedRecord::operator=;
  // Copies the method record's 3504-byte structure.
  CDB3MethodRecord& operator=(const CMethodRecord& record);
};

static_assert(sizeof(CDB3PeakRecord) == sizeof(CDB3Record));
static_assert(sizeof(CDB3SampleRecord) == sizeof(CDB3Record));
static_assert(sizeof(CDB3CalibrationRecord) == sizeof(CDB3Record));
static_assert(sizeof(CDB3MethodRecord) == sizeof(CDB3Record));

}  // namespace kvdao
