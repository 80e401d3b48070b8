#pragma once

// TableScanner: visits the live rows of one table in table-scan order: the
// table's data pages in ascending page order (from its usage map), and on
// each page its rows in offset-table order. Deleted rows are skipped; a row
// that was moved to another page is read where it moved to, at the position
// of its original slot.

#include <cstdint>
#include <vector>

#include "data_page.h"
#include "table_definition.h"

namespace kvdao::jet::internal {

class TableScanner {
 public:
  TableScanner(const PageSource& pages, const TableDefinition& table);

  // The next live row, or false at the end of the table.
  bool Next(Bytes& row, RowId& id);
  // Back to the first row.
  void Rewind() noexcept;

  // The bytes of the row at id, following moved rows; DaoException when id
  // does not name a live row of this table.
  static Bytes ReadRow(const PageSource& pages, const TableDefinition& table, RowId id);

 private:
  const PageSource& pages_;
  const TableDefinition& table_;
  std::vector<std::uint32_t> data_pages_;
  std::size_t page_index_ = 0;
  Bytes page_;
  std::uint32_t row_ = 0;
  std::uint32_t row_count_ = 0;
  std::uint32_t released_to_ = 0;  // pages below this were handed back
};

}  // namespace kvdao::jet::internal
