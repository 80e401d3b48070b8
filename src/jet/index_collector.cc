#include "index_collector.h"

#include <algorithm>

#include "bytes.h"
#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {
namespace {

// The staged value of a fixed-length column as the Variant type the key
// encoder takes.
Variant StagedValue(const ColumnSpec& column, const RowBuilder& row, std::size_t index) {
  if (column.type == format::kBoolean) {
    return Variant(static_cast<short>(row.IsNull(index) ? VARIANT_FALSE : VARIANT_TRUE), VT_BOOL);
  }
  if (row.IsNull(index)) return Variant();
  if (column.type == format::kText) return Variant("");  // never encoded, see encodable_
  const std::uint8_t* p = row.Bytes(index).data();
  switch (column.type) {
    case format::kByte: return Variant(static_cast<unsigned char>(p[0]));
    case format::kInteger: return Variant(static_cast<short>(LoadU16(p)));
    case format::kLong: return Variant(static_cast<long>(static_cast<std::int32_t>(LoadU32(p))));
    case format::kMoney: return Variant(Currency{static_cast<std::int64_t>(LoadU64(p))});
    case format::kFloat: return Variant(LoadF32(p));
    case format::kDouble: return Variant(LoadF64(p));
    case format::kDateTime: return Variant(OleDate{LoadF64(p)});
    default: return Variant();
  }
}

// True for a key whose every column is null: each column is its flag byte
// alone (0x00 ascending, 0xFF descending).
bool AllNullKey(const std::vector<std::uint8_t>& key, const RealIndexSpec& index) noexcept {
  if (key.size() != index.keys.size()) return false;
  for (std::size_t k = 0; k < key.size(); ++k) {
    if (key[k] != (index.keys[k].ascending ? 0x00 : 0xFF)) return false;
  }
  return true;
}

}  // namespace

bool IndexKeyTypeEncodable(std::uint8_t column_type) noexcept {
  switch (column_type) {
    case format::kBoolean: case format::kByte: case format::kInteger: case format::kLong: case format::kMoney:
    case format::kFloat: case format::kDouble: case format::kDateTime:
      return true;
    default:
      return false;
  }
}

IndexCollector::IndexCollector(const TableSpec& spec, std::size_t real_index)
    : spec_(spec), index_(spec.real_indexes[real_index]) {
  for (const LogicalIndexSpec& logical : spec.indexes) {
    if (logical.real == real_index) {
      index_name_ = logical.name;
      break;
    }
  }
  for (const RealIndexSpec::Key& key : index_.keys) {
    for (std::size_t i = 0; i < spec.columns.size(); ++i) {
      if (spec.columns[i].number != key.column_number) continue;
      key_columns_.push_back(i);
      key_types_.push_back({spec.columns[i].type, key.ascending});
      if (!IndexKeyTypeEncodable(spec.columns[i].type)) encodable_ = false;
    }
  }
  values_.resize(key_columns_.size());
}

void IndexCollector::Check(const RowBuilder& row) {
  bool any_null = false;
  key_null_ = true;
  for (std::size_t k = 0; k < key_columns_.size(); ++k) {
    const ColumnSpec& column = spec_.columns[key_columns_[k]];
    values_[k] = StagedValue(column, row, key_columns_[k]);
    bool null = values_[k].IsEmptyOrNull();
    any_null = any_null || null;
    key_null_ = key_null_ && null;
  }
  if (any_null && (index_.flags & format::kIndexRequired) != 0) {
    throw DaoException("Index or primary key cannot contain a Null value: index '" + index_name_ + "' of table '" +
                       spec_.name + "'.");
  }
  if (!encodable_) return;
  EncodeIndexKey(key_types_, values_, key_);
  if ((index_.flags & format::kIndexUnique) != 0 && !key_null_ &&
      seen_.count(std::string(key_.begin(), key_.end())) != 0) {
    throw DaoException(
        "The changes you requested to the table were not successful because they would create duplicate values in "
        "the index, primary key, or relationship: index '" + index_name_ + "' of table '" + spec_.name + "'.");
  }
}

void IndexCollector::Seed(std::vector<IndexEntry> existing) {
  entries_ = std::move(existing);
  if ((index_.flags & format::kIndexUnique) == 0) return;
  for (const IndexEntry& entry : entries_) {
    if (!AllNullKey(entry.key, index_)) seen_.emplace(entry.key.begin(), entry.key.end());
  }
}

void IndexCollector::Add(std::uint32_t row_pointer) {
  if (!encodable_) return;
  if ((index_.flags & format::kIndexUnique) != 0 && !key_null_) seen_.emplace(key_.begin(), key_.end());
  if ((index_.flags & format::kIndexIgnoreNulls) != 0 && key_null_) return;
  entries_.push_back({key_, row_pointer >> 8, static_cast<std::uint8_t>(row_pointer & 0xFF)});
}

std::uint32_t IndexCollector::Build(PageWriter& pages, std::uint32_t tdef_page,
                                    std::vector<std::uint32_t>& pages_written) {
  std::sort(entries_.begin(), entries_.end(), IndexEntryLess);
  distinct_keys_ = CountDistinctKeys(entries_);
  std::uint32_t root = BuildIndexTree(pages, tdef_page, entries_, &pages_written);
  entries_.clear();
  entries_.shrink_to_fit();
  seen_.clear();
  return root;
}

}  // namespace kvdao::jet::internal
