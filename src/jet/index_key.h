#pragma once

// Index keys: the bytes Jet 4 stores as the sort key of an index entry. Jet
// orders index entries by plain byte comparison of these keys, so every
// value is encoded such that its bytes sort like the value:
//
//  - each column starts with a flag byte: 0x7F for a value in an ascending
//    column, 0x80 in a descending one; a null is the flag alone, 0x00
//    (ascending) or 0xFF (descending), so nulls sort first ascending and
//    last descending;
//  - integers (Integer, Long, Currency) are big-endian with the sign bit
//    flipped; Byte is the byte itself;
//  - floating-point numbers (Single, Double, Date/Time as its OLE date) are
//    big-endian IEEE bits, the sign bit flipped for non-negative numbers and
//    every bit inverted for negative ones;
//  - Boolean is never null (null reads as false): the flag, then 0x00 for
//    true and 0xFF for false;
//  - in a descending column every value byte is inverted after that.
//
// Text keys follow the General sort order (general_sort_order.h): the flag,
// then the text's collation bytes. Memo keys are refused with a DaoException.

#include <cstdint>
#include <span>
#include <vector>

#include "kvdao/platform/variant.h"

namespace kvdao::jet::internal {

struct IndexKeyColumn {
  std::uint8_t column_type;  // format::ColumnType
  bool ascending;
};

// key is cleared and receives the key of values (one
// value per column, VT_EMPTY or VT_NULL for null). A value of another
// numeric type is converted to the column's type as Jet would store it.
// DaoException for a column type that cannot be indexed yet, a value that is
// not a number (or date, or Boolean) where one is needed, a value out of the
// column's range, or a value count that does not match the column count.
void EncodeIndexKey(std::span<const IndexKeyColumn> columns, std::span<const kvdao::Variant> values,
                    std::vector<std::uint8_t>& key);

}  // namespace kvdao::jet::internal
