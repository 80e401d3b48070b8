#pragma once

// RecordAppender: the engine behind a table-type Recordset on a database
// being written. It adds records to one table (AddNew, set values, Update)
// and keeps the writer alive while the recordset is open.

#include <memory>
#include <string>
#include <string_view>

#include "database_writer.h"
#include "kvdao/jet/tabledef.h"

namespace kvdao::jet::internal {

class RecordAppender {
 public:
  RecordAppender(std::shared_ptr<DatabaseWriter> writer, TableWriter& table);

  const TableDef& def() const noexcept { return def_; }
  TableWriter& table();
  const std::string& current_index() const noexcept { return index_; }
  // DaoException when the table has no index of that name.
  void SetCurrentIndex(std::string_view name);

 private:
  std::shared_ptr<DatabaseWriter> writer_;
  TableWriter& table_;
  TableDef def_;
  std::string index_;
};

// The DAO-shaped description of a table being written.
TableDef DescribeLayout(const TableLayout& spec);

}  // namespace kvdao::jet::internal
