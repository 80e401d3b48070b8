#pragma once

// CMethodShareMem: quantify method records published to other processes in
// the shared-memory block "MethodDataShare". Each value is an array of
// whole 3504-byte method records, stored under a value number the caller
// chooses and always with the type tag 1234. Counts are byte counts, as
// for CShareMem (one record is 3504).

#include "kvdao/method/method_record.h"
#include "kvdao/platform/share_mem.h"

namespace kvdao {

class CMethodShareMem : public CShareMem {
 public:
  static constexpr const char* kBlockName = "MethodDataShare";
  static constexpr int kTypeTag = 1234;

  // The block's capacity in bytes and its number of value slots, used when
  // this call creates the block.
  CMethodShareMem(long capacity, int slots) : CShareMem(kBlockName, capacity, slots) {}
  CMethodShareMem(const CMethodShareMem& other) = default;

  static const char* ClassName() noexcept { return "CMethodShareMem"; }
  const char* GetClassName() const noexcept override { return ClassName(); }

  bool CreateMethodValue(const int& value, const int& count);
  // False when the record has no data.
  bool SetMethodValue(const CMethodRecord& record, const int& value, const int& count);
  // On success assigns the value's first record to `record`; else leaves it.
  bool GetMethodValue(CMethodRecord& record, const int& value, const int& count);
  // Stores records[0 … n − 1] back to back as one value; false for n < 1 or
  // a null array.
  bool SetMethodValues(const CMethodRecord* records, const int& n, const int& value, const int& count);
  // Reads one value into records[0 … n − 1]. Every record is assigned, from
  // the bytes read or from zero bytes when the read failed: test the result
  // before trusting the records.
  bool GetMethodValues(CMethodRecord* records, const int& n, const int& value, const int& count);
};

}  // namespace kvdao
