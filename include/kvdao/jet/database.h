#pragma once

// kvdao::jet::Database: an open Jet database file (Jet 3 or Jet 4), read
// side: its tables, their definitions, and recordsets over them.

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kvdao/jet/recordset.h"
#include "kvdao/jet/tabledef.h"

namespace kvdao::jet {

namespace internal {
class DatabaseFile;
}

// Facts from the database header page.
struct DatabaseInfo {
  int jet_version = 4;  // 3 or 4
  int page_size = 4096;
  int code_page = 0;
  long sort_order = 0;
  double creation_date = 0.0;  // OLE date; 0 when the file has none (Jet 3)
};

class Database {
 public:
  Database();
  ~Database();
  Database(Database&&) noexcept;
  Database& operator=(Database&&) noexcept;

  // Opens a Jet file. The connect string must be empty (a Jet file); only
  // read-only access exists, so read_only = false is accepted and reading
  // still never changes the file. A DaoException when the file is missing,
  // not a Jet database, or damaged.
  void Open(const std::string& path, bool exclusive = false, bool read_only = true,
            const std::string& connect = std::string());
  // Opens a database image held in memory (the caller keeps the bytes alive
  // while the database and its recordsets are in use).
  void OpenImage(std::span<const std::uint8_t> image);
  void Close() noexcept;
  bool IsOpen() const noexcept;

  const DatabaseInfo& Info() const;
  // Table names in catalog order; system tables only when asked for.
  std::vector<std::string> GetTableNames(bool include_system = false) const;
  // The definition of a table (case-insensitive name); a DaoException when
  // there is no such table.
  TableDef GetTableDef(std::string_view table) const;

  // A table-type recordset on a table.
  Recordset OpenTable(std::string_view table) const;
  // A recordset on "SELECT * FROM <table>" or
  // "SELECT * FROM <table> ORDER BY <field>" (names may be in [brackets]);
  // any other text raises a DaoException. Type and options are accepted as
  // DAO takes them; every recordset here is read-only.
  Recordset OpenRecordset(std::string_view sql, int type = dbOpenSnapshot, int options = 0) const;

 private:
  std::shared_ptr<internal::DatabaseFile> file_;
};

}  // namespace kvdao::jet
