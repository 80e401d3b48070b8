#include "row_decoder.h"

#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {
namespace {

[[noreturn]] void ThrowBadRow() {
  throw DaoException("The database file is damaged: a row's field offsets run past the row.");
}

}  // namespace

std::uint32_t FixedSize(const ColumnDef& column) noexcept {
  if (column.type == format::kBoolean) return 0;
  std::uint32_t size = format::FixedValueSize(column.type);
  return size != 0 ? size : column.length;
}

RowDecoder::RowDecoder(const TableDefinition& table, const format::Layout& layout)
    : layout_(layout), cells_(table.columns.size()) {
  const auto count_size = static_cast<std::uint32_t>(layout.row_column_count_size);
  for (const ColumnDef& column : table.columns) {
    ColumnPlan plan{column.number, count_size + column.fixed_offset, FixedSize(column), column.var_index,
                    ColumnPlan::kFixed};
    if (column.type == format::kBoolean) {
      plan.kind = ColumnPlan::kBoolean;
    } else if (!column.fixed()) {
      plan.kind = ColumnPlan::kVariable;
      has_var_columns_ = true;
    }
    plan_.push_back(plan);
  }
  for (std::size_t i = 0; i < plan_.size(); ++i) {
    std::uint32_t number = plan_[i].number;
    if (number >= index_of_number_.size()) index_of_number_.resize(number + 1, -1);
    if (plan_[i].kind == ColumnPlan::kBoolean) {
      booleans_.push_back(static_cast<std::uint32_t>(i));
    } else if (index_of_number_[number] < 0) {
      index_of_number_[number] = static_cast<std::int32_t>(i);
    }
  }
}

void RowDecoder::ReadJet3VarOffsets(Bytes row, std::uint32_t null_size) {
  // 1-byte offsets; each jump-table entry names the first variable column
  // whose offset needs another 256 added.
  const std::uint32_t size = static_cast<std::uint32_t>(row.size());
  var_offsets_.clear();
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
  const std::uint8_t* data = row.data();
  const std::uint32_t size = static_cast<std::uint32_t>(row.size());
  const bool jet4 = layout_.version == format::Version::kJet4;
  const std::uint32_t count_size = jet4 ? 2 : 1;
  if (size < count_size) ThrowBadRow();
  const std::uint32_t column_count = jet4 ? LoadU16(data) : data[0];
  const std::uint32_t null_size = (column_count + 7) / 8;
  if (null_size + count_size > size) ThrowBadRow();
  const std::uint8_t* null_mask = data + size - null_size;

  // Variable columns: Jet 4 offsets are read in place (entry i sits 2 * (i + 1)
  // bytes before the 2-byte count); Jet 3 offsets are unpacked first.
  std::uint32_t var_count = 0;
  const std::uint8_t* jet4_table = nullptr;  // the 2-byte variable column count
  if (has_var_columns_) {
    if (jet4) {
      if (size < null_size + 4) ThrowBadRow();
      std::uint32_t count_at = size - null_size - 2;
      var_count = LoadU16(data + count_at);
      if (2u * (var_count + 1) + 2 > count_at) ThrowBadRow();
      jet4_table = data + count_at;
    } else {
      ReadJet3VarOffsets(row, null_size);
      var_count = static_cast<std::uint32_t>(var_offsets_.size() - 1);
    }
  }

  // Only the cells the last row filled need clearing; then the null mask's
  // set bits name the cells this row fills.
  for (std::uint32_t i : present_) cells_[i].null = true;
  present_.clear();
  for (std::uint32_t i : booleans_) {
    const std::uint32_t number = plan_[i].number;
    cells_[i].null = false;
    cells_[i].boolean = number < column_count && (null_mask[number >> 3] & (1u << (number & 7))) != 0;
    present_.push_back(i);
  }
  const auto numbers = static_cast<std::uint32_t>(index_of_number_.size());
  for (std::uint32_t byte = 0; byte < null_size; ++byte) {
    unsigned bits = null_mask[byte];
    while (bits != 0) {
      const std::uint32_t number = byte * 8 + static_cast<std::uint32_t>(__builtin_ctz(bits));
      bits &= bits - 1;
      if (number >= column_count || number >= numbers) break;
      const std::int32_t index = index_of_number_[number];
      if (index < 0) continue;
      const ColumnPlan& plan = plan_[static_cast<std::size_t>(index)];
      Cell& cell = cells_[static_cast<std::size_t>(index)];
      if (plan.kind == ColumnPlan::kFixed) {
        if (plan.start > size || plan.length > size - plan.start) ThrowBadRow();
        cell.offset = plan.start;
        cell.length = plan.length;
      } else {
        if (plan.var_index >= var_count) continue;  // added after this row was written
        std::uint32_t start, end;
        if (jet4) {
          start = LoadU16(jet4_table - 2 * (plan.var_index + 1));
          end = LoadU16(jet4_table - 2 * (plan.var_index + 2));
        } else {
          start = var_offsets_[plan.var_index];
          end = var_offsets_[plan.var_index + 1];
        }
        if (start > end || end > size) ThrowBadRow();
        cell.offset = start;
        cell.length = end - start;
      }
      cell.null = false;
      present_.push_back(static_cast<std::uint32_t>(index));
    }
  }
}

}  // namespace kvdao::jet::internal
