#include "system_tables.h"

#include "format.h"

namespace kvdao::jet::internal {
namespace {

// Column flags of system tables: the engine adds 0x10 to the usual ones;
// binary columns that hold security identifiers carry 0x20 as well.
constexpr std::uint8_t kSysFixed = 0x13;
constexpr std::uint8_t kSysVariable = 0x12;
constexpr std::uint8_t kSysIdentifier = 0x32;
constexpr std::uint16_t kSysTextLength = 0x1FE;

struct Column {
  const char* name;
  std::uint8_t type;
  std::uint16_t number;
  std::uint8_t flags;
  std::uint16_t length;
};

TableLayout Make(const char* name, std::initializer_list<Column> columns) {
  TableLayout spec;
  spec.name = name;
  spec.system = true;
  for (const Column& c : columns) {
    ColumnLayout column;
    column.name = c.name;
    column.type = c.type;
    column.number = c.number;
    column.position = 0;
    column.flags = c.flags;
    column.length = c.length;
    column.allow_zero_length = true;
    spec.columns.push_back(column);
  }
  spec.Place();
  return spec;
}

void AddIndex(TableLayout& spec, const char* name, std::uint32_t number, std::uint32_t real, std::uint8_t type) {
  spec.indexes.push_back({name, number, real, type});
}

// The engine's own security identifier: owner of the system tables (the
// user and group identifiers are in table_grants.h).
const ByteArray kEngineSid = {0x65, 0x89};

// Sets a column by name; a column the table lacks is left out.
void Set(TableWriter& table, const char* column, const Variant& value) {
  int index = table.FindColumn(column);
  if (index >= 0) table.SetValue(static_cast<std::size_t>(index), value);
}

Variant LongValue(std::uint32_t value) { return Variant(static_cast<long>(static_cast<std::int32_t>(value))); }

void CatalogRow(TableWriter& catalog, std::uint32_t id, std::uint32_t parent, const char* name, int type,
                double created, const ByteArray& owner, std::uint32_t flags,
                const std::vector<std::uint8_t>* properties = nullptr) {
  catalog.AddNew();
  Set(catalog, "Id", LongValue(id));
  Set(catalog, "ParentId", LongValue(parent));
  Set(catalog, "Name", Variant(name));
  Set(catalog, "Type", Variant(static_cast<short>(type)));
  Set(catalog, "DateCreate", Variant(OleDate{created}));
  Set(catalog, "DateUpdate", Variant(OleDate{created}));
  Set(catalog, "Owner", Variant(owner));
  Set(catalog, "Flags", LongValue(flags));
  if (properties != nullptr && !properties->empty()) Set(catalog, "LvProp", Variant(*properties));
  catalog.Update();
}

void PermissionRow(TableWriter& permissions, std::uint32_t object, std::uint32_t rights, const ByteArray& sid,
                   bool inheritable) {
  permissions.AddNew();
  Set(permissions, "ObjectId", LongValue(object));
  Set(permissions, "ACM", LongValue(rights));
  Set(permissions, "SID", Variant(sid));
  Set(permissions, "FInheritable", Variant(static_cast<short>(inheritable ? VARIANT_TRUE : VARIANT_FALSE), VT_BOOL));
  permissions.Update();
}

}  // namespace

std::vector<TableLayout> SystemTableLayouts() {
  using namespace format;
  std::vector<TableLayout> specs;
  // Entries in name order, as the engine writes them; numbers give the row layout.
  TableLayout objects = Make("MSysObjects", {
      {"Connect", kMemo, 9, kSysVariable, 0},
      {"Database", kMemo, 8, kSysVariable, 0},
      {"DateCreate", kDateTime, 4, kSysFixed, 8},
      {"DateUpdate", kDateTime, 5, kSysFixed, 8},
      {"Flags", kLong, 7, kSysFixed, 4},
      {"ForeignName", kText, 10, kSysVariable, kSysTextLength},
      {"Id", kLong, 0, kSysFixed, 4},
      {"Lv", kOle, 13, kSysVariable, 0},
      {"LvExtra", kOle, 16, kSysVariable, 0},
      {"LvModule", kOle, 15, kSysVariable, 0},
      {"LvProp", kOle, 14, kSysVariable, 0},
      {"Name", kText, 2, kSysVariable, kSysTextLength},
      {"Owner", kBinary, 6, kSysIdentifier, kSysTextLength},
      {"ParentId", kLong, 1, kSysFixed, 4},
      {"RmtInfoLong", kOle, 12, kSysVariable, 0},
      {"RmtInfoShort", kBinary, 11, kSysVariable, kSysTextLength},
      {"Type", kInteger, 3, kSysFixed, 2},
  });
  objects.real_indexes.push_back({{{1, true}, {2, true}}, kIndexFlagsAlways | kIndexUnique});
  objects.real_indexes.push_back({{{0, true}}, kIndexFlagsAlways | kIndexUnique});
  AddIndex(objects, "Id", 1, 1, kIndexTypePrimary);
  AddIndex(objects, "ParentIdName", 0, 0, 0);
  specs.push_back(std::move(objects));

  TableLayout aces = Make("MSysACEs", {
      {"ACM", kLong, 2, kSysFixed, 4},
      {"FInheritable", kBoolean, 3, kSysFixed, 1},
      {"ObjectId", kLong, 0, kSysFixed, 4},
      {"SID", kBinary, 1, kSysIdentifier, kSysTextLength},
  });
  aces.real_indexes.push_back({{{0, true}}, kIndexFlagsAlways | kIndexRequired});
  AddIndex(aces, "ObjectId", 0, 0, 0);
  specs.push_back(std::move(aces));

  TableLayout queries = Make("MSysQueries", {
      {"Attribute", kByte, 1, kSysFixed, 1},
      {"Expression", kMemo, 5, kSysVariable, 0},
      {"Flag", kInteger, 6, kSysFixed, 2},
      {"LvExtra", kLong, 7, kSysFixed, 4},
      {"Name1", kText, 3, kSysVariable, kSysTextLength},
      {"Name2", kText, 4, kSysVariable, kSysTextLength},
      {"ObjectId", kLong, 0, kSysFixed, 4},
      {"Order", kBinary, 2, kSysVariable, kSysTextLength},
  });
  queries.real_indexes.push_back({{{0, true}, {1, true}, {2, true}}, kIndexFlagsAlways | kIndexUnique});
  AddIndex(queries, "ObjectIdAttribute", 0, 0, kIndexTypePrimary);
  specs.push_back(std::move(queries));

  TableLayout relationships = Make("MSysRelationships", {
      {"ccolumn", kLong, 2, kSysFixed, 4},
      {"grbit", kLong, 1, kSysFixed, 4},
      {"icolumn", kLong, 3, kSysFixed, 4},
      {"szColumn", kText, 5, kSysVariable, kSysTextLength},
      {"szObject", kText, 4, kSysVariable, kSysTextLength},
      {"szReferencedColumn", kText, 7, kSysVariable, kSysTextLength},
      {"szReferencedObject", kText, 6, kSysVariable, kSysTextLength},
      {"szRelationship", kText, 0, kSysVariable, kSysTextLength},
  });
  relationships.real_indexes.push_back({{{0, true}}, kIndexFlagsAlways | kIndexIgnoreNulls});
  relationships.real_indexes.push_back({{{4, true}}, kIndexFlagsAlways | kIndexIgnoreNulls});
  relationships.real_indexes.push_back({{{6, true}}, kIndexFlagsAlways | kIndexIgnoreNulls});
  AddIndex(relationships, "szObject", 1, 1, 0);
  AddIndex(relationships, "szReferencedObject", 2, 2, 0);
  AddIndex(relationships, "szRelationship", 0, 0, 0);
  specs.push_back(std::move(relationships));
  return specs;
}

void AddInitialCatalogRows(TableWriter& catalog, double created) {
  using namespace format;
  CatalogRow(catalog, kCatalogTablesId, kCatalogRootId, "Tables", kObjectTypeContainer, created, kEngineSid,
             kObjectFlagsEngine);
  CatalogRow(catalog, kCatalogDatabasesId, kCatalogRootId, "Databases", kObjectTypeContainer, created, kEngineSid,
             kObjectFlagsEngine);
  CatalogRow(catalog, kCatalogRelationshipsId, kCatalogRootId, "Relationships", kObjectTypeContainer, created,
             kEngineSid, kObjectFlagsEngine);
  CatalogRow(catalog, kCatalogMSysDbId, kCatalogDatabasesId, "MSysDb", kObjectTypeDatabase, created, kAdminSid,
             kObjectFlagsEngine);
  const char* names[] = {"MSysObjects", "MSysACEs", "MSysQueries", "MSysRelationships"};
  for (std::uint32_t i = 0; i < 4; ++i) {
    CatalogRow(catalog, kCatalogTableDefinitionPage + i, kCatalogTablesId, names[i], kObjectTypeTable, created,
               kEngineSid, kObjectFlagsEngine);
  }
}

void AddInitialPermissionRows(TableWriter& permissions) {
  using namespace format;
  PermissionRow(permissions, 2, 0x00060000, kAdminSid, false);
  PermissionRow(permissions, 3, 0x00060000, kAdminSid, false);
  PermissionRow(permissions, 4, 0x00060000, kAdminSid, false);
  PermissionRow(permissions, 5, 0x000E0000, kAdminSid, false);
  PermissionRow(permissions, kCatalogTablesId, 0x000F00FE, kUsersSid, true);
  PermissionRow(permissions, kCatalogTablesId, 0x00060001, kAdminSid, false);
  PermissionRow(permissions, kCatalogRelationshipsId, 0x000F00FE, kUsersSid, true);
  PermissionRow(permissions, kCatalogRelationshipsId, 0x00060001, kAdminSid, false);
  PermissionRow(permissions, kCatalogDatabasesId, 0x00060000, kAdminSid, false);
  PermissionRow(permissions, kCatalogMSysDbId, 0x0006000E, kAdminSid, false);
  PermissionRow(permissions, kCatalogMSysDbId, 0x0000000E, kAdminsSid, false);
  PermissionRow(permissions, 4, 0x00000014, kAdminsSid, false);
  PermissionRow(permissions, 5, 0x00000014, kAdminsSid, false);
  PermissionRow(permissions, 2, 0x00000014, kAdminsSid, false);
  PermissionRow(permissions, kCatalogTablesId, 0x000FFEFF, kAdminsSid, true);
  PermissionRow(permissions, kCatalogRelationshipsId, 0x000FFFFF, kAdminsSid, true);
}

void AddTableCatalogRow(TableWriter& catalog, const std::string& name, std::uint32_t tdef_page, double created,
                        const std::vector<std::uint8_t>& properties, const TableGrants& grants) {
  CatalogRow(catalog, tdef_page, grants.container, name.c_str(), format::kObjectTypeTable, created, grants.owner, 0,
             &properties);
}

void AddTablePermissionRows(TableWriter& permissions, std::uint32_t tdef_page, const TableGrants& grants) {
  for (const TableGrants::Entry& entry : grants.entries) PermissionRow(permissions, tdef_page, entry.rights, entry.sid, false);
}

}  // namespace kvdao::jet::internal
