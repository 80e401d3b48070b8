#include "tdef_writer.h"

#include <algorithm>
#include <cstring>

#include "byte_writer.h"
#include "bytes.h"
#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {

std::vector<std::uint8_t> EncodeTableDefinition(const TableLayout& spec, const TablePointers& pointers) {
  const format::Layout& layout = format::kJet4;
  ByteBuffer out;
  out.Zeros(static_cast<std::size_t>(layout.tdef_header_size));
  std::uint8_t* h = out.bytes().data();
  h[0] = format::kPageTableDefinition;
  h[1] = 0x01;
  StoreU32(h + format::kTdefStampOffset, format::kJet4FormatStamp);
  StoreU32(h + layout.tdef_row_count_offset, pointers.row_count);
  h[format::kTdefAutoNumberFlagOffset] = 0x01;
  h[layout.tdef_table_type_offset] = spec.system ? format::kTableSystem : format::kTableUser;
  std::uint16_t column_count = static_cast<std::uint16_t>(spec.columns.size());
  std::uint16_t max_columns = 0;
  for (const ColumnLayout& column : spec.columns) max_columns = std::max<std::uint16_t>(max_columns, column.number + 1);
  StoreU16(h + layout.tdef_max_columns_offset, max_columns);
  StoreU16(h + layout.tdef_var_columns_offset, spec.VariableCount());
  StoreU16(h + layout.tdef_columns_offset, column_count);
  StoreU32(h + layout.tdef_logical_indexes_offset, static_cast<std::uint32_t>(spec.indexes.size()));
  StoreU32(h + layout.tdef_real_indexes_offset, static_cast<std::uint32_t>(spec.real_indexes.size()));
  StoreU32(h + layout.tdef_owned_pages_offset, pointers.owned_map);
  StoreU32(h + layout.tdef_free_pages_offset, pointers.free_map);

  for (std::size_t i = 0; i < spec.real_indexes.size(); ++i) {
    out.U32(0);
    out.U32(i < pointers.indexes.size() ? pointers.indexes[i].distinct_keys : 0);
    out.U32(0);
  }
  for (const ColumnLayout& column : spec.columns) {
    std::size_t at = out.size();
    out.Zeros(static_cast<std::size_t>(layout.column_entry_size));
    std::uint8_t* e = out.bytes().data() + at;
    e[layout.column_type_offset] = column.type;
    StoreU32(e + format::kColumnStampOffset, format::kJet4FormatStamp);
    StoreU16(e + layout.column_number_offset, column.number);
    StoreU16(e + layout.column_var_index_offset, column.var_index);
    StoreU16(e + format::kColumnIndexOffset, column.position);
    StoreU16(e + format::kColumnSortOrderOffset, static_cast<std::uint16_t>(format::kSortOrderGeneral));
    e[layout.column_flags_offset] = column.flags;
    e[layout.column_ext_flags_offset] = column.ext_flags;
    StoreU16(e + layout.column_fixed_offset_offset, column.fixed_offset);
    StoreU16(e + layout.column_length_offset, column.length);
  }
  for (const ColumnLayout& column : spec.columns) out.Name(column.name);
  for (std::size_t i = 0; i < spec.real_indexes.size(); ++i) {
    const RealIndexLayout& real = spec.real_indexes[i];
    std::size_t at = out.size();
    out.Zeros(static_cast<std::size_t>(layout.real_index_entry_size));
    std::uint8_t* e = out.bytes().data() + at;
    StoreU32(e, format::kJet4IndexStamp);
    for (int slot = 0; slot < format::kIndexMaxColumns; ++slot) {
      std::uint8_t* key = e + format::kRealIndexColumnsOffset + 3 * slot;
      if (static_cast<std::size_t>(slot) < real.keys.size()) {
        StoreU16(key, real.keys[slot].column_number);
        key[2] = real.keys[slot].ascending ? format::kIndexAscending : 0x00;
      } else {
        StoreU16(key, 0xFFFF);
      }
    }
    const TablePointers::Index none;
    const TablePointers::Index& where = i < pointers.indexes.size() ? pointers.indexes[i] : none;
    StoreU32(e + format::kRealIndexUsageMapOffset, where.usage_map);
    StoreU32(e + format::kRealIndexFirstPageOffset, where.root_page);
    e[format::kRealIndexFlagsOffset] = real.flags;
  }
  for (const LogicalIndexLayout& index : spec.indexes) {
    std::size_t at = out.size();
    out.Zeros(static_cast<std::size_t>(layout.logical_index_entry_size));
    std::uint8_t* e = out.bytes().data() + at;
    StoreU32(e, format::kJet4FormatStamp);
    StoreU32(e + format::kLogicalIndexNumberOffset, index.number);
    StoreU32(e + format::kLogicalIndexRealOffset, index.real);
    StoreU32(e + format::kLogicalIndexRelatedOffset, 0xFFFFFFFFu);
    e[format::kLogicalIndexCascadeOffset] = 0x04;
    e[format::kLogicalIndexCascadeOffset + 1] = 0x04;
    e[format::kLogicalIndexTypeOffset] = index.type;
  }
  for (const LogicalIndexLayout& index : spec.indexes) out.Name(index.name);
  std::size_t long_value = 0;
  for (const ColumnLayout& column : spec.columns) {
    if (!column.long_value() || long_value >= pointers.long_values.size()) continue;
    out.U16(column.number);
    out.U32(pointers.long_values[long_value].owned_map);
    out.U32(pointers.long_values[long_value].free_map);
    ++long_value;
  }
  out.U16(format::kTdefListEnd);
  StoreU32(out.bytes().data() + format::kTdefLengthOffset, static_cast<std::uint32_t>(out.size()));
  return std::move(out.bytes());
}

