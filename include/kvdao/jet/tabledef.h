#pragma once

// kvdao::jet::TableDef: the definition of one table of an open database:
// its fields in table order and its indexes.

#include <string>
#include <string_view>
#include <vector>

#include "kvdao/jet/field.h"
#include "kvdao/jet/index.h"

namespace kvdao::jet {

// Also the description of a table to create (Database::CreateTableDef and
// Database::Append): name, attributes, fields and indexes as DAO takes them.
struct TableDef {
  std::string name;
  long attributes = 0;           // DAO table attributes (accepted; Jet keeps none of them)
  bool system = false;           // a system table (MSys...)
  long record_count = 0;         // as the table definition records it
  std::vector<FieldInfo> fields;  // ordinal order
  std::vector<IndexInfo> indexes;

  // The field with this name (case-insensitive), or null.
  const FieldInfo* FindField(std::string_view field_name) const noexcept;

  // DAO's CreateField and CreateIndex: add a field or index description.
  // Nothing is checked until the definition is appended to a database.
  void CreateField(const FieldInfo& field) { fields.push_back(field); }
  void CreateIndex(const IndexInfo& index) { indexes.push_back(index); }
};

}  // namespace kvdao::jet
