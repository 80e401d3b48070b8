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
#include "existing_table.h"
#include "property_writer.h"
#include "record_appender.h"
#include "system_tables.h"
#include "usage_map.h"
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

DatabaseWriter::~DatabaseWriter() = default;

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

  std::vector<TableLayout> system = SystemTableLayouts();
  std::vector<std::uint32_t> tdef_pages;
  for (std::size_t i = 0; i < system.size(); ++i) tdef_pages.push_back(file.AllocatePage(0));
  db->map_rows_ = std::make_unique<DataPageWriter>(file, 0, 0);
  for (std::size_t i = 0; i < system.size(); ++i) {
    db->tables_.push_back(std::make_unique<TableWriter>(file, *db->map_rows_, std::move(system[i]), tdef_pages[i]));
  }
  db->grants_ = std::make_unique<TableGrants>(NewDatabaseTableGrants());
  AddInitialCatalogRows(db->SystemTable("MSysObjects"), creation_date);
  AddInitialPermissionRows(db->SystemTable("MSysACEs"));
  return db;
}

namespace {

[[noreturn]] void RefuseWriting(const std::string& path, const std::string& why) {
  throw DaoException("Cannot open database '" + path + "' for writing: " + why + ". It can still be opened read-only.");
}

// The pages the file's free-page map marks free, less any that still looks
// like part of a live table (its definition, or a data or index page it
// owns): reusing such a page on the map's word alone would damage the table
// if the map were wrong.
std::vector<std::uint32_t> ReusablePages(const DatabaseFile& file) {
  const PageSource& pages = file.pages();
  std::vector<std::uint32_t> free = ReadUsageMap(pages, format::kGlobalUsageMapPage << 8);
  std::vector<std::uint32_t> live;
  for (const CatalogEntry& entry : file.catalog()) {
    if (entry.IsTable()) live.push_back(entry.TableDefinitionPage());
  }
  std::sort(live.begin(), live.end());
  auto is_live = [&](std::uint32_t page) { return std::binary_search(live.begin(), live.end(), page); };
  std::erase_if(free, [&](std::uint32_t page) {
    if (is_live(page)) return true;
    Bytes bytes = pages.Page(page);
    const std::uint8_t type = bytes[0];
    const bool owned = type == format::kPageData || type == format::kPageIndexNode || type == format::kPageIndexLeaf;
    return owned && is_live(LoadU32(bytes.data() + pages.layout().data_owner_offset));
  });
  return free;
}

}  // namespace

std::unique_ptr<DatabaseWriter> DatabaseWriter::OpenExisting(const std::string& path) {
  auto original = std::make_shared<DatabaseFile>(platform::ToNativePath(path));
  const Header& header = original->header();
  if (header.info.jet_version != 4) RefuseWriting(path, "it is a Jet 3 (Access 97) database; only Jet 4 is written");
  if (header.encrypted) RefuseWriting(path, "it is encrypted");
  if (header.has_password) RefuseWriting(path, "it has a database password");
  if (header.info.code_page != format::kCodePage1252) {
    RefuseWriting(path, "its code page is " + std::to_string(header.info.code_page) + "; only code page 1252 is written");
  }
  if (static_cast<std::uint32_t>(header.info.sort_order) != format::kSortOrderGeneral) {
    RefuseWriting(path, "its sort order is " + std::to_string(header.info.sort_order) +
                            "; only the General sort order (1033) is written");
  }
  std::unique_ptr<DatabaseWriter> db(
      new DatabaseWriter(PageFile::OpenCopy(path, ReusablePages(*original)), header.info.creation_date));
  db->original_ = std::move(original);
  db->global_map_row_ = format::kGlobalUsageMapPage << 8;
  return db;
}

TableWriter* DatabaseWriter::Loaded(std::string_view name) noexcept {
  for (auto& table : tables_) {
    if (platform::CompareNoCase1252(table->spec().name, name) == 0) return table.get();
  }
  return nullptr;
}

