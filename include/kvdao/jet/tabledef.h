#pragma once

// kvdao::jet::TableDef: the definition of one table of an open database:
// its fields in table order and its indexes.

#include <string>
#include <string_view>
#include <vector>

#include "kvdao/jet/field.h"
#include "kvdao/jet/index.h"

namespace kvdao::jet {

struct TableDef {
  std::string name;
  bool system = false;           // a system table (MSys...)
  long record_count = 0;         // as the table definition records it
  std::vector<FieldInfo> fields;  // ordinal order
  std::vector<IndexInfo> indexes;

  // The field with this name (case-insensitive), or null.
  const FieldInfo* FindField(std::string_view field_name) const noexcept;
};

}  // namespace kvdao::jet
