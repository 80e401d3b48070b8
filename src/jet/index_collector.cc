#include "index_collector.h"

#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {

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
      if (spec.columns[i].number == key.column_number) key_columns_.push_back(i);
    }
  }
}

bool IndexCollector::Identity(const RowBuilder& row, std::string& out) const {
  out.clear();
  bool complete = true;
  for (std::size_t column : key_columns_) {
    if (row.IsNull(column) && spec_.columns[column].type != format::kBoolean) {
      complete = false;
      out.push_back('\0');
      continue;
    }
    out.push_back('\1');
    std::span<const std::uint8_t> bytes = row.Bytes(column);
    if (spec_.columns[column].type == format::kBoolean) {
      out.push_back(row.IsNull(column) ? '\0' : '\1');
    } else {
      out.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
      out.push_back('\0');
    }
  }
  return complete;
}

void IndexCollector::Check(const RowBuilder& row) {
  bool complete = Identity(row, scratch_);
  if (!complete && (index_.flags & format::kIndexRequired) != 0) {
    throw DaoException("Index or primary key cannot contain a Null value: index '" + index_name_ + "' of table '" +
                       spec_.name + "'.");
  }
  if (complete && (index_.flags & format::kIndexUnique) != 0 && seen_.count(scratch_) != 0) {
    throw DaoException(
        "The changes you requested to the table were not successful because they would create duplicate values in "
        "the index, primary key, or relationship: index '" + index_name_ + "' of table '" + spec_.name + "'.");
  }
}

void IndexCollector::Add(const RowBuilder& row, std::uint32_t /*row_pointer*/) {
  if ((index_.flags & format::kIndexUnique) != 0 && Identity(row, scratch_)) seen_.insert(scratch_);
}

std::uint32_t IndexCollector::Build(PageWriter& /*pages*/, std::uint32_t /*tdef_page*/) {
  // Index pages are built by the index tree builder; until it is part of
  // the library the definition names no root page.
  return 0;
}

}  // namespace kvdao::jet::internal
