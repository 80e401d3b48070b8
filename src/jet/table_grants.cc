#include "table_grants.h"

#include "database_file.h"
#include "kvdao/platform/text.h"
#include "record_cursor.h"

namespace kvdao::jet::internal {
namespace {

// Reads the rows of a system table field by field, by name.
class SystemRows {
 public:
  SystemRows(const std::shared_ptr<DatabaseFile>& file, const char* table)
      : cursor_(file, file->Table(table), std::nullopt) {}
  bool Next() {
    if (started_ && !cursor_.eof()) cursor_.MoveNext();
    started_ = true;
    return !cursor_.eof();
  }
  Variant Get(const char* field) {
    const FieldInfo* info = cursor_.def().FindField(field);
    return info == nullptr ? Variant() : cursor_.VariantValue(info->ordinal_position);
  }

 private:
  RecordCursor cursor_;
  bool started_ = false;
};

}  // namespace

TableGrants NewDatabaseTableGrants() {
  TableGrants grants;
  grants.owner = kAdminSid;
  grants.entries = {{0x000F00FE, kUsersSid}, {0x000FFEFF, kAdminsSid}};
  return grants;
}

TableGrants ReadTableGrants(const std::shared_ptr<DatabaseFile>& file) {
  TableGrants grants = NewDatabaseTableGrants();
  SystemRows objects(file, "MSysObjects");
  while (objects.Next()) {
    const Variant name_value = objects.Get("Name");
    const std::string_view name = name_value.text();
    const int type = objects.Get("Type").iVal();
    const Variant owner = objects.Get("Owner");
    if (name == "MSysDb" && owner.bytes() != nullptr && !owner.bytes()->empty()) grants.owner = *owner.bytes();
    if (name == "Tables" && type == format::kObjectTypeContainer) {
      grants.container = static_cast<std::uint32_t>(objects.Get("Id").lVal());
    }
  }
  std::vector<TableGrants::Entry> inherited;
  SystemRows permissions(file, "MSysACEs");
  while (permissions.Next()) {
    if (static_cast<std::uint32_t>(permissions.Get("ObjectId").lVal()) != grants.container) continue;
    if (permissions.Get("FInheritable").boolVal() == 0) continue;
    const Variant sid = permissions.Get("SID");
    if (sid.bytes() == nullptr) continue;
    inherited.push_back({static_cast<std::uint32_t>(permissions.Get("ACM").lVal()), *sid.bytes()});
  }
  if (!inherited.empty()) grants.entries = std::move(inherited);
  return grants;
}

}  // namespace kvdao::jet::internal