void WriteTableDefinition(PageWriter& pages, std::uint32_t first_page, const std::vector<std::uint8_t>& bytes) {
  const std::uint32_t page_size = pages.PageSize();
  const format::Layout& layout = format::kJet4;
  const std::size_t header = static_cast<std::size_t>(format::kTdefPageHeaderSize);
  std::size_t done = 0;
  std::uint32_t page = first_page;
  bool first = true;
  for (;;) {
    std::span<std::uint8_t> bytes_of_page = pages.MutablePage(page);
    std::uint32_t old_next = LoadU32(bytes_of_page.data() + layout.tdef_next_page_offset);
    std::size_t room = first ? page_size : page_size - header;
    std::size_t chunk = std::min(room, bytes.size() - done);
    std::fill(bytes_of_page.begin(), bytes_of_page.end(), 0);
    if (first) {
      std::memcpy(bytes_of_page.data(), bytes.data(), chunk);
    } else {
      bytes_of_page[0] = format::kPageTableDefinition;
      bytes_of_page[1] = 0x01;
      std::memcpy(bytes_of_page.data() + header, bytes.data() + done, chunk);
    }
    std::size_t used = first ? chunk : chunk + header;
    StoreU16(bytes_of_page.data() + format::kTdefFreeSpaceOffset,
             static_cast<std::uint16_t>(used + header >= page_size ? 0 : page_size - used - header));
    done += chunk;
    first = false;
    if (done == bytes.size()) {
      // Give back continuation pages the definition no longer needs.
      while (old_next != 0) {
        std::uint32_t next = LoadU32(pages.Page(old_next).data() + layout.tdef_next_page_offset);
        pages.FreePage(first_page, old_next);
        old_next = next;
      }
      return;
    }
    std::uint32_t next = old_next != 0 ? old_next : pages.AllocatePage(first_page);
    StoreU32(pages.MutablePage(page).data() + layout.tdef_next_page_offset, next);
    page = next;
  }
}

void PatchTableDefinition(PageWriter& pages, std::uint32_t first_page, const std::vector<TdefPatch>& patches) {
  const std::size_t page_size = pages.PageSize();
  const std::size_t header = static_cast<std::size_t>(format::kJet4.tdef_continuation_header);
  std::vector<std::uint32_t> chain{first_page};
  // The page holding byte `offset` of the definition, and where in it.
  auto locate = [&](std::size_t offset, std::size_t& in_page) {
    std::size_t k = 0;
    in_page = offset;
    if (offset >= page_size) {
      k = (offset - page_size) / (page_size - header) + 1;
      in_page = header + (offset - page_size) % (page_size - header);
    }
    while (chain.size() <= k) {
      std::uint32_t next = LoadU32(pages.Page(chain.back()).data() + format::kJet4.tdef_next_page_offset);
      if (next == 0 || chain.size() > 0xFFFF) {
        throw DaoException("The database file is damaged: a table definition is shorter than it says.");
      }
      chain.push_back(next);
    }
    return chain[k];
  };
  for (const TdefPatch& patch : patches) {
    for (std::size_t i = 0; i < 4; ++i) {
      std::size_t in_page = 0;
      std::uint32_t page = locate(patch.offset + i, in_page);
      pages.MutablePage(page)[in_page] = static_cast<std::uint8_t>(patch.value >> (8 * i));
    }
  }
}

}  // namespace kvdao::jet::internal
