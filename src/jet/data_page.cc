#include "data_page.h"

#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {

std::uint32_t DataPageRowCount(Bytes page, const format::Layout& layout) {
  std::uint32_t count = LoadU16(page.data() + layout.data_row_count_offset);
  std::uint32_t room = (layout.page_size - layout.data_row_table_offset) / 2;
  if (count > room) {
    throw DaoException("The database file is damaged: a data page claims " + std::to_string(count) +
                       " rows.");
  }
  return count;
}

RowSlot DataPageRow(Bytes page, const format::Layout& layout, std::uint32_t row, bool read_deleted) {
  const std::uint8_t* table = page.data() + layout.data_row_table_offset;
  std::uint16_t raw = LoadU16(table + 2 * row);
  RowSlot slot;
  slot.deleted = (raw & format::kRowDeletedFlag) != 0;
  slot.lookup = (raw & format::kRowLookupFlag) != 0;
  if (slot.deleted && !read_deleted) return slot;
  std::uint32_t start = raw & format::kRowOffsetMask;
  std::uint32_t end = row == 0 ? layout.page_size : (LoadU16(table + 2 * (row - 1)) & format::kRowOffsetMask);
  std::uint32_t table_end = layout.data_row_table_offset + 2 * DataPageRowCount(page, layout);
  if (start < table_end || end > layout.page_size || start > end) {
    throw DaoException("The database file is damaged: row " + std::to_string(row) +
                       " of a data page lies outside the page.");
  }
  slot.bytes = page.subspan(start, end - start);
  return slot;
}

}  // namespace kvdao::jet::internal
