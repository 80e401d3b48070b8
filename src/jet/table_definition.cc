#include "table_definition.h"

#include <algorithm>
#include <unordered_set>

#include "kvdao/jet/dao_exception.h"
#include "text_codec.h"

namespace kvdao::jet::internal {
namespace {

// Upper bounds that keep a damaged definition from asking for absurd work.
constexpr std::uint32_t kMaxColumns = 4096;
constexpr std::uint32_t kMaxIndexes = 1024;

std::vector<std::uint8_t> ReadChain(const PageSource& pages, std::uint32_t first) {
  const format::Layout& layout = pages.layout();
  std::vector<std::uint8_t> bytes;
  std::unordered_set<std::uint32_t> seen;
  std::uint32_t page_number = first;
  bool is_first = true;
  while (page_number != 0 || is_first) {
    if (!seen.insert(page_number).second) {
      throw DaoException("The database file is damaged: the table definition at page " +
                         std::to_string(first) + " has a cycle in its page chain.");
    }
    Bytes page = pages.Page(page_number, format::kPageTableDefinition, "a table definition");
    std::size_t skip = is_first ? 0 : static_cast<std::size_t>(layout.tdef_continuation_header);
    bytes.insert(bytes.end(), page.begin() + static_cast<std::ptrdiff_t>(skip), page.end());
    page_number = LoadU32(page.data() + layout.tdef_next_page_offset);
    is_first = false;
  }
  return bytes;
}

}  // namespace

bool ColumnDef::fixed() const noexcept { return (flags & format::kColumnFixedLength) != 0; }

std::string DecodeName(Bytes stored, const format::Layout& layout) {
  std::string name;
  if (layout.version == format::Version::kJet3) {
    AppendJet3Text(stored, TextEncoding::kCp1252, name);
  } else {
    AppendJet4Text(stored, TextEncoding::kCp1252, name);
  }
  return name;
}

TableDefinition ReadTableDefinition(const PageSource& pages, std::uint32_t page) {
  const format::Layout& layout = pages.layout();
  std::vector<std::uint8_t> storage = ReadChain(pages, page);
  ByteReader tdef(storage, "a table definition");

  TableDefinition table;
  table.page = page;
  table.row_count = tdef.U32(layout.tdef_row_count_offset);
  table.table_type = tdef.U8(layout.tdef_table_type_offset);
  table.max_columns = tdef.U16(layout.tdef_max_columns_offset);
  std::uint32_t column_count = tdef.U16(layout.tdef_columns_offset);
  std::uint32_t logical_count = tdef.U32(layout.tdef_logical_indexes_offset);
  std::uint32_t real_count = tdef.U32(layout.tdef_real_indexes_offset);
  table.owned_pages = tdef.U32(layout.tdef_owned_pages_offset);
  table.free_space_pages = tdef.U32(layout.tdef_free_pages_offset);
  if (layout.version == format::Version::kJet4) table.last_autonumber = tdef.U32(format::kTdefAutoNumberOffset);
  if (column_count > kMaxColumns || logical_count > kMaxIndexes || real_count > kMaxIndexes) {
    throw DaoException("The database file is damaged: the table definition at page " +
                       std::to_string(page) + " claims too many columns or indexes.");
  }

  table.real_indexes.resize(real_count);
  for (std::uint32_t i = 0; i < real_count; ++i) {
    table.real_indexes[i].distinct_keys =
        tdef.U32(static_cast<std::size_t>(layout.tdef_header_size) + i * layout.tdef_real_index_count_size + 4);
  }
  std::size_t pos = static_cast<std::size_t>(layout.tdef_header_size) +
                    real_count * static_cast<std::size_t>(layout.tdef_real_index_count_size);
  table.columns.resize(column_count);
  for (ColumnDef& column : table.columns) {
    tdef.Require(pos, layout.column_entry_size);
    column.type = tdef.U8(pos + layout.column_type_offset);
    column.number = tdef.U16(pos + layout.column_number_offset);
    column.var_index = tdef.U16(pos + layout.column_var_index_offset);
    column.precision = tdef.U8(pos + layout.column_precision_offset);
    column.scale = tdef.U8(pos + layout.column_scale_offset);
    column.flags = tdef.U8(pos + layout.column_flags_offset);
    if (layout.column_ext_flags_offset >= 0) column.ext_flags = tdef.U8(pos + layout.column_ext_flags_offset);
    column.fixed_offset = tdef.U16(pos + layout.column_fixed_offset_offset);
    column.length = tdef.U16(pos + layout.column_length_offset);
    pos += layout.column_entry_size;
  }
  // Names follow their entries: a length (one or two bytes) and the text.
  auto read_name = [&]() {
    std::size_t length = layout.name_length_size == 1 ? tdef.U8(pos) : tdef.U16(pos);
    pos += layout.name_length_size;
    std::string name = DecodeName(tdef.Slice(pos, length), layout);
    pos += length;
    return name;
  };
  for (ColumnDef& column : table.columns) column.name = read_name();
  std::stable_sort(table.columns.begin(), table.columns.end(),
                   [](const ColumnDef& a, const ColumnDef& b) { return a.number < b.number; });

  auto column_name = [&](std::uint16_t number) -> std::string {
    for (const ColumnDef& column : table.columns) {
      if (column.number == number) return column.name;
    }
    throw DaoException("The database file is damaged: an index names column " + std::to_string(number) +
                       ", which the table does not have.");
  };

  std::vector<std::vector<IndexField>> real_fields(real_count);
  for (std::uint32_t r = 0; r < real_count; ++r) {
    RealIndexDef& index = table.real_indexes[r];
    tdef.Require(pos, layout.real_index_entry_size);
    index.entry_offset = pos;
    std::size_t at = pos + layout.real_index_skip;
    for (int i = 0; i < format::kIndexMaxColumns; ++i, at += 3) {
      std::uint16_t number = tdef.U16(at);
      if (number == 0xFFFF) continue;
      bool ascending = tdef.U8(at + 2) == 0x01;
      real_fields[r].push_back({column_name(number), !ascending});
      index.keys.push_back({number, ascending});
    }
    index.usage_map = tdef.U32(at);
    index.first_page = tdef.U32(at + 4);
    at += 8;
    if (layout.version == format::Version::kJet4) at += format::kJet4IndexFlagsSkip;
    index.flags = tdef.U8(at);
    pos += layout.real_index_entry_size;
  }
  table.indexes.resize(logical_count);
  table.logical_indexes.resize(logical_count);
  for (std::uint32_t l = 0; l < logical_count; ++l) {
    IndexInfo& index = table.indexes[l];
    tdef.Require(pos, layout.logical_index_entry_size);
    std::size_t at = pos + layout.logical_index_skip;
    std::uint32_t real_number = tdef.U32(at + 4);
    std::uint8_t type = tdef.U8(at + 19);
    if (real_number >= real_count) {
      throw DaoException("The database file is damaged: an index refers to a missing index entry.");
    }
    table.logical_indexes[l] = {tdef.U32(at), real_number, type};
    index.fields = real_fields[real_number];
    std::uint8_t flags = table.real_indexes[real_number].flags;
    index.primary = type == format::kIndexTypePrimary;
    index.foreign = type == format::kIndexTypeForeign;
    index.unique = index.primary || (flags & format::kIndexUnique) != 0;
    index.ignore_nulls = (flags & format::kIndexIgnoreNulls) != 0;
    index.required = index.primary || (flags & format::kIndexRequired) != 0;
    pos += layout.logical_index_entry_size;
  }
  for (IndexInfo& index : table.indexes) index.name = read_name();
  // Jet 4 then lists the usage maps of each long-value column; a definition
  // that ends early simply has none.
  // Every entry must name a long-value column, so bytes past the end of the
  // definition are never taken for one.
  if (layout.version == format::Version::kJet4) {
    const std::size_t end = std::min<std::size_t>(tdef.size(), tdef.U32(format::kTdefLengthOffset));
    while (pos + 10 <= end) {
      std::uint16_t number = tdef.U16(pos);
      auto column = std::find_if(table.columns.begin(), table.columns.end(),
                                 [&](const ColumnDef& c) { return c.number == number; });
      if (column == table.columns.end() || (column->type != format::kMemo && column->type != format::kOle)) break;
      table.long_value_maps.push_back({number, tdef.U32(pos + 2), tdef.U32(pos + 6)});
      pos += 10;
    }
  }
  return table;
}

}  // namespace kvdao::jet::internal
