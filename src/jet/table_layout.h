#pragma once

// TableLayout: a table as the writer lays it out in Jet 4 — every column with
// its number, place in the row and stored length, and the physical and
// logical indexes. Built from a DAO-shaped TableDef (checking it the way
// Jet would) or, for the system tables, from the engine's own layouts.

#include <cstdint>
#include <string>
#include <vector>

#include "format.h"
#include "kvdao/jet/tabledef.h"

namespace kvdao::jet::internal {

struct ColumnLayout {
  std::string name;  // code page 1252
  std::uint8_t type = 0;
  std::uint16_t number = 0;     // bit in the null mask; order in the row
  std::uint16_t position = 0;   // written into the column entry (0 in system tables)
  std::uint16_t var_index = 0;  // variable columns: entry in the offset table;
                                // fixed ones: variable columns numbered before it
  std::uint16_t fixed_offset = 0;
  std::uint16_t length = 0;  // stored bytes (Text: 2 per character)
  std::uint8_t flags = 0;
  std::uint8_t ext_flags = 0;
  bool required = false;
  bool allow_zero_length = false;

  bool fixed() const noexcept { return (flags & format::kColumnFixedLength) != 0; }
  bool long_value() const noexcept { return type == format::kMemo || type == format::kOle; }
  bool compressible() const noexcept { return (ext_flags & format::kColumnCompressedUnicode) != 0; }
};

struct RealIndexLayout {
  struct Key {
    std::uint16_t column_number;
    bool ascending;
  };
  std::vector<Key> keys;
  std::uint8_t flags = format::kIndexFlagsAlways;
};

struct LogicalIndexLayout {
  std::string name;
  std::uint32_t number = 0;
  std::uint32_t real = 0;
  std::uint8_t type = 0;  // 0, or primary / foreign
};

struct TableLayout {
  std::string name;
  bool system = false;
  std::vector<ColumnLayout> columns;  // in the order their entries are written
  std::vector<RealIndexLayout> real_indexes;
  std::vector<LogicalIndexLayout> indexes;  // in the order their entries are written

  std::uint16_t VariableCount() const noexcept;
  // Bytes of the fixed area of a row.
  std::uint16_t FixedSize() const noexcept;
  // Assigns var_index and fixed_offset from the column numbers.
  void Place();
};

// Checks a DAO table description the way Jet does and lays it out. Fields
// are numbered in ordinal-position order (ties keep the order given).
// DaoException naming the problem when Jet would refuse the definition.
TableLayout LayoutFromTableDef(const TableDef& def);

// Checks a table or field name: 1..64 characters, none of . ! ` [ ] or a
// control character, not starting with a space. DaoException otherwise.
void CheckObjectName(const std::string& name, const char* what);

// Bytes a fixed-length value of this type takes (0 for variable types and
// for Boolean, which lives in the null mask).
std::uint16_t FixedTypeSize(std::uint8_t type) noexcept;

}  // namespace kvdao::jet::internal
