#pragma once

// kvdao::jet::FieldInfo: the description of one field (column) of a table,
// as DAO's field object presents it.

#include <string>

#include "kvdao/platform/dao_types.h"

namespace kvdao::jet {

// DAO field attribute bits.
enum FieldAttributeEnum : long {
  dbFixedField = 0x1,
  dbVariableField = 0x2,
  dbAutoIncrField = 0x10,
  dbUpdatableField = 0x20,
  dbSystemField = 0x2000,
  dbHyperlinkField = 0x8000,
};

struct FieldInfo {
  std::string name;     // code page 1252
  int type = 0;         // DAO type number (kvdao::DataTypeEnum)
  long size = 0;        // bytes for fixed types, characters for Text, 0 for Memo/OLE
  long attributes = 0;  // FieldAttributeEnum bits
  int ordinal_position = 0;  // 0-based position in the table
  bool required = false;
  bool allow_zero_length = false;
  int precision = 0;  // Decimal only
  int scale = 0;      // Decimal only
  // DAO's collating order of the field; -1 (or 0) takes the database's
  // (General). Only General is written.
  long collating_order = -1;
};

// The DAO name of a type number ("Text", "Double", ...); "Unknown" otherwise.
const char* DaoTypeName(int type) noexcept;

}  // namespace kvdao::jet
