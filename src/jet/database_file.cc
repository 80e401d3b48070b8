#include "database_file.h"

#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/text.h"
#include "properties.h"
#include "row_decoder.h"
#include "value_decoder.h"

namespace kvdao::jet::internal {
namespace {

long FieldSize(const ColumnDef& column, const format::Layout& layout) {
  switch (column.type) {
    case format::kBoolean: return 1;
    case format::kText:
      return layout.version == format::Version::kJet4 ? column.length / 2 : column.length;
    case format::kMemo: case format::kOle: return 0;
    default: return static_cast<long>(FixedSize(column));
  }
}

long FieldAttributes(const ColumnDef& column) {
  long attributes = column.fixed() ? dbFixedField : dbVariableField;
  if ((column.flags & format::kColumnAutoLong) != 0) attributes |= dbAutoIncrField;
  if ((column.flags & format::kColumnUpdatable) != 0) attributes |= dbUpdatableField;
  if ((column.flags & format::kColumnHyperlink) != 0) attributes |= dbHyperlinkField;
  return attributes;
}

TableDef Describe(const CatalogEntry& entry, const TableDefinition& definition, const format::Layout& layout) {
  TableDef def;
  def.name = entry.name;
  def.system = entry.IsSystem();
  def.record_count = static_cast<long>(definition.row_count);
  PropertyTable properties = ReadColumnProperties(entry.properties, layout);
  for (std::size_t i = 0; i < definition.columns.size(); ++i) {
    const ColumnDef& column = definition.columns[i];
    FieldInfo field;
    field.name = column.name;
    field.type = DaoType(column.type);
    field.size = FieldSize(column, layout);
    field.attributes = FieldAttributes(column);
    field.ordinal_position = static_cast<int>(i);
    if (column.type == format::kNumeric) {
      field.precision = column.precision;
      field.scale = column.scale;
    }
    auto found = properties.find(platform::ToLower1252(column.name));
    if (found != properties.end()) {
      field.required = found->second.required;
      field.allow_zero_length = found->second.allow_zero_length;
    }
    def.fields.push_back(std::move(field));
  }
  def.indexes = definition.indexes;
  return def;
}

}  // namespace

DatabaseFile::DatabaseFile(const std::string& path) : pages_(path) { Load(); }

DatabaseFile::DatabaseFile(Bytes bytes) : pages_(bytes) { Load(); }

void DatabaseFile::Load() {
  header_ = ReadHeader(pages_.file());
  pages_.SetLayout(*header_.layout);
  catalog_ = ReadCatalog(pages_);
}

std::shared_ptr<const OpenTable> DatabaseFile::Table(std::string_view name) {
  const CatalogEntry* entry = nullptr;
  for (const CatalogEntry& candidate : catalog_) {
    if (candidate.IsTable() && platform::CompareNoCase1252(candidate.name, name) == 0) {
      entry = &candidate;
      break;
    }
  }
  if (entry == nullptr) {
    throw DaoException("The Microsoft Jet database engine cannot find the input table or query '" +
                       std::string(name) + "'. Make sure it exists and that its name is spelled correctly.");
  }
  std::lock_guard lock(mutex_);
  auto& slot = tables_[entry->TableDefinitionPage()];
  if (!slot) {
    auto table = std::make_shared<OpenTable>();
    table->definition = ReadTableDefinition(pages_, entry->TableDefinitionPage());
    table->def = Describe(*entry, table->definition, pages_.layout());
    slot = std::move(table);
  }
  return slot;
}

}  // namespace kvdao::jet::internal
