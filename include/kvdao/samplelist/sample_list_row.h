#pragma once

// CSampleListRow: one row of a sample list, the 160 cells of the column
// schema.
//
// The cells live inside the row object (one allocation per row, not one per
// cell); a new row holds 0.0 in every double column and an empty text in
// every text column. Copies are deep.

#include <array>

#include "kvdao/samplelist/kv_variant.h"
#include "kvdao/samplelist/schema.h"

namespace kvdao {

class CSampleListRow {
 public:
  CSampleListRow();
  CSampleListRow(const CSampleListRow&) = default;
  CSampleListRow(CSampleListRow&&) noexcept = default;
  CSampleListRow& operator=(const CSampleListRow&) = default;
  CSampleListRow& operator=(CSampleListRow&&) noexcept = default;
  virtual ~CSampleListRow() = default;

  // The cell of a column; a column outside 0..159 throws
  // NotSupportedException.
  CKVVariant& operator[](int column);
  const CKVVariant& operator[](int column) const;

  // True when every cell has the same tag and value as the other row's.
  bool operator==(const CSampleListRow& other) const noexcept;
  bool operator!=(const CSampleListRow& other) const noexcept { return !(*this == other); }

 private:
  std::array<CKVVariant, kSampleColumnCount> cells_;
};

}  // namespace kvdao
