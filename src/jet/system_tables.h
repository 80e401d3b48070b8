#pragma once

// The system tables a Jet 4 engine creates in a new database — MSysObjects
// (the catalog), MSysACEs (permissions), MSysQueries and MSysRelationships —
// laid out column by column as the engine lays them out, and the rows the
// engine puts into the catalog and the permissions table.

#include <cstdint>
#include <string>
#include <vector>

#include "table_grants.h"
#include "table_layout.h"
#include "table_writer.h"

namespace kvdao::jet::internal {

// The four system tables in the order of their definition pages (2 to 5).
std::vector<TableLayout> SystemTableLayouts();

// Catalog rows of a new database (containers, the database object and the
// four system tables), given the system tables' definition pages.
void AddInitialCatalogRows(TableWriter& catalog, double created);
// Permission rows of a new database.
void AddInitialPermissionRows(TableWriter& permissions);

// The catalog row and permission rows of a new user table. The catalog and
// permissions writers may be those of an existing file: values are set by
// column name.
void AddTableCatalogRow(TableWriter& catalog, const std::string& name, std::uint32_t tdef_page, double created,
                        const std::vector<std::uint8_t>& properties, const TableGrants& grants);
void AddTablePermissionRows(TableWriter& permissions, std::uint32_t tdef_page, const TableGrants& grants);

}  // namespace kvdao::jet::internal
