#pragma once

// RowDecoder: splits a stored row into its fields. A row holds a column
// count, the fixed-length columns, the variable-length columns, a table of
// variable-column offsets (stored backwards from the end; Jet 3 uses 1-byte
// offsets with a jump table for rows over 255 bytes), the number of variable
// columns and a null mask with one bit per column number (1 = present; for
// Boolean columns the bit is the value). Rows written before a column was
// added have fewer columns; such columns read as null.

#include <cstdint>
#include <vector>

#include "bytes.h"
#include "table_definition.h"

namespace kvdao::jet::internal {

struct Cell {
  bool null = true;
  bool boolean = false;     // Boolean columns: the value
  std::uint32_t offset = 0;  // position in the row
  std::uint32_t length = 0;
};

class RowDecoder {
 public:
  RowDecoder(const TableDefinition& table, const format::Layout& layout);

  // Decodes the fields of one row into cells() (same order as the table's
  // columns); DaoException when the row's offsets do not fit the row.
  void Decode(Bytes row);
  const std::vector<Cell>& cells() const noexcept { return cells_; }
  // Positions of the cells of the last row that are not null (Booleans
  // included, in no particular order): wide tables are mostly null, and
  // readers of whole rows visit only these.
  const std::vector<std::uint32_t>& present() const noexcept { return present_; }

 private:
  // Where one column lives, worked out once per table.
  struct ColumnPlan {
    std::uint32_t number;  // null-mask bit
    std::uint32_t start;   // fixed columns: offset in the row
    std::uint32_t length;  // fixed columns: bytes
    std::uint32_t var_index;
    enum Kind : std::uint8_t { kBoolean, kFixed, kVariable } kind;
  };

  void ReadJet3VarOffsets(Bytes row, std::uint32_t null_size);

  const format::Layout& layout_;
  bool has_var_columns_ = false;
  std::vector<ColumnPlan> plan_;
  std::vector<Cell> cells_;
  std::vector<std::uint32_t> present_;
  std::vector<std::int32_t> index_of_number_;  // column position by column number, -1 for none
  std::vector<std::uint32_t> booleans_;         // positions of Boolean columns
  std::vector<std::uint32_t> var_offsets_;  // Jet 3: var column i runs [i, i+1)
};

// Bytes a fixed-length column of this type occupies.
std::uint32_t FixedSize(const ColumnDef& column) noexcept;

}  // namespace kvdao::jet::internal
