#pragma once

// The "batches" table of the status database: its create statement and the
// values of one row. Internal to the generic batch area (and its benchmark).

#include <string>
#include <vector>

#include "kvdao/genericbatch/generic_batch.h"

namespace kvdao::status {

inline constexpr int kColumnCount = 120;
inline constexpr long long kLargestID = 2147483646;  // the next one wraps to 0

// "CREATE TABLE batches (ID INTEGER, … , PRIMARY KEY (ID));"
std::string CreateTableStatement();

// The texts of one sample's row, in column order: numbers formatted "%i" or
// "%f", lists padded with empty texts to their column counts. A list longer
// than its columns is not cut, so such a row has more than kColumnCount
// values and cannot be stored.
std::vector<std::string> RowValues(const GenericBatch& batch, const GenericPlate& plate,
                                   const GenericSample& sample, long long id, bool isQC);

}  // namespace kvdao::status
