#include "record_cursor.h"

#include <algorithm>

#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/text.h"

namespace kvdao::jet::internal {
namespace {

// A sort key: nulls first, then numbers, then texts (case-insensitive).
struct SortKey {
  int rank = 0;  // 0 null, 1 number, 2 text or bytes
  double number = 0.0;
  std::string text;
};

SortKey KeyOf(const FieldValue& value) {
  SortKey key;
  if (value.null) return key;
  switch (value.type) {
    case dbText: case dbMemo: case dbGUID: case dbDecimal:
      key.rank = 2;
      key.text = value.type == dbDecimal ? DecimalToString(value.decimal) : std::string(value.text);
      if (value.type == dbGUID) key.text = GuidToString(value.bytes);
      if (value.type == dbDecimal) {
        key.rank = 1;
        key.number = std::strtod(key.text.c_str(), nullptr);
      }
      return key;
    case dbBinary: case dbLongBinary:
      key.rank = 2;
      key.text.assign(value.bytes.begin(), value.bytes.end());
      return key;
    case dbSingle: key.rank = 1; key.number = value.single; return key;
    case dbDouble: case dbDate: key.rank = 1; key.number = value.real; return key;
    case dbCurrency: key.rank = 1; key.number = static_cast<double>(value.integer) / 10000.0; return key;
    default: key.rank = 1; key.number = static_cast<double>(value.integer); return key;
  }
}

bool KeyLess(const SortKey& a, const SortKey& b) {
  if (a.rank != b.rank) return a.rank < b.rank;
  if (a.rank == 1) return a.number < b.number;
  if (a.rank == 2) return platform::CompareNoCase1252(a.text, b.text) < 0;
  return false;
}

}  // namespace

RecordCursor::RecordCursor(std::shared_ptr<DatabaseFile> file, std::shared_ptr<const OpenTable> table,
                           std::optional<SortOrder> order)
    : file_(std::move(file)),
      table_(std::move(table)),
      scanner_(file_->pages(), table_->definition),
      decoder_(table_->definition, file_->pages().layout()),
      values_(table_->definition.columns.size()),
      decoded_(table_->definition.columns.size(), 0),
      buffers_(table_->definition.columns.size()) {
  for (std::size_t i = 0; i < values_.size(); ++i) {
    values_[i].type = DaoType(table_->definition.columns[i].type);
    values_[i].null = true;
  }
  is_touched_.assign(values_.size(), false);
  if (order) Sort(*order);
  MoveNext();
}

void RecordCursor::Sort(const SortOrder& order) {
  std::vector<std::pair<SortKey, RowId>> keyed;
  Bytes row;
  RowId id;
  while (scanner_.Next(row, id)) {
    Position(row);
    keyed.emplace_back(KeyOf(Value(order.field)), id);
  }
  std::stable_sort(keyed.begin(), keyed.end(), [&](const auto& a, const auto& b) {
    return order.descending ? KeyLess(b.first, a.first) : KeyLess(a.first, b.first);
  });
  order_.reserve(keyed.size());
  for (const auto& entry : keyed) order_.push_back(entry.second);
  sorted_ = true;
  next_ = 0;
}

void RecordCursor::Position(Bytes row) {
  row_ = row;
  decoder_.Decode(row);
  ++stamp_;  // nothing of this row decoded yet
}

void RecordCursor::MoveNext() {
  if (sorted_) {
    if (next_ >= order_.size()) {
      eof_ = true;
      return;
    }
    Position(TableScanner::ReadRow(file_->pages(), table_->definition, order_[next_++]));
    eof_ = false;
    return;
  }
  Bytes row;
  RowId id;
  if (scanner_.Next(row, id)) {
    Position(row);
    eof_ = false;
  } else {
    eof_ = true;
  }
}

void RecordCursor::MoveLast() {
  if (sorted_) {
    if (order_.empty()) return;
    next_ = order_.size() - 1;
    MoveNext();
    return;
  }
  if (eof_) return;
  Bytes row = row_;
  Bytes next;
  RowId id;
  while (scanner_.Next(next, id)) row = next;
  Position(row);
}

long RecordCursor::RecordCount() const noexcept {
  return sorted_ ? static_cast<long>(order_.size()) : table_->def.record_count;
}

const FieldValue& RecordCursor::Value(int field) {
  FieldValue& value = values_[static_cast<std::size_t>(field)];
  if (decoded_[static_cast<std::size_t>(field)] != stamp_) {
    decoded_[static_cast<std::size_t>(field)] = stamp_;
    DecodeValue(file_->pages(), table_->definition.columns[static_cast<std::size_t>(field)],
                decoder_.cells()[static_cast<std::size_t>(field)], row_, encoding_, value,
                buffers_[static_cast<std::size_t>(field)]);
    if (!value.null) Touch(static_cast<std::uint32_t>(field));
  }
  return value;
}

std::span<const FieldValue> RecordCursor::AllValues() {
  if (all_decoded_ == stamp_) return values_;
  for (std::uint32_t i : touched_) {
    if (decoded_[i] != stamp_) values_[i].null = true;
  }
  const auto& columns = table_->definition.columns;
  const auto& cells = decoder_.cells();
  for (std::uint32_t i : decoder_.present()) {
    if (decoded_[i] != stamp_) {
      decoded_[i] = stamp_;
      DecodeValue(file_->pages(), columns[i], cells[i], row_, encoding_, values_[i], buffers_[i]);
    }
    Touch(i);
  }
  all_decoded_ = stamp_;
  return values_;
}

void RecordCursor::Touch(std::uint32_t field) {
  if (is_touched_[field]) return;
  is_touched_[field] = true;
  touched_.push_back(field);
}

Variant RecordCursor::VariantValue(int field) {
  if (encoding_ == TextEncoding::kCp1252) return ToVariant(Value(field));
  auto index = static_cast<std::size_t>(field);
  DecodeValue(file_->pages(), table_->definition.columns[index], decoder_.cells()[index], row_,
              TextEncoding::kCp1252, scratch_value_, scratch_buffers_);
  return ToVariant(scratch_value_);
}

}  // namespace kvdao::jet::internal
