#pragma once

// kvdao::jet::Database: a Jet database file. Opened, it is read (Jet 3 or
// Jet 4): its tables, their definitions, and recordsets over them. Created
// (Database::Create), it is a new Jet 4 database being written: tables are
// appended and filled through table-type recordsets, and the file appears
// at its path, complete, when the database is closed.

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
class DatabaseWriter;
}

// DAO's locale connect string for a new database with the General sort
// order and code page 1252.
inline constexpr char dbLangGeneral[] = ";LANGID=0x0409;CP=1252;COUNTRY=0";

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
  // Creates a new, empty Jet 4 database at path (DAO's CreateDatabase):
  // locale is a connect string such as dbLangGeneral (only code page 1252
  // with the General sort order is written), options 0 (dbVersion40 is
  // accepted too). The file is built beside the path and renamed onto it by
  // Close; a DaoException when a file exists at path already.
  static Database Create(const std::string& path, const std::string& locale = dbLangGeneral, int options = 0);

  // Finishes a database being written (its file appears at its path; a
  // DaoException when that fails) and releases the database. The destructor
  // closes too, ignoring failures.
  void Close();
  bool IsOpen() const noexcept;
  // True for a database being written.
  bool IsWritable() const noexcept { return writer_ != nullptr; }

  // DAO's CreateTableDef: a table description to fill with CreateField and
  // CreateIndex, then Append.
  TableDef CreateTableDef(const std::string& name, long attributes = 0) const;
  // DAO's TableDefs.Append: creates the table in a database being written.
  // A DaoException, saying what is wrong, when Jet would refuse the
  // definition (duplicate or invalid names, a Text size above 255, more than
  // 255 fields, an index on a missing field ...).
  void Append(const TableDef& def);

  const DatabaseInfo& Info() const;
  // Table names in catalog order; system tables only when asked for.
  std::vector<std::string> GetTableNames(bool include_system = false) const;
  // The definition of a table (case-insensitive name); a DaoException when
  // there is no such table.
  TableDef GetTableDef(std::string_view table) const;

  // A table-type recordset on a table. On a database being written it adds
  // records (AddNew, SetFieldValue, Update) and reads none.
  Recordset OpenTable(std::string_view table) const;
  // A recordset on "SELECT * FROM <table>" or
  // "SELECT * FROM <table> ORDER BY <field>" (names may be in [brackets]);
  // any other text raises a DaoException. Type and options are accepted as
  // DAO takes them; every recordset here is read-only.
  Recordset OpenRecordset(std::string_view sql, int type = dbOpenSnapshot, int options = 0) const;

 private:
  std::shared_ptr<internal::DatabaseFile> file_;
  std::shared_ptr<internal::DatabaseWriter> writer_;
};

}  // namespace kvdao::jet
