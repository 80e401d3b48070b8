#include "index_collector.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "bytes.h"
#include "kvdao/jet/dao_exception.h"
#include "text_codec.h"

namespace kvdao::jet::internal {
namespace {

// The staged value of a fixed-length column as the Variant type the key
// encoder takes.
Variant StagedValue(const ColumnLayout& column, const RowBuilder& row, std::size_t index) {
  if (column.type == format::kBoolean) {
    return Variant(static_cast<short>(row.IsNull(index) ? VARIANT_FALSE : VARIANT_TRUE), VT_BOOL);
  }
  if (row.IsNull(index)) return Variant();
  if (column.type == format::kText) {
    // The writer's text is code page 1252, so decoding it back loses nothing.
    std::string text;
    AppendJet4Text(row.Bytes(index), TextEncoding::kCp1252, text);
    return Variant(text);
  }
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

}  // namespace

bool IndexKeyTypeEncodable(std::uint8_t column_type) noexcept {
  switch (column_type) {
    case format::kBoolean: case format::kByte: case format::kInteger: case format::kLong: case format::kMoney:
    case format::kFloat: case format::kDouble: case format::kDateTime: case format::kText:
      return true;
    default:
      return false;
  }
}

IndexCollector::IndexCollector(const TableLayout& spec, std::size_t real_index)
    : spec_(spec), index_(spec.real_indexes[real_index]) {
  for (const LogicalIndexLayout& logical : spec.indexes) {
    if (logical.real == real_index) {
      index_name_ = logical.name;
      break;
    }
  }
  for (const RealIndexLayout::Key& key : index_.keys) {
    for (std::size_t i = 0; i < spec.columns.size(); ++i) {
      if (spec.columns[i].number != key.column_number) continue;
      key_columns_.push_back(i);
      key_types_.push_back({spec.columns[i].type, key.ascending});
    }
  }
  values_.resize(key_columns_.size());
}


namespace {

// Unsigned byte order, a key before every longer key it begins.
int CompareKeys(std::span<const std::uint8_t> a, std::span<const std::uint8_t> b) noexcept {
  std::size_t n = std::min(a.size(), b.size());
  int c = n == 0 ? 0 : std::memcmp(a.data(), b.data(), n);
  if (c != 0) return c;
  return a.size() < b.size() ? -1 : (a.size() > b.size() ? 1 : 0);
}

// FNV-1a: keys are short and only equality matters.
std::uint64_t HashOf(std::span<const std::uint8_t> key) noexcept {
  std::uint64_t hash = 0xCBF29CE484222325ull;
  for (std::uint8_t byte : key) hash = (hash ^ byte) * 0x100000001B3ull;
  return hash;
}

}  // namespace

bool IndexCollector::Unique() const noexcept { return (index_.flags & format::kIndexUnique) != 0; }

void IndexCollector::Check(const RowBuilder& row) {
  bool any_null = false;
  for (std::size_t k = 0; k < key_columns_.size(); ++k) {
    const ColumnLayout& column = spec_.columns[key_columns_[k]];
    values_[k] = StagedValue(column, row, key_columns_[k]);
    any_null = any_null || values_[k].IsEmptyOrNull();
  }
  if (any_null && (index_.flags & format::kIndexRequired) != 0) {
    throw DaoException("Index or primary key cannot contain a Null value: index '" + index_name_ + "' of table '" +
                       spec_.name + "'.");
  }
  EncodeIndexKey(key_types_, values_, key_);
  if (Unique() && !AllNull(key_) && SeenBefore(key_)) {
    throw DaoException(
        "The changes you requested to the table were not successful because they would create duplicate values in "
        "the index, primary key, or relationship: index '" + index_name_ + "' of table '" + spec_.name + "'.");
  }
}

bool IndexCollector::SeenBefore(std::span<const std::uint8_t> key) {
  if (increasing_) {
    if (!have_last_key_) return false;
    int order = CompareKeys(key, KeyOf(entries_[last_key_entry_]));
    if (order > 0) return false;
    if (order == 0) return true;
    StartLookup();  // out of order: every earlier key may be equal from now on
  }
  const std::size_t mask = lookup_.size() - 1;
  for (std::size_t slot = HashOf(key) & mask; lookup_[slot] != 0; slot = (slot + 1) & mask) {
    if (CompareKeys(key, KeyOf(entries_[lookup_[slot] - 1])) == 0) return true;
  }
  return false;
}

// Puts every key recorded so far (but all-null ones) into the hash table.
void IndexCollector::StartLookup() {
  increasing_ = false;
  lookup_.assign(64, 0);
  lookup_size_ = 0;
  for (std::uint32_t i = 0; i < entries_.size(); ++i) {
    if (!AllNull(KeyOf(entries_[i]))) Remember(i);
  }
}

void IndexCollector::Remember(std::uint32_t entry) {
  if (2 * (lookup_size_ + 1) > lookup_.size()) {
    std::vector<std::uint32_t> old = std::move(lookup_);
    lookup_.assign(old.size() * 2, 0);
    lookup_size_ = 0;
    for (std::uint32_t held : old) {
      if (held != 0) Remember(held - 1);
    }
  }
  const std::size_t mask = lookup_.size() - 1;
  std::size_t slot = HashOf(KeyOf(entries_[entry])) & mask;
  while (lookup_[slot] != 0) slot = (slot + 1) & mask;
  lookup_[slot] = entry + 1;
  ++lookup_size_;
}

void IndexCollector::Seed(std::vector<IndexEntry> existing) {
  for (const IndexEntry& entry : existing) {
    key_ = entry.key;
    Add(entry.data_page << 8 | entry.data_row);
  }
}

void IndexCollector::Add(std::uint32_t row_pointer) {
  const bool all_null = AllNull(key_);
  if ((index_.flags & format::kIndexIgnoreNulls) != 0 && all_null) return;
  if (keys_.size() + key_.size() > std::numeric_limits<std::uint32_t>::max() ||
      entries_.size() >= std::numeric_limits<std::uint32_t>::max() - 1) {
    throw DaoException("Index '" + index_name_ + "' of table '" + spec_.name + "' has too many entries.");
  }
  Entry entry{static_cast<std::uint32_t>(keys_.size()), row_pointer >> 8, static_cast<std::uint16_t>(key_.size()),
              static_cast<std::uint8_t>(row_pointer & 0xFF)};
  keys_.insert(keys_.end(), key_.begin(), key_.end());
  if (in_order_ && !entries_.empty()) {
    const Entry& last = entries_.back();
    int order = CompareKeys(KeyOf(last), key_);
    in_order_ = order < 0 || (order == 0 && (last.data_page < entry.data_page ||
                                             (last.data_page == entry.data_page && last.data_row < entry.data_row)));
  }
  entries_.push_back(entry);
  const auto number = static_cast<std::uint32_t>(entries_.size() - 1);
  if (!Unique() || all_null) return;
  if (increasing_) {
    last_key_entry_ = number;
    have_last_key_ = true;
  } else {
    Remember(number);
  }
}

std::uint32_t IndexCollector::Build(PageWriter& pages, std::uint32_t tdef_page,
                                    std::vector<std::uint32_t>& pages_written) {
  lookup_.clear();
  lookup_.shrink_to_fit();
  if (!in_order_) {
    std::sort(entries_.begin(), entries_.end(), [this](const Entry& a, const Entry& b) {
      int order = CompareKeys(KeyOf(a), KeyOf(b));
      if (order != 0) return order < 0;
      return a.data_page != b.data_page ? a.data_page < b.data_page : a.data_row < b.data_row;
    });
  }
  distinct_keys_ = 0;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (i == 0 || CompareKeys(KeyOf(entries_[i - 1]), KeyOf(entries_[i])) != 0) ++distinct_keys_;
  }
  std::uint32_t root = BuildIndexTree(
      pages, tdef_page, entries_.size(),
      [this](std::size_t i) { return IndexEntryView{KeyOf(entries_[i]), entries_[i].data_page, entries_[i].data_row}; },
      &pages_written);
  std::vector<Entry>().swap(entries_);
  std::vector<std::uint8_t>().swap(keys_);
  return root;
}

}  // namespace kvdao::jet::internal
