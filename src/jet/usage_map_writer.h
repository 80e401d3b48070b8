#pragma once

// Writing usage maps into their rows. A map row is 69 bytes (type, start
// page, 64-byte bitmap). A set of pages that fits in 512 consecutive pages
// is written inline (type 0); a larger one as a list of usage bitmap pages
// (type 1), each covering (page size - 4) * 8 pages from page 0 on. Bitmap
// pages named by the row already are reused; more are taken when needed.

#include <cstdint>
#include <vector>

#include "page_file.h"

namespace kvdao::jet::internal {

// A table's map: bit set = page in the set (sorted, no duplicates).
void WriteUsageMap(PageFile& file, std::uint32_t row_pointer, const std::vector<std::uint32_t>& sorted_pages);

// The file's map of free pages (page 1, row 0): bit set = the page is free
// or lies past the end of the file, for every page the map covers.
void WriteGlobalUsageMap(PageFile& file, std::uint32_t row_pointer);

}  // namespace kvdao::jet::internal