TableWriter& DatabaseWriter::SystemTable(const char* name) {
  TableWriter* table = FindTable(name);
  if (table == nullptr) throw DaoException(std::string("The database file is damaged: it has no ") + name + " table.");
  return *table;
}

bool DatabaseWriter::HasTable(std::string_view name) const noexcept {
  for (const auto& table : tables_) {
    if (platform::CompareNoCase1252(table->spec().name, name) == 0) return true;
  }
  if (!original_) return false;
  // Tables, linked tables and queries share one name space.
  return std::any_of(original_->catalog().begin(), original_->catalog().end(), [&](const CatalogEntry& entry) {
    const bool named = entry.type == format::kObjectTypeTable || entry.type == 4 || entry.type == 5 || entry.type == 6;
    return named && platform::CompareNoCase1252(entry.name, name) == 0;
  });
}

std::vector<std::string> DatabaseWriter::TableNames(bool include_system) const {
  std::vector<std::string> names;
  if (original_) {
    for (const CatalogEntry& entry : original_->catalog()) {
      if (entry.IsTable() && (include_system || !entry.IsSystem())) names.push_back(entry.name);
    }
    names.insert(names.end(), created_tables_.begin(), created_tables_.end());
    return names;
  }
  for (const auto& table : tables_) {
    if (include_system || !table->spec().system) names.push_back(table->spec().name);
  }
  return names;
}

TableWriter* DatabaseWriter::FindTable(std::string_view name) {
  if (TableWriter* table = Loaded(name)) return table;
  if (!original_) return nullptr;
  for (const CatalogEntry& entry : original_->catalog()) {
    if (entry.IsTable() && platform::CompareNoCase1252(entry.name, name) == 0) {
      tables_.push_back(std::make_unique<TableWriter>(*file_, LoadExistingTable(*original_, entry)));
      return tables_.back().get();
    }
  }
  return nullptr;
}

TableDef DatabaseWriter::Describe(std::string_view name) {
  if (TableWriter* table = Loaded(name)) return DescribeLayout(table->spec());
  if (!original_) throw DaoException("Item not found in this collection: no table '" + std::string(name) + "'.");
  return original_->Table(name)->def;
}

TableWriter& DatabaseWriter::CreateTable(const TableDef& def) {
  if (closed_) throw DaoException("Object invalid or no longer set: the database is closed.");
  TableLayout spec = LayoutFromTableDef(def);
  if (HasTable(spec.name)) throw DaoException("Table '" + spec.name + "' already exists.");
  TableWriter& catalog = SystemTable("MSysObjects");
  TableWriter& permissions = SystemTable("MSysACEs");
  if (!grants_) grants_ = std::make_unique<TableGrants>(ReadTableGrants(original_));
  if (!map_rows_) map_rows_ = std::make_unique<DataPageWriter>(*file_, 0, 0);
  std::vector<std::uint8_t> properties = EncodeColumnProperties(spec);
  std::uint32_t tdef_page = file_->AllocatePage(0);
  tables_.push_back(std::make_unique<TableWriter>(*file_, *map_rows_, std::move(spec), tdef_page));
  TableWriter& table = *tables_.back();
  if (original_) created_tables_.push_back(table.spec().name);
  AddTableCatalogRow(catalog, table.spec().name, tdef_page, OleDateNow(), properties, *grants_);
  AddTablePermissionRows(permissions, tdef_page, *grants_);
  return table;
}

void DatabaseWriter::Close() {
  if (closed_) return;
  closed_ = true;
  for (auto& table : tables_) table->Finish();
  if (original_ && !file_->modified()) {
    // Nothing was changed: the file stays exactly as it was.
    file_->Discard();
    return;
  }
  WriteGlobalUsageMap(*file_, global_map_row_);
  file_->Commit();
}

}  // namespace kvdao::jet::internal
