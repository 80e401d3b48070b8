#pragma once

// DatabaseWriter: a new Jet 4 database being built. Creating it lays out
// the header, the file's free-page map, the system tables and their rows;
// tables are then added and filled through their TableWriters; Close
// finishes every table (usage maps, indexes, definitions), writes the
// free-page map and puts the file at its path. Until Close nothing exists
// at the path; a writer destroyed without Close leaves nothing behind.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data_page_writer.h"
#include "kvdao/jet/tabledef.h"
#include "page_file.h"
#include "table_writer.h"

namespace kvdao::jet::internal {

class DatabaseWriter {
 public:
  // DaoException when a file exists at path already ("Database already
  // exists") or the temporary file cannot be made.
  static std::unique_ptr<DatabaseWriter> Create(const std::string& path, double creation_date);

  // Checks and creates a table; DaoException when Jet would refuse it.
  TableWriter& CreateTable(const TableDef& def);
  // A table created in this session (case-insensitive), or null.
  TableWriter* FindTable(std::string_view name) noexcept;
  // True when the catalog has an object of this name.
  bool HasTable(std::string_view name) const noexcept;
  // Table names in catalog order; system tables only when asked for.
  std::vector<std::string> TableNames(bool include_system) const;

  void Close();
  bool closed() const noexcept { return closed_; }

 private:
  DatabaseWriter(std::unique_ptr<PageFile> file, double creation_date);
  TableWriter& catalog() { return *tables_[0]; }
  TableWriter& permissions() { return *tables_[1]; }

  std::unique_ptr<PageFile> file_;
  double created_;
  std::unique_ptr<DataPageWriter> global_map_;
  std::unique_ptr<DataPageWriter> map_rows_;
  std::uint32_t global_map_row_ = 0;
  std::vector<std::unique_ptr<TableWriter>> tables_;  // the system tables first
  bool closed_ = false;
};

// The current time as an OLE date (local time, as the Jet engine stamps).
double OleDateNow();

}  // namespace kvdao::jet::internal
