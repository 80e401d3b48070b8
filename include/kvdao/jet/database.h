#pragma once

// kvdao::jet::Database: a Jet database file. Opened read-only, it is read
// (Jet 3 or Jet 4): its tables, their definitions, and recordsets over
// them. Created (Database::Create), it is a new Jet 4 database being
// written; opened for writing, an existing Jet 4 database being changed.
// Either way tables are appended and filled through table-type recordsets,
// the changes are made on a copy beside the path, and the copy replaces the
// file, complete, when the database is closed. A database being written
// that is destroyed by an exception unwinding past it leaves the path as it
// was.

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

  // Opens a Jet file. The connect string must be empty (a Jet file). A
  // DaoException when the file is missing, not a Jet database, or damaged.
  // With read_only = false the database is opened for writing: tables can
  // be appended and rows added to existing tables, and Close puts the
  // changed file in place. A Jet 3 file, or one with a password,
  // encryption, another code page than 1252 or another sort order than
  // General, is refused for writing (a DaoException; it can still be opened
  // read-only).
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
  // DaoException when that fails, and the path then keeps what it had) and
  // releases the database. The destructor closes too, ignoring failures,
  // except while an exception unwinds past it: then the changes of a
  // database being written are discarded.
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
  // 255 fields, an index on a missing field ...) or a table or query of
  // that name exists.
  void Append(const TableDef& def);

  const DatabaseInfo& Info() const;
  // Table names in catalog order; system tables only when asked for.
  std::vector<std::string> GetTableNames(bool include_system = false) const;
  // The definition of a table (case-insensitive name); a DaoException when
  // there is no such table.
  TableDef GetTableDef(std::string_view table) const;

  // A table-type recordset on a table. On a database being written it adds
  // records (AddNew, SetFieldValue, Update) and reads none; a table of an
  // opened file that cannot be appended to safely (see docs/jet-writer.md)
  // raises a DaoException.
  Recordset OpenTable(std::string_view table) const;
  // A recordset on "SELECT * FROM <table>" or
  // "SELECT * FROM <table> ORDER BY <field>" (names may be in [brackets]);
  // any other text raises a DaoException. Type and options are accepted as
  // DAO takes them; every recordset here is read-only.
  Recordset OpenRecordset(std::string_view sql, int type = dbOpenSnapshot, int options = 0) const;

 private:
  std::shared_ptr<internal::DatabaseFile> file_;
  std::shared_ptr<internal::DatabaseWriter> writer_;
  int exceptions_at_start_ = 0;  // std::uncaught_exceptions() when writing began
};

}  // namespace kvdao::jet
