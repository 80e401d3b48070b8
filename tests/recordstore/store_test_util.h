#pragma once

// Helpers for the record store tests: records with recognisable contents
// and whole-store snapshots through the record-database calls.

#include <cstdint>
#include <string>
#include <vector>

#include "kvdao/platform/record_database.h"

namespace kvdao::test {

// A method-sized record whose every byte depends on `tag` and its position,
// so that two different tags never give the same record.
inline std::vector<std::uint8_t> TaggedRecord(std::uint32_t tag, int size = 3504) {
  std::vector<std::uint8_t> record(static_cast<std::size_t>(size));
  for (std::size_t i = 0; i < record.size(); ++i)
    record[i] = static_cast<std::uint8_t>((tag * 2654435761u + i * 40503u) >> 13);
  return record;
}

// Every record of the open store of `kind`; empty with ok false when any
// read fails.
inline std::vector<std::vector<std::uint8_t>> ReadAll(int kind, bool& ok) {
  std::vector<std::vector<std::uint8_t>> records;
  int count = platform::DB3GetRecordsInDB(kind);
  ok = count >= 0;
  for (int n = 1; ok && n <= count; ++n) {
    std::vector<std::uint8_t> record(static_cast<std::size_t>(platform::DB3RecordSize(kind)));
    ok = platform::DB3HandleRecord(kind, n, record.data(), platform::kDB3Read, 0) == 0;
    records.push_back(std::move(record));
  }
  if (!ok) records.clear();
  return records;
}

}  // namespace kvdao::test
