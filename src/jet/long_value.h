#pragma once

// Long values (Memo and OLE fields). The row holds a 12-byte reference: a
// 30-bit length with two flag bits, a row pointer and four unused bytes.
// Flag 0x80 keeps the data right after the reference in the row; 0x40 keeps
// it whole in one row of a long-value page; with neither flag it is a chain
// of long-value rows, each starting with the pointer to the next.

#include <cstdint>
#include <vector>

#include "page_source.h"

namespace kvdao::jet::internal {

// The bytes of a long value. Inline and single-row values point into the
// file; chained values are gathered into buffer. DaoException when the
// reference or its chain is damaged.
Bytes ReadLongValue(const PageSource& pages, Bytes reference, std::vector<std::uint8_t>& buffer);

}  // namespace kvdao::jet::internal
