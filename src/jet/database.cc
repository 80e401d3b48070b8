#include "kvdao/jet/database.h"

#include <exception>

#include "database_file.h"
#include "database_writer.h"
#include "record_appender.h"
#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/text.h"
#include "record_cursor.h"
#include "sql_text.h"

namespace kvdao::jet {

Database::Database() = default;
Database::~Database() {
  // Unwinding from an exception, a database being written is abandoned: its
  // writer goes (when the recordsets that hold it go) with its temporary
  // file, and the path keeps what it had.
  if (writer_ && std::uncaught_exceptions() > exceptions_at_start_) return;
  try {
    Close();
  } catch (const DaoException&) {
    // A destructor cannot report; Close reports to callers that ask.
  }
}
Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&& other) noexcept {
  if (this != &other) {
    try {
      Close();
    } catch (const DaoException&) {
      // As in the destructor.
    }
    file_ = std::move(other.file_);
    writer_ = std::move(other.writer_);
    exceptions_at_start_ = other.exceptions_at_start_;
  }
  return *this;
}

void Database::Open(const std::string& path, bool /*exclusive*/, bool read_only, const std::string& connect) {
  if (!connect.empty()) {
    throw DaoException("Could not find installable ISAM: connect string '" + connect +
                       "' names an import driver, and only Jet files can be opened.");
  }
  if (read_only) {
    file_ = std::make_shared<internal::DatabaseFile>(path);
    return;
  }
  std::shared_ptr<internal::DatabaseWriter> writer = internal::DatabaseWriter::OpenExisting(path);
  file_ = writer->original();
  writer_ = std::move(writer);
  exceptions_at_start_ = std::uncaught_exceptions();
}

void Database::OpenImage(std::span<const std::uint8_t> image) {
  file_ = std::make_shared<internal::DatabaseFile>(image);
}

Database Database::Create(const std::string& path, const std::string& locale, int options) {
  // Only the General sort order and code page 1252 are written; DAO's
  // version options other than Jet 4 (dbVersion40 = 64) are refused.
  if (!locale.empty()) {
    std::string lower = platform::ToLower1252(locale);
    bool general = lower.find("langid=0x0409") != std::string::npos || lower.find("langid=") == std::string::npos;
    bool cp1252 = lower.find("cp=") == std::string::npos || lower.find("cp=1252") != std::string::npos;
    if (!general || !cp1252) {
      throw DaoException("Invalid locale argument '" + locale +
                         "': only the General sort order (LANGID=0x0409) with code page 1252 is supported.");
    }
  }
  if (options != 0 && options != 64) {
    throw DaoException("Invalid argument: database options " + std::to_string(options) +
                       " are not supported; only Jet 4 databases (options 0) are created.");
  }
  Database database;
  database.writer_ = internal::DatabaseWriter::Create(path, internal::OleDateNow());
  database.exceptions_at_start_ = std::uncaught_exceptions();
  return database;
}

void Database::Close() {
  file_.reset();
  if (writer_) {
    std::shared_ptr<internal::DatabaseWriter> writer = std::move(writer_);
    writer->Close();
  }
}

bool Database::IsOpen() const noexcept { return file_ != nullptr || writer_ != nullptr; }

TableDef Database::CreateTableDef(const std::string& name, long attributes) const {
  TableDef def;
  def.name = name;
  def.attributes = attributes;
  return def;
}

void Database::Append(const TableDef& def) {
  if (!writer_) throw DaoException("Cannot update. Database or object is read-only.");
  writer_->CreateTable(def);
}

namespace {

internal::DatabaseFile& Require(const std::shared_ptr<internal::DatabaseFile>& file) {
  if (!file) throw DaoException("Object invalid or no longer set: the database is not open.");
  return *file;
}

}  // namespace

const DatabaseInfo& Database::Info() const { return Require(file_).info(); }

std::vector<std::string> Database::GetTableNames(bool include_system) const {
  std::vector<std::string> names;
  if (writer_) return writer_->TableNames(include_system);
  for (const internal::CatalogEntry& entry : Require(file_).catalog()) {
    if (entry.IsTable() && (include_system || !entry.IsSystem())) names.push_back(entry.name);
  }
  return names;
}

TableDef Database::GetTableDef(std::string_view table) const {
  if (writer_) return writer_->Describe(table);
  return Require(file_).Table(table)->def;
}

Recordset Database::OpenTable(std::string_view table) const {
  if (writer_) {
    internal::TableWriter* writer = writer_->FindTable(table);
    if (writer == nullptr || writer->spec().system) {
      throw DaoException("The Microsoft Jet database engine cannot find the input table or query '" +
                         std::string(table) + "'. Make sure it exists and that its name is spelled correctly.");
    }
    return Recordset(std::make_unique<internal::RecordAppender>(writer_, *writer));
  }
  auto opened = Require(file_).Table(table);
  return Recordset(std::make_unique<internal::RecordCursor>(file_, std::move(opened), std::nullopt));
}

Recordset Database::OpenRecordset(std::string_view sql, int /*type*/, int /*options*/) const {
  if (writer_) {
    // A table-type recordset names a table rather than a query.
    std::optional<internal::SelectStatement> statement = internal::ParseSelect(sql);
    return OpenTable(statement ? std::string_view(statement->table) : sql);
  }
  internal::DatabaseFile& file = Require(file_);
  std::optional<internal::SelectStatement> statement = internal::ParseSelect(sql);
  if (!statement) {
    throw DaoException("Syntax error in query: only SELECT * FROM <table> [ORDER BY <field>] is supported: '" +
                       std::string(sql) + "'.");
  }
  auto opened = file.Table(statement->table);
  std::optional<internal::SortOrder> order;
  if (!statement->order_by.empty()) {
    const FieldInfo* field = opened->def.FindField(statement->order_by);
    if (field == nullptr) {
      throw DaoException("Item not found in this collection: the table '" + statement->table +
                         "' has no field '" + statement->order_by + "' to order by.");
    }
    order = internal::SortOrder{field->ordinal_position, statement->descending};
  }
  return Recordset(std::make_unique<internal::RecordCursor>(file_, std::move(opened), order));
}

}  // namespace kvdao::jet
