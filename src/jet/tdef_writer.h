#pragma once

// Writing table definitions: the bytes of a Jet 4 TDEF from a TableLayout and
// the pointers that tie the table to its pages, and placing those bytes on
// one or more chained TDEF pages.

#include <cstdint>
#include <vector>

#include "page_writer.h"
#include "table_layout.h"

namespace kvdao::jet::internal {

// Where a table's structures live, written into its definition.
struct TablePointers {
  std::uint32_t row_count = 0;
  std::uint32_t owned_map = 0;  // row pointers (page << 8 | row) of usage maps
  std::uint32_t free_map = 0;
  struct Index {
    std::uint32_t usage_map = 0;
    std::uint32_t root_page = 0;
    std::uint32_t distinct_keys = 0;
  };
  std::vector<Index> indexes;  // one per physical index
  struct LongValues {
    std::uint32_t owned_map = 0;
    std::uint32_t free_map = 0;
  };
  std::vector<LongValues> long_values;  // one per Memo/OLE column, in entry order
};

std::vector<std::uint8_t> EncodeTableDefinition(const TableLayout& spec, const TablePointers& pointers);

// Writes the definition starting on first_page, taking continuation pages
// from the writer (owned by the table) when it does not fit; continuation
// pages already chained from first_page are reused, and ones no longer
// needed are given back.
void WriteTableDefinition(PageWriter& pages, std::uint32_t first_page, const std::vector<std::uint8_t>& bytes);

// One 32-bit value to change in a stored definition, at its offset in the
// definition's bytes (as EncodeTableDefinition lays them out and the reader
// joins the chained pages).
struct TdefPatch {
  std::size_t offset;
  std::uint32_t value;
};

// Changes values in place in the definition starting on first_page, leaving
// every other byte as it is: how a definition the writer did not make is
// updated. DaoException when an offset lies beyond the page chain.
void PatchTableDefinition(PageWriter& pages, std::uint32_t first_page, const std::vector<TdefPatch>& patches);

}  // namespace kvdao::jet::internal
