#pragma once

// Usage maps: which pages belong to a table. A table definition points at a
// row holding the map. An inline map (type 0) is a start page followed by a
// bitmap, one bit per page from the start page on; a reference map (type 1)
// is a list of page numbers of usage-map pages (type 0x05), each a bitmap
// covering the next (page size - 4) * 8 pages.

#include <cstdint>
#include <vector>

#include "page_source.h"

namespace kvdao::jet::internal {

// The pages the map at this row pointer marks as used, in ascending order.
// DaoException when the map's row or pages are damaged.
std::vector<std::uint32_t> ReadUsageMap(const PageSource& pages, std::uint32_t row_pointer);

}  // namespace kvdao::jet::internal
