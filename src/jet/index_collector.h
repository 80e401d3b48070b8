#pragma once

// IndexCollector: what a table writer keeps per physical index while rows
// are added — every row's encoded key and position — so that a duplicate
// or missing key is refused at once and the index pages are built in one
// go, in key order, when the table is finished.
//
// Memory: keys are packed back to back in one buffer and each entry is 12
// bytes (where its key is, its length and row pointer), so an index of
// short keys costs about 12 bytes a row plus its key bytes. A unique index
// needs no second copy of its keys to refuse duplicates: while keys arrive
// in increasing order (a sample list numbered as it is written) comparing
// with the last key is enough; once one arrives out of order, a hash table
// of entry numbers (4 bytes a slot, at most half full) finds equal keys,
// compared byte for byte.

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "index_builder.h"
#include "index_key.h"
#include "page_writer.h"
#include "row_builder.h"
#include "table_layout.h"

namespace kvdao::jet::internal {

// Whether index keys of a column type can be encoded (the key encoder
// refuses the others); a table with an index over any other type cannot be
// appended to.
bool IndexKeyTypeEncodable(std::uint8_t column_type) noexcept;

class IndexCollector {
 public:
  IndexCollector(const TableLayout& spec, std::size_t real_index);

  // Starts from the entries an index already holds (in index order), so
  // new keys are checked against them and Build writes them all.
  void Seed(std::vector<IndexEntry> existing);

  // Encodes the row's key; DaoException when it is null in a required index
  // or already present in a unique one. Nothing is recorded.
  void Check(const RowBuilder& row);
  // Records the key of the row last checked, now stored at row_pointer.
  void Add(std::uint32_t row_pointer);

  // Writes the index pages, returns the root page and appends every page
  // written to pages_written. The collected entries are released.
  std::uint32_t Build(PageWriter& pages, std::uint32_t tdef_page, std::vector<std::uint32_t>& pages_written);
  // Distinct keys (after Build): what the table definition records.
  std::uint32_t distinct_keys() const noexcept { return distinct_keys_; }

 private:
  struct Entry {
    std::uint32_t offset;  // of the key in keys_
    std::uint32_t data_page;
    std::uint16_t size;
    std::uint8_t data_row;
  };

  std::span<const std::uint8_t> KeyOf(const Entry& entry) const noexcept {
    return {keys_.data() + entry.offset, entry.size};
  }
  // A key of one byte per column holds only null flags.
  bool AllNull(std::span<const std::uint8_t> key) const noexcept { return key.size() == key_columns_.size(); }
  bool Unique() const noexcept;
  bool SeenBefore(std::span<const std::uint8_t> key);
  void StartLookup();
  void Remember(std::uint32_t entry);

  const TableLayout& spec_;
  const RealIndexLayout& index_;
  std::string index_name_;
  std::vector<std::size_t> key_columns_;  // indexes into spec.columns
  std::vector<IndexKeyColumn> key_types_;
  std::vector<Variant> values_;
  std::vector<std::uint8_t> key_;  // of the row last checked

  std::vector<std::uint8_t> keys_;
  std::vector<Entry> entries_;
  bool in_order_ = true;  // entries_ already sorted as the index wants them
  // Unique indexes: the last key that was not all null while keys arrive in
  // increasing order, then a hash table of entry numbers + 1 (0 = free).
  bool increasing_ = true;
  std::uint32_t last_key_entry_ = 0;
  bool have_last_key_ = false;
  std::vector<std::uint32_t> lookup_;
  std::size_t lookup_size_ = 0;
  std::uint32_t distinct_keys_ = 0;
};

}  // namespace kvdao::jet::internal
