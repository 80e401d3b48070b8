#include "table_scanner.h"

#include "kvdao/jet/dao_exception.h"
#include "usage_map.h"

namespace kvdao::jet::internal {
namespace {

// Moved rows may in principle move again; a damaged file must not make the
// reader follow pointers forever.
constexpr int kMaxLookupHops = 16;

// Pages swept past are handed back to the system in batches of this many.
constexpr std::uint32_t kReleaseBatch = 256;

bool OwnedDataPage(Bytes page, const format::Layout& layout, std::uint32_t table_page) {
  return page[0] == format::kPageData && LoadU32(page.data() + layout.data_owner_offset) == table_page;
}

// Follows lookup rows from slot to the row holding the data. The rows that
// moved data lands in are flagged deleted, so the flag is ignored once a
// pointer has been followed.
Bytes Resolve(const PageSource& pages, const TableDefinition& table, RowSlot slot) {
  const format::Layout& layout = pages.layout();
  for (int hop = 0; slot.lookup; ++hop) {
    if (hop == kMaxLookupHops || slot.bytes.size() < 4) {
      throw DaoException("The database file is damaged: a moved row's pointer chain is broken.");
    }
    RowId target = RowId::FromPointer(LoadU32(slot.bytes.data()));
    Bytes page = pages.Page(target.page);
    if (!OwnedDataPage(page, layout, table.page) || target.row >= DataPageRowCount(page, layout)) {
      throw DaoException("The database file is damaged: a moved row points outside its table.");
    }
    slot = DataPageRow(page, layout, target.row, /*read_deleted=*/true);
  }
  return slot.bytes;
}

}  // namespace

TableScanner::TableScanner(const PageSource& pages, const TableDefinition& table)
    : pages_(pages), table_(table), data_pages_(ReadUsageMap(pages, table.owned_pages)) {}

void TableScanner::Rewind() noexcept {
  page_index_ = 0;
  page_ = Bytes();
  row_ = row_count_ = 0;
  released_to_ = 0;
}

bool TableScanner::Next(Bytes& row, RowId& id) {
  const format::Layout& layout = pages_.layout();
  for (;;) {
    while (row_ >= row_count_) {
      if (page_index_ >= data_pages_.size()) return false;
      std::uint32_t number = data_pages_[page_index_++];
      if (number >= released_to_ + kReleaseBatch) {
        pages_.Release(released_to_, number - released_to_);
        released_to_ = number;
      }
      Bytes page = pages_.Page(number);
      // Usage maps may list pages that were freed or reused; only data
      // pages that name this table hold its rows.
      if (!OwnedDataPage(page, layout, table_.page)) continue;
      page_ = page;
      row_ = 0;
      row_count_ = DataPageRowCount(page, layout);
      id.page = number;
    }
    std::uint32_t current = row_++;
    RowSlot slot = DataPageRow(page_, layout, current);
    if (slot.deleted) continue;
    Bytes bytes = Resolve(pages_, table_, slot);
    if (bytes.empty()) continue;
    id.page = data_pages_[page_index_ - 1];
    id.row = current;
    row = bytes;
    return true;
  }
}

Bytes TableScanner::ReadRow(const PageSource& pages, const TableDefinition& table, RowId id) {
  Bytes page = pages.Page(id.page);
  if (!OwnedDataPage(page, pages.layout(), table.page) || id.row >= DataPageRowCount(page, pages.layout())) {
    throw DaoException("The record no longer exists.");
  }
  Bytes bytes = Resolve(pages, table, DataPageRow(page, pages.layout(), id.row));
  if (bytes.empty()) throw DaoException("The record no longer exists.");
  return bytes;
}

}  // namespace kvdao::jet::internal
