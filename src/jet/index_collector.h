#pragma once

// IndexCollector: what a table writer keeps per physical index while rows
// are added — every row's encoded key and position — so that a duplicate
// or missing key is refused at once and the index pages are built in one
// go, in key order, when the table is finished.

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "index_builder.h"
#include "index_key.h"
#include "page_writer.h"
#include "row_builder.h"
#include "table_spec.h"

namespace kvdao::jet::internal {

// Whether keys of a column type can be encoded. Text keys need the General
// sort order's collation, which the key encoder does not have yet: an index
// over a Text column (the system catalog's name index) is written empty in
// a new table and left as it is in an existing one.
bool IndexKeyTypeEncodable(std::uint8_t column_type) noexcept;

class IndexCollector {
 public:
  IndexCollector(const TableSpec& spec, std::size_t real_index);

  // False when a key column has a type whose keys cannot be encoded yet;
  // such an index records nothing and Build writes it empty.
  bool encodable() const noexcept { return encodable_; }
  // Starts from the entries an index already holds (in index order), so
  // new keys are checked against them and Build writes them all.
  void Seed(std::vector<IndexEntry> existing);

  // Encodes the row's key; DaoException when it is null in a required index
  // or already present in a unique one. Nothing is recorded.
  void Check(const RowBuilder& row);
  // Records the key of the row last checked, now stored at row_pointer.
  void Add(std::uint32_t row_pointer);

  // Writes the index pages, returns the root page and appends every page
  // written to pages_written.
  std::uint32_t Build(PageWriter& pages, std::uint32_t tdef_page, std::vector<std::uint32_t>& pages_written);
  // Distinct keys (after Build): what the table definition records.
  std::uint32_t distinct_keys() const noexcept { return distinct_keys_; }

 private:
  const TableSpec& spec_;
  const RealIndexSpec& index_;
  std::string index_name_;
  std::vector<std::size_t> key_columns_;  // indexes into spec.columns
  std::vector<IndexKeyColumn> key_types_;
  std::vector<Variant> values_;
  std::vector<std::uint8_t> key_;
  bool key_null_ = false;  // every key column null
  bool encodable_ = true;
  std::vector<IndexEntry> entries_;
  std::unordered_set<std::string> seen_;  // keys of a unique index
  std::uint32_t distinct_keys_ = 0;
};

}  // namespace kvdao::jet::internal
