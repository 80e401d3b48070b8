#include "record_appender.h"

#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/text.h"
#include "value_decoder.h"

namespace kvdao::jet::internal {

TableDef DescribeLayout(const TableLayout& spec) {
  TableDef def;
  def.name = spec.name;
  def.system = spec.system;
  for (std::size_t i = 0; i < spec.columns.size(); ++i) {
    const ColumnLayout& column = spec.columns[i];
    FieldInfo field;
    field.name = column.name;
    field.type = DaoType(column.type);
    field.size = column.type == format::kText ? column.length / 2 : column.length;
    field.attributes = (column.fixed() ? dbFixedField : dbVariableField) | dbUpdatableField;
    field.ordinal_position = static_cast<int>(i);
    field.required = column.required;
    field.allow_zero_length = column.allow_zero_length;
    def.fields.push_back(std::move(field));
  }
  for (const LogicalIndexLayout& logical : spec.indexes) {
    const RealIndexLayout& real = spec.real_indexes[logical.real];
    IndexInfo index;
    index.name = logical.name;
    for (const RealIndexLayout::Key& key : real.keys) {
      for (const ColumnLayout& column : spec.columns) {
        if (column.number == key.column_number) index.fields.push_back({column.name, !key.ascending});
      }
    }
    index.primary = logical.type == format::kIndexTypePrimary;
    index.foreign = logical.type == format::kIndexTypeForeign;
    index.unique = (real.flags & format::kIndexUnique) != 0;
    index.ignore_nulls = (real.flags & format::kIndexIgnoreNulls) != 0;
    index.required = (real.flags & format::kIndexRequired) != 0;
    def.indexes.push_back(std::move(index));
  }
  return def;
}

RecordAppender::RecordAppender(std::shared_ptr<DatabaseWriter> writer, TableWriter& table)
    : writer_(std::move(writer)), table_(table), def_(DescribeLayout(table.spec())) {}

TableWriter& RecordAppender::table() {
  if (writer_->closed()) throw DaoException("Object invalid or no longer set: the database is closed.");
  return table_;
}

void RecordAppender::SetCurrentIndex(std::string_view name) {
  for (const IndexInfo& index : def_.indexes) {
    if (platform::CompareNoCase1252(index.name, name) == 0) {
      index_ = index.name;
      return;
    }
  }
  throw DaoException("'" + std::string(name) + "' isn't an index in this table.");
}

}  // namespace kvdao::jet::internal
