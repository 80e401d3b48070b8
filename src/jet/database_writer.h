#pragma once

// DatabaseWriter: a Jet 4 database being written, either new or an
// existing file being changed.
//
// A new database is laid out at once (header, free-page map, the system
// tables and their rows). An existing one is copied beside its path and the
// copy is changed; its tables are loaded for appending when first asked
// for, and a table that cannot be changed safely is refused then. In both
// cases tables are added and filled through TableWriters, and Close
// finishes every table it touched (usage maps, indexes, definitions),
// writes the free-page map and renames the file onto its path. Until Close
// the path keeps what it had; a writer destroyed without Close removes its
// temporary file and leaves the path as it was.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data_page_writer.h"
#include "database_file.h"
#include "kvdao/jet/tabledef.h"
#include "page_file.h"
#include "table_grants.h"
#include "table_writer.h"

namespace kvdao::jet::internal {

class DatabaseWriter {
 public:
  // DaoException when a file exists at path already ("Database already
  // exists") or the temporary file cannot be made.
  static std::unique_ptr<DatabaseWriter> Create(const std::string& path, double creation_date);
  // Opens the Jet 4 file at path for changing. DaoException, saying why,
  // when the file cannot be changed safely: a Jet 3 file, one with a
  // password or encryption, a code page other than 1252 or a sort order
  // other than General.
  static std::unique_ptr<DatabaseWriter> OpenExisting(const std::string& path);
  ~DatabaseWriter();

  // Checks and creates a table; DaoException when Jet would refuse it or
  // an object of that name exists.
  TableWriter& CreateTable(const TableDef& def);
  // A table to add rows to (case-insensitive), or null when there is none.
  // A table of an existing file is loaded the first time (DaoException when
  // it cannot be appended to).
  TableWriter* FindTable(std::string_view name);
  // True when the catalog has a table or query of this name.
  bool HasTable(std::string_view name) const noexcept;
  // Table names in catalog order; system tables only when asked for.
  std::vector<std::string> TableNames(bool include_system) const;
  // The description of a table without loading it for appending;
  // DaoException when there is no such table.
  TableDef Describe(std::string_view name);
  // The file as it was opened (null for a new database).
  const std::shared_ptr<DatabaseFile>& original() const noexcept { return original_; }

  void Close();
  bool closed() const noexcept { return closed_; }

 private:
  DatabaseWriter(std::unique_ptr<PageFile> file, double creation_date);
  TableWriter* Loaded(std::string_view name) noexcept;
  TableWriter& SystemTable(const char* name);

  std::unique_ptr<PageFile> file_;
  double created_;
  std::shared_ptr<DatabaseFile> original_;
  std::unique_ptr<DataPageWriter> global_map_;
  std::unique_ptr<DataPageWriter> map_rows_;
  std::uint32_t global_map_row_ = 0;
  std::unique_ptr<TableGrants> grants_;
  std::vector<std::unique_ptr<TableWriter>> tables_;  // new ones, and existing ones loaded
  std::vector<std::string> created_tables_;           // names of the tables made in this session
  bool closed_ = false;
};

// The current time as an OLE date (local time, as the Jet engine stamps).
double OleDateNow();

}  // namespace kvdao::jet::internal
