#include "row_decoder.h"

#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {
namespace {

[[noreturn]] void ThrowBadRow() {
  throw DaoException("The database file is damaged: a row's field offsets run past the row.");
}

}  // namespace

std::uint32_t FixedSize(const ColumnDef& column) noexcept {
  switch (column.type) {
    case format::kBoolean: return 0;
    case format::kByte: return 1;
    case format::kInteger: return 2;
    case format::kLong: case format::kFloat: return 4;
    case format::kMoney: case format::kDouble: case format::kDateTime: return 8;
    case format::kGuid: return 16;
    case format::kNumeric: return 17;
    default: return column.length;
  }
}

RowDecoder::RowDecoder(const TableDefinition& table, const format::Layout& layout)
    : table_(table), layout_(layout), cells_(table.columns.size()) {
  for (const ColumnDef& column : table.columns) {
    if (!column.fixed()) has_var_columns_ = true;
  }
}

void RowDecoder::ReadVarOffsets(Bytes row, std::uint32_t null_size) {
  const std::uint32_t size = static_cast<std::uint32_t>(row.size());
  var_offsets_.clear();
  if (layout_.version == format::Version::kJet4) {
    if (size < null_size + 4) ThrowBadRow();
    std::uint32_t count_at = size - null_size - 2;
    std::uint32_t count = LoadU16(row.data() + count_at);
    if (2u * (count + 1) + 2 > count_at) ThrowBadRow();
    for (std::uint32_t i = 0; i <= count; ++i) {
      var_offsets_.push_back(LoadU16(row.data() + count_at - 2 * (i + 1)));
    }
    return;
  }
  // Jet 3: 1-byte offsets; each jump-table entry names the first variable
  // column whose offset needs another 256 added.
  if (size < null_size + 2) ThrowBadRow();
  std::uint32_t count_at = size - null_size - 1;
  std::uint32_t count = row[count_at];
  std::uint32_t jumps = (size - 1) / 256;
  if (jumps + count + 1 > count_at) ThrowBadRow();
  std::uint32_t table_end = count_at - jumps;  // one past the first offset entry
  // The last jump entry may be a filler when the offsets end before it is needed.
  if ((table_end - 1 - count) / 256 < jumps) --jumps;
  std::uint32_t used = 0;
  for (std::uint32_t i = 0; i <= count; ++i) {
    while (used < jumps && row[count_at - used - 1] == i) ++used;
    var_offsets_.push_back(row[table_end - 1 - i] + 256 * used);
  }
}

void RowDecoder::Decode(Bytes row) {
  const std::uint32_t size = static_cast<std::uint32_t>(row.size());
  const std::uint32_t count_size = static_cast<std::uint32_t>(layout_.row_column_count_size);
  if (size < count_size) ThrowBadRow();
  std::uint32_t column_count = count_size == 1 ? row[0] : LoadU16(row.data());
  std::uint32_t null_size = (column_count + 7) / 8;
  if (null_size + count_size > size) ThrowBadRow();
  const std::uint8_t* null_mask = row.data() + size - null_size;
  if (has_var_columns_) ReadVarOffsets(row, null_size);
  std::uint32_t var_count = var_offsets_.empty() ? 0 : static_cast<std::uint32_t>(var_offsets_.size() - 1);

  for (std::size_t i = 0; i < table_.columns.size(); ++i) {
    const ColumnDef& column = table_.columns[i];
    Cell& cell = cells_[i];
    std::uint32_t number = column.number;
    bool present = number < column_count && (null_mask[number / 8] & (1u << (number % 8))) != 0;
    if (column.type == format::kBoolean) {
      cell.null = false;
      cell.boolean = present;
      continue;
    }
    cell.null = !present;
    if (!present) continue;
    if (column.fixed()) {
      std::uint32_t start = count_size + column.fixed_offset;
      std::uint32_t length = FixedSize(column);
      if (start > size || length > size - start) ThrowBadRow();
      cell.offset = start;
      cell.length = length;
    } else {
      if (column.var_index >= var_count) {
        cell.null = true;
        continue;
      }
      std::uint32_t start = var_offsets_[column.var_index];
      std::uint32_t end = var_offsets_[column.var_index + 1u];
      if (start > end || end > size) ThrowBadRow();
      cell.offset = start;
      cell.length = end - start;
    }
  }
}

}  // namespace kvdao::jet::internal
