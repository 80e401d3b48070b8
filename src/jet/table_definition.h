#pragma once

// Table definitions (TDEF pages): a table's row count, columns (with where
// each lives in a row), indexes and the row pointers of its usage maps. A
// definition may span several pages chained through the header's next-page
// field; the chain is read as one byte sequence, the first page whole and the
// following pages without their 8-byte headers.

#include <cstdint>
#include <string>
#include <vector>

#include "kvdao/jet/index.h"
#include "page_source.h"

namespace kvdao::jet::internal {

struct ColumnDef {
  std::string name;  // code page 1252
  std::uint8_t type = 0;
  std::uint16_t number = 0;        // bit in the null mask; counts deleted columns
  std::uint16_t var_index = 0;     // entry in the variable-offset table
  std::uint16_t fixed_offset = 0;  // start in the fixed area
  std::uint16_t length = 0;        // bytes (Text: bytes as stored, 2 per character in Jet 4)
  std::uint8_t flags = 0;
  std::uint8_t ext_flags = 0;
  std::uint8_t precision = 0;
  std::uint8_t scale = 0;

  bool fixed() const noexcept;
};

// A physical index as stored: what a writer needs to add entries to it.
struct RealIndexDef {
  struct Key {
    std::uint16_t column_number = 0;
    bool ascending = true;
  };
  std::vector<Key> keys;
  std::uint8_t flags = 0;
  std::uint32_t usage_map = 0;   // row pointer of the map of its pages
  std::uint32_t first_page = 0;  // root of its tree
  std::uint32_t distinct_keys = 0;
  std::size_t entry_offset = 0;  // of its entry within the definition bytes
};

// A logical index as stored: its number, its physical index and its type.
struct LogicalIndexDef {
  std::uint32_t number = 0;
  std::uint32_t real = 0;
  std::uint8_t type = 0;
};

// The usage maps of one long-value (Memo, OLE) column.
struct LongValueMapsDef {
  std::uint16_t column_number = 0;
  std::uint32_t owned_map = 0;
  std::uint32_t free_map = 0;
};

struct TableDefinition {
  std::uint32_t page = 0;  // first TDEF page
  std::uint32_t row_count = 0;
  std::uint32_t last_autonumber = 0;  // Jet 4: the last AutoNumber value handed out
  std::uint8_t table_type = 0;
  std::uint16_t max_columns = 0;
  std::vector<ColumnDef> columns;  // table order
  std::vector<IndexInfo> indexes;  // logical indexes, in entry order
  std::uint32_t owned_pages = 0;  // row pointer of the usage map of the table's pages
  std::uint32_t free_space_pages = 0;  // row pointer of the map of its pages with room
  std::vector<RealIndexDef> real_indexes;
  std::vector<LogicalIndexDef> logical_indexes;  // parallel to indexes
  // Jet 4 only, and only when the definition lists them.
  std::vector<LongValueMapsDef> long_value_maps;
};

// Reads the definition starting at page; DaoException when it is damaged.
TableDefinition ReadTableDefinition(const PageSource& pages, std::uint32_t page);

// Reads a name stored in a table definition or the catalog (Jet 3: 8-bit,
// Jet 4: UCS-2) as code page 1252.
std::string DecodeName(Bytes stored, const format::Layout& layout);

}  // namespace kvdao::jet::internal
