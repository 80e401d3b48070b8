#include "kvdao/jet/tabledef.h"

#include "kvdao/platform/text.h"

namespace kvdao::jet {

const FieldInfo* TableDef::FindField(std::string_view field_name) const noexcept {
  for (const FieldInfo& field : fields) {
    if (platform::CompareNoCase1252(field.name, field_name) == 0) return &field;
  }
  return nullptr;
}

const char* DaoTypeName(int type) noexcept {
  switch (type) {
    case dbBoolean: return "Boolean";
    case dbByte: return "Byte";
    case dbInteger: return "Integer";
    case dbLong: return "Long";
    case dbCurrency: return "Currency";
    case dbSingle: return "Single";
    case dbDouble: return "Double";
    case dbDate: return "Date";
    case dbBinary: return "Binary";
    case dbText: return "Text";
    case dbLongBinary: return "OLE";
    case dbMemo: return "Memo";
    case dbGUID: return "GUID";
    case dbDecimal: return "Decimal";
    default: return "Unknown";
  }
}

}  // namespace kvdao::jet
