#include "database_writer.h"

#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <ctime>

#include "format.h"
#include "header_writer.h"
#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/path.h"
#include "kvdao/platform/text.h"
#include "property_writer.h"
#include "system_tables.h"
#include "usage_map_writer.h"

namespace kvdao::jet::internal {

double OleDateNow() {
  std::time_t now = std::time(nullptr);
  std::tm local {};
  localtime_r(&now, &local);
  // Days from 1899-12-30 to the civil date, then the time of day.
  int y = local.tm_year + 1900, m = local.tm_mon + 1, d = local.tm_mday;
  y -= m <= 2;
  const int era = (y >= 0 ? y : y - 399) / 400;
  const int yoe = y - era * 400;
  const int doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const int doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  const long days_since_1970 = static_cast<long>(era) * 146097 + doe - 719468;
  const double days = static_cast<double>(days_since_1970 + 25569);
  return days + (local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec) / 86400.0;
}

DatabaseWriter::DatabaseWriter(std::unique_ptr<PageFile> file, double creation_date)
    : file_(std::move(file)), created_(creation_date) {}

std::unique_ptr<DatabaseWriter> DatabaseWriter::Create(const std::string& path, double creation_date) {
  struct stat existing {};
  if (::stat(platform::ToNativePath(path).c_str(), &existing) == 0) {
    throw DaoException("Database already exists: '" + path + "'.");
  }
  std::unique_ptr<DatabaseWriter> db(new DatabaseWriter(PageFile::Create(path), creation_date));
  PageFile& file = *db->file_;

  std::uint32_t header = file.AllocatePage(0);
  HeaderValues values;
  values.code_page = format::kCodePage1252;
  values.sort_order = format::kSortOrderGeneral;
  values.creation_date = creation_date;
  WriteHeaderPage(file.MutablePage(header), values);

  // Page 1 holds the file's free-page map and a second, empty map row (as
  // Jet writes); its owner field reads 1.
  db->global_map_ = std::make_unique<DataPageWriter>(file, format::kGlobalUsageMapPage, 0);
  for (int i = 0; i < 2; ++i) {
    std::uint32_t pointer = 0;
    std::span<std::uint8_t> row = db->global_map_->Add(format::kUsageMapRowSize, pointer);
    std::fill(row.begin(), row.end(), 0);
    if (i == 0) db->global_map_row_ = pointer;
  }

  std::vector<TableSpec> system = SystemTableSpecs();
  std::vector<std::uint32_t> tdef_pages;
  for (std::size_t i = 0; i < system.size(); ++i) tdef_pages.push_back(file.AllocatePage(0));
  db->map_rows_ = std::make_unique<DataPageWriter>(file, 0, 0);
  for (std::size_t i = 0; i < system.size(); ++i) {
    db->tables_.push_back(std::make_unique<TableWriter>(file, *db->map_rows_, std::move(system[i]), tdef_pages[i]));
  }
  AddInitialCatalogRows(db->catalog(), creation_date);
  AddInitialPermissionRows(db->permissions());
  return db;
}

bool DatabaseWriter::HasTable(std::string_view name) const noexcept {
  return std::any_of(tables_.begin(), tables_.end(), [&](const std::unique_ptr<TableWriter>& table) {
    return platform::CompareNoCase1252(table->spec().name, name) == 0;
  });
}

std::vector<std::string> DatabaseWriter::TableNames(bool include_system) const {
  std::vector<std::string> names;
  for (const auto& table : tables_) {
    if (include_system || !table->spec().system) names.push_back(table->spec().name);
  }
  return names;
}

TableWriter* DatabaseWriter::FindTable(std::string_view name) noexcept {
  for (auto& table : tables_) {
    if (platform::CompareNoCase1252(table->spec().name, name) == 0) return table.get();
  }
  return nullptr;
}

TableWriter& DatabaseWriter::CreateTable(const TableDef& def) {
  if (closed_) throw DaoException("Object invalid or no longer set: the database is closed.");
  TableSpec spec = SpecFromTableDef(def);
  if (HasTable(spec.name)) throw DaoException("Table '" + spec.name + "' already exists.");
  std::vector<std::uint8_t> properties = EncodeColumnProperties(spec);
  std::uint32_t tdef_page = file_->AllocatePage(0);
  tables_.push_back(std::make_unique<TableWriter>(*file_, *map_rows_, std::move(spec), tdef_page));
  TableWriter& table = *tables_.back();
  AddTableCatalogRow(catalog(), table.spec().name, tdef_page, OleDateNow(), properties);
  AddTablePermissionRows(permissions(), tdef_page);
  return table;
}

void DatabaseWriter::Close() {
  if (closed_) return;
  closed_ = true;
  for (auto& table : tables_) table->Finish();
  WriteGlobalUsageMap(*file_, global_map_row_);
  file_->Commit();
}

}  // namespace kvdao::jet::internal
