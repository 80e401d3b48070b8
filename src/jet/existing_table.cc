#include "existing_table.h"

#include <algorithm>

#include "index_collector.h"
#include "index_reader.h"
#include "kvdao/jet/dao_exception.h"
#include "usage_map.h"

namespace kvdao::jet::internal {
namespace {

std::vector<std::uint32_t> MapPages(const PageSource& pages, std::uint32_t row_pointer) {
  if (row_pointer == 0) return {};
  return ReadUsageMap(pages, row_pointer);
}

TableLayout LayoutFromDefinition(const CatalogEntry& entry, const OpenTable& opened) {
  const TableDefinition& definition = opened.definition;
  TableLayout spec;
  spec.name = entry.name;
  spec.system = entry.IsSystem();
  std::vector<std::uint16_t> var_indexes;
  for (std::size_t i = 0; i < definition.columns.size(); ++i) {
    const ColumnDef& stored = definition.columns[i];
    ColumnLayout column;
    column.name = stored.name;
    column.type = stored.type;
    column.number = stored.number;
    column.position = static_cast<std::uint16_t>(i);
    column.var_index = stored.var_index;
    column.fixed_offset = stored.fixed_offset;
    column.length = stored.length;
    column.flags = stored.flags;
    column.ext_flags = stored.ext_flags;
    if (const FieldInfo* field = opened.def.FindField(stored.name)) {
      column.required = field->required;
      column.allow_zero_length = field->allow_zero_length || spec.system;
    }
    if (!column.fixed()) var_indexes.push_back(column.var_index);
    spec.columns.push_back(std::move(column));
  }
  // Rows are written with one offset per variable column, numbered from 0;
  // a table whose deleted columns left gaps there is laid out otherwise.
  std::sort(var_indexes.begin(), var_indexes.end());
  for (std::size_t i = 0; i < var_indexes.size(); ++i) {
    if (var_indexes[i] != i) {
      throw DaoException("Table '" + entry.name +
                         "' cannot be appended to: its variable-length columns are laid out with gaps left by "
                         "deleted columns (compact the database first).");
    }
  }
  for (const RealIndexDef& stored : definition.real_indexes) {
    RealIndexLayout real;
    for (const RealIndexDef::Key& key : stored.keys) real.keys.push_back({key.column_number, key.ascending});
    real.flags = stored.flags;
    spec.real_indexes.push_back(std::move(real));
  }
  for (std::size_t i = 0; i < definition.indexes.size(); ++i) {
    const LogicalIndexDef& stored = definition.logical_indexes[i];
    spec.indexes.push_back({definition.indexes[i].name, stored.number, stored.real, stored.type});
  }
  return spec;
}

}  // namespace

std::unique_ptr<ExistingTable> LoadExistingTable(DatabaseFile& file, const CatalogEntry& entry) {
  const PageSource& pages = file.pages();
  std::shared_ptr<const OpenTable> opened = file.Table(entry.name);
  auto table = std::make_unique<ExistingTable>();
  table->definition = opened->definition;
  table->spec = LayoutFromDefinition(entry, *opened);
  const TableDefinition& definition = table->definition;
  const TableLayout& spec = table->spec;
  TablePointers& pointers = table->pointers;

  pointers.row_count = definition.row_count;
  pointers.owned_map = definition.owned_pages;
  pointers.free_map = definition.free_space_pages;
  table->owned_pages = MapPages(pages, definition.owned_pages);
  table->free_space_pages = MapPages(pages, definition.free_space_pages);
  for (const ColumnLayout& column : spec.columns) {
    if (!column.long_value()) continue;
    TablePointers::LongValues maps;
    for (const LongValueMapsDef& stored : definition.long_value_maps) {
      if (stored.column_number == column.number) maps = {stored.owned_map, stored.free_map};
    }
    pointers.long_values.push_back(maps);
    table->long_values.push_back({MapPages(pages, maps.owned_map), MapPages(pages, maps.free_map)});
  }

  const IndexPageFetcher fetch = [&pages](std::uint32_t page) { return pages.Page(page); };
  for (std::size_t i = 0; i < definition.real_indexes.size(); ++i) {
    const RealIndexDef& stored = definition.real_indexes[i];
    pointers.indexes.push_back({stored.usage_map, stored.first_page, stored.distinct_keys});
    const bool encodable = std::all_of(stored.keys.begin(), stored.keys.end(), [&](const RealIndexDef::Key& key) {
      return std::any_of(spec.columns.begin(), spec.columns.end(), [&](const ColumnLayout& column) {
        return column.number == key.column_number && IndexKeyTypeEncodable(column.type);
      });
    });
    if (!encodable) {
      std::string name;
      for (const LogicalIndexLayout& logical : spec.indexes) {
        if (logical.real == i) name = logical.name;
      }
      throw DaoException("Table '" + entry.name + "' cannot be appended to: its index '" + name +
                         "' has keys of a type this engine cannot write (GUID, Binary, Memo or OLE).");
    }
    ExistingTable::Index index;
    index.entries = ReadIndexEntries(fetch, stored.first_page, &index.tree_pages);
    index.map_pages = MapPages(pages, stored.usage_map);
    table->indexes.push_back(std::move(index));
  }

  // The table's highest data page is where rows would go next.
  const std::uint32_t tdef_page = entry.TableDefinitionPage();
  for (auto page = table->owned_pages.rbegin(); page != table->owned_pages.rend(); ++page) {
    Bytes bytes = pages.Page(*page);
    if (bytes[0] == format::kPageData && LoadU32(bytes.data() + pages.layout().data_owner_offset) == tdef_page) {
      table->last_data_page = *page;
      break;
    }
  }
  return table;
}

}  // namespace kvdao::jet::internal
