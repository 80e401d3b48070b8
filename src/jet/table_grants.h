#pragma once

// TableGrants: what a new table is given in the catalog and the permissions
// table: its owner, the container it lives in, and its permission entries,
// which are the inheritable entries of that container ("Tables") turned
// into plain ones. A new database uses the values the engine writes; an
// existing one is asked for its own, since owners and groups are
// identifiers of the workgroup that made the file.

#include <cstdint>
#include <memory>
#include <vector>

#include "format.h"
#include "kvdao/platform/variant.h"

namespace kvdao::jet::internal {

class DatabaseFile;

// Security identifiers of an engine-made database: the creating user
// "admin", and the Admins and Users groups.
inline const ByteArray kAdminSid = {0x64, 0x8B};
inline const ByteArray kAdminsSid = {0x65, 0x8B};
inline const ByteArray kUsersSid = {0x65, 0x8E};

struct TableGrants {
  std::uint32_t container = format::kCatalogTablesId;
  ByteArray owner;
  struct Entry {
    std::uint32_t rights = 0;
    ByteArray sid;
  };
  std::vector<Entry> entries;
};

// The grants of a table in a database the engine has just created.
TableGrants NewDatabaseTableGrants();

// The grants of a new table in an existing database: owner the database's
// owner (the MSysDb object's), entries those the Tables container passes on.
// Falls back to NewDatabaseTableGrants() for what the file does not say.
TableGrants ReadTableGrants(const std::shared_ptr<DatabaseFile>& file);

}  // namespace kvdao::jet::internal
