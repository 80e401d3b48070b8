#pragma once

// The system catalog: MSysObjects, whose definition is always on page 2,
// has one row per database object. For a table, the row's Id holds the
// table's definition page in its low 24 bits; Flags marks system objects;
// LvProp holds the object's properties.

#include <cstdint>
#include <string>
#include <vector>

#include "page_source.h"

namespace kvdao::jet::internal {

struct CatalogEntry {
  std::string name;  // code page 1252
  int type = 0;
  std::uint32_t flags = 0;
  std::uint32_t id = 0;
  std::vector<std::uint8_t> properties;  // LvProp blob, may be empty

  bool IsTable() const noexcept;
  bool IsSystem() const noexcept;
  std::uint32_t TableDefinitionPage() const noexcept { return id & 0x00FFFFFFu; }
};

// Every catalog row in table-scan order; DaoException when the catalog
// cannot be read.
std::vector<CatalogEntry> ReadCatalog(const PageSource& pages);

}  // namespace kvdao::jet::internal
