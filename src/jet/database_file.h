#pragma once

// DatabaseFile: one open database file and what has been learnt about it:
// the header, the catalog, and the table definitions read so far. Shared by
// a Database and the recordsets opened on it, so recordsets stay valid when
// the Database object goes away.

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "catalog.h"
#include "header.h"
#include "kvdao/jet/tabledef.h"
#include "page_source.h"
#include "table_definition.h"

namespace kvdao::jet::internal {

// A table's stored definition together with its DAO-shaped description.
struct OpenTable {
  TableDefinition definition;
  TableDef def;
};

class DatabaseFile {
 public:
  explicit DatabaseFile(const std::string& path);
  explicit DatabaseFile(Bytes bytes);

  const PageSource& pages() const noexcept { return pages_; }
  const DatabaseInfo& info() const noexcept { return header_.info; }
  const Header& header() const noexcept { return header_; }
  const std::vector<CatalogEntry>& catalog() const noexcept { return catalog_; }

  // The table of this name (case-insensitive); DaoException when the
  // catalog has no such table.
  std::shared_ptr<const OpenTable> Table(std::string_view name);

 private:
  void Load();

  PageSource pages_;
  Header header_;
  std::vector<CatalogEntry> catalog_;
  std::mutex mutex_;
  std::map<std::uint32_t, std::shared_ptr<const OpenTable>> tables_;
};

}  // namespace kvdao::jet::internal
