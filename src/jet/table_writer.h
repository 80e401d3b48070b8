#pragma once

// TableWriter: adds rows to one table of a database being written. A row
// is staged column by column (AddNew, SetValue), checked against the
// field rules and the unique and required indexes, and then encoded
// straight into the table's current data page (Update). Full pages are
// handed back to the file so memory stays flat. Finish writes the table's
// usage maps, its index pages and its definition with the final row count.
//
// A writer for a table already in the file continues it: rows go on its
// last data page while that has room, then on new pages; Finish adds the
// new pages to the table's usage maps, rebuilds each index from its old
// entries and the new ones (freeing the old index pages), and changes only
// the row count, AutoNumber and index roots in the stored definition.

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "data_page_writer.h"
#include "existing_table.h"
#include "index_collector.h"
#include "kvdao/platform/variant.h"
#include "page_file.h"
#include "row_builder.h"
#include "table_layout.h"
#include "tdef_writer.h"

namespace kvdao::jet::internal {

class TableWriter {
 public:
  // tdef_page: the table's (already taken) definition page; map_rows: where
  // the table's usage-map rows are added.
  TableWriter(PageFile& file, DataPageWriter& map_rows, TableLayout spec, std::uint32_t tdef_page);
  // Continues a table that is in the file.
  TableWriter(PageFile& file, std::unique_ptr<ExistingTable> existing);
  ~TableWriter();
  TableWriter(const TableWriter&) = delete;
  TableWriter& operator=(const TableWriter&) = delete;

  const TableLayout& spec() const noexcept { return spec_; }
  std::uint32_t tdef_page() const noexcept { return tdef_page_; }
  std::uint32_t row_count() const noexcept { return pointers_.row_count; }
  // Position of a column in spec().columns (case-insensitive), or -1.
  int FindColumn(std::string_view name) const noexcept;

  // Starts a new row with every field null.
  void AddNew();
  bool editing() const noexcept { return editing_; }
  void SetValue(std::size_t column, const Variant& value);
  // Stores the row; DaoException (and the row stays staged) when a rule
  // refuses it.
  void Update();
  void CancelUpdate() noexcept { editing_ = false; }

  // Writes usage maps, index pages and the definition. The table takes no
  // more rows afterwards.
  void Finish();

 private:
  void CheckFieldRules() const;
  void CreateLongValueWriters();
  std::vector<std::size_t> AssignAutoNumbers();
  void FinishExisting();
  static void RetirePage(void* file, std::uint32_t page);
  static void RowPageFull(void* self, std::uint32_t page);

  PageFile& file_;
  TableLayout spec_;
  std::uint32_t tdef_page_;
  TablePointers pointers_;
  DataPageWriter rows_;
  std::vector<std::unique_ptr<DataPageWriter>> long_values_;  // one per Memo/OLE column
  std::vector<int> long_value_slot_;                          // per column: index into long_values_, or -1
  RowBuilder row_;
  std::vector<std::unique_ptr<IndexCollector>> indexes_;
  std::vector<std::uint8_t> encoded_;
  bool editing_ = false;
  bool finished_ = false;
  // A table that came with the file: what it had, and its data pages that
  // this writer filled up.
  std::unique_ptr<ExistingTable> existing_;
  std::vector<std::uint32_t> full_pages_;
  std::uint32_t last_autonumber_ = 0;
  std::vector<std::size_t> autonumbers_;  // AutoNumber columns (tables made by Access)
};

}  // namespace kvdao::jet::internal
