#pragma once

// ExistingTable: what a writer needs to add rows to a table that is already
// in a file. The table is laid out as a TableLayout taken from its stored
// definition, so new rows are encoded exactly as the file lays its rows
// out; with it come the pages its usage maps name now, the data page that
// can take more rows, and the entries of every index whose keys can be
// encoded (new keys are checked against them and the trees are rebuilt
// with them). Everything is read from the file as it was opened, before the
// writer changes any of it.

#include <cstdint>
#include <memory>
#include <vector>

#include "database_file.h"
#include "index_builder.h"
#include "table_layout.h"
#include "tdef_writer.h"

namespace kvdao::jet::internal {

struct ExistingTable {
  TableLayout spec;
  TableDefinition definition;
  TablePointers pointers;
  std::vector<std::uint32_t> owned_pages;       // what the owned-pages map lists
  std::vector<std::uint32_t> free_space_pages;  // what the free-space map lists
  struct LongValueMaps {
    std::vector<std::uint32_t> owned;
    std::vector<std::uint32_t> free_space;
  };
  std::vector<LongValueMaps> long_values;  // per long-value column, in spec order
  struct Index {
    std::vector<IndexEntry> entries;  // the whole tree, rebuilt with the new ones at Close
    std::vector<std::uint32_t> tree_pages;  // pages of the tree as it is now
    std::vector<std::uint32_t> map_pages;   // what its usage map lists
  };
  std::vector<Index> indexes;  // per physical index
  std::uint32_t last_data_page = 0;  // the table's highest data page, 0 when none
};

// Loads the named table of file for appending. DaoException when the table
// cannot be appended to safely: a layout this writer does not produce
// (deleted columns leaving gaps in the variable-column table), or an index
// whose keys cannot be encoded (it would miss the new rows).
std::unique_ptr<ExistingTable> LoadExistingTable(DatabaseFile& file, const CatalogEntry& entry);

}  // namespace kvdao::jet::internal
