#include "kvdao/jet/database.h"

#include "database_file.h"
#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/text.h"
#include "record_cursor.h"
#include "sql_text.h"

namespace kvdao::jet {

Database::Database() = default;
Database::~Database() = default;
Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&&) noexcept = default;

void Database::Open(const std::string& path, bool /*exclusive*/, bool /*read_only*/, const std::string& connect) {
  if (!connect.empty()) {
    throw DaoException("Could not find installable ISAM: connect string '" + connect +
                       "' names an import driver, and only Jet files can be opened.");
  }
  file_ = std::make_shared<internal::DatabaseFile>(path);
}

void Database::OpenImage(std::span<const std::uint8_t> image) {
  file_ = std::make_shared<internal::DatabaseFile>(image);
}

void Database::Close() noexcept { file_.reset(); }

bool Database::IsOpen() const noexcept { return file_ != nullptr; }

namespace {

internal::DatabaseFile& Require(const std::shared_ptr<internal::DatabaseFile>& file) {
  if (!file) throw DaoException("Object invalid or no longer set: the database is not open.");
  return *file;
}

}  // namespace

const DatabaseInfo& Database::Info() const { return Require(file_).info(); }

std::vector<std::string> Database::GetTableNames(bool include_system) const {
  std::vector<std::string> names;
  for (const internal::CatalogEntry& entry : Require(file_).catalog()) {
    if (entry.IsTable() && (include_system || !entry.IsSystem())) names.push_back(entry.name);
  }
  return names;
}

TableDef Database::GetTableDef(std::string_view table) const { return Require(file_).Table(table)->def; }

Recordset Database::OpenTable(std::string_view table) const {
  auto opened = Require(file_).Table(table);
  return Recordset(std::make_unique<internal::RecordCursor>(file_, std::move(opened), std::nullopt));
}

Recordset Database::OpenRecordset(std::string_view sql, int /*type*/, int /*options*/) const {
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
