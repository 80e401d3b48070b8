#include "catalog.h"

#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/text.h"
#include "row_decoder.h"
#include "table_scanner.h"
#include "value_decoder.h"

namespace kvdao::jet::internal {
namespace {

int ColumnIndex(const TableDefinition& table, const char* name, bool required) {
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    if (platform::CompareNoCase1252(table.columns[i].name, name) == 0) return static_cast<int>(i);
  }
  if (required) {
    throw DaoException(std::string("The database file is damaged: the system catalog has no column ") + name + ".");
  }
  return -1;
}

}  // namespace

bool CatalogEntry::IsTable() const noexcept { return type == format::kObjectTypeTable; }
bool CatalogEntry::IsSystem() const noexcept { return (flags & format::kObjectSystemFlags) != 0; }

std::vector<CatalogEntry> ReadCatalog(const PageSource& pages) {
  TableDefinition table = ReadTableDefinition(pages, format::kCatalogTableDefinitionPage);
  const int id_column = ColumnIndex(table, "Id", true);
  const int name_column = ColumnIndex(table, "Name", true);
  const int type_column = ColumnIndex(table, "Type", true);
  const int flags_column = ColumnIndex(table, "Flags", false);
  const int properties_column = ColumnIndex(table, "LvProp", false);

  TableScanner scanner(pages, table);
  RowDecoder decoder(table, pages.layout());
  FieldBuffers buffers;
  FieldValue value;
  auto read = [&](int column, Bytes row) -> const FieldValue& {
    DecodeValue(pages, table.columns[column], decoder.cells()[column], row, TextEncoding::kCp1252, value,
                buffers);
    return value;
  };

  std::vector<CatalogEntry> entries;
  Bytes row;
  RowId id;
  while (scanner.Next(row, id)) {
    decoder.Decode(row);
    CatalogEntry entry;
    entry.id = static_cast<std::uint32_t>(read(id_column, row).integer);
    entry.type = static_cast<int>(read(type_column, row).integer);
    const FieldValue& name = read(name_column, row);
    if (name.null) continue;
    entry.name.assign(name.text);
    if (flags_column >= 0) entry.flags = static_cast<std::uint32_t>(read(flags_column, row).integer);
    if (properties_column >= 0) {
      // Properties only describe; an unreadable blob leaves them out.
      try {
        const FieldValue& blob = read(properties_column, row);
        if (!blob.null) entry.properties.assign(blob.bytes.begin(), blob.bytes.end());
      } catch (const DaoException&) {
        entry.properties.clear();
      }
    }
    entries.push_back(std::move(entry));
  }
  return entries;
}

}  // namespace kvdao::jet::internal
