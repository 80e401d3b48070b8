#pragma once

// Data pages: a header, a table of 2-byte row offsets, and rows packed from
// the end of the page towards the table. Row n runs from its offset to the
// offset of row n-1 (row 0 to the end of the page). The high bits of an
// offset mark a deleted row and a row that only holds a pointer to where its
// data moved (an overflow row).

#include <cstdint>

#include "bytes.h"
#include "format.h"

namespace kvdao::jet::internal {

// A row position: page number and row number, packed in files as
// (page << 8) | row.
struct RowId {
  std::uint32_t page = 0;
  std::uint32_t row = 0;
  static RowId FromPointer(std::uint32_t pointer) noexcept { return {pointer >> 8, pointer & 0xFF}; }
};

struct RowSlot {
  bool deleted = false;
  bool lookup = false;  // the row's bytes are a RowId pointer to the real row
  Bytes bytes;          // empty for deleted rows
};

// Number of rows in the offset table; DaoException when it cannot fit the page.
std::uint32_t DataPageRowCount(Bytes page, const format::Layout& layout);
// The slot of one row; DaoException when its offsets do not describe a range
// inside the page. The target of a moved row carries the deleted flag (so
// that scans pass over it); read_deleted gives such a row's bytes.
RowSlot DataPageRow(Bytes page, const format::Layout& layout, std::uint32_t row, bool read_deleted = false);

}  // namespace kvdao::jet::internal
