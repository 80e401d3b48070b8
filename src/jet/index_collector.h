#pragma once

// IndexCollector: what a table writer keeps per physical index while rows
// are added — enough to refuse a duplicate or missing key at once, and to
// build the index pages in one go when the table is finished.

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "page_writer.h"
#include "row_builder.h"
#include "table_spec.h"

namespace kvdao::jet::internal {

class IndexCollector {
 public:
  IndexCollector(const TableSpec& spec, std::size_t real_index);

  // DaoException when the row's key is null in a required index or already
  // present in a unique one. Nothing is recorded.
  void Check(const RowBuilder& row);
  // Records the row's key (after Check, once the row is stored).
  void Add(const RowBuilder& row, std::uint32_t row_pointer);

  // Writes the index pages and returns the root page (0 when no pages are
  // written).
  std::uint32_t Build(PageWriter& pages, std::uint32_t tdef_page);

 private:
  // The key's stored bytes, each column prefixed with a presence byte;
  // false when a key column is null.
  bool Identity(const RowBuilder& row, std::string& out) const;

  const TableSpec& spec_;
  const RealIndexSpec& index_;
  std::string index_name_;
  std::vector<std::size_t> key_columns_;  // indexes into spec.columns
  std::unordered_set<std::string> seen_;
  std::string scratch_;
};

}  // namespace kvdao::jet::internal
