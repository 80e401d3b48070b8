#include "kvdao/jet/recordset.h"

#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/text.h"
#include "record_cursor.h"

namespace kvdao::jet {

Recordset::Recordset(std::unique_ptr<internal::RecordCursor> cursor) : cursor_(std::move(cursor)) {}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

internal::RecordCursor& Recordset::cursor() const {
  if (!cursor_) throw DaoException("Object invalid or no longer set.");
  return *cursor_;
}

bool Recordset::IsEOF() const { return cursor().eof(); }

void Recordset::MoveNext() {
  if (cursor().eof()) throw DaoException("No current record.");
  cursor().MoveNext();
}

void Recordset::MoveLast() { cursor().MoveLast(); }

int Recordset::GetFieldCount() const { return static_cast<int>(cursor().def().fields.size()); }

const FieldInfo& Recordset::GetFieldInfo(int index) const {
  const auto& fields = cursor().def().fields;
  if (index < 0 || static_cast<std::size_t>(index) >= fields.size()) {
    throw DaoException("Item not found in this collection.");
  }
  return fields[static_cast<std::size_t>(index)];
}

int Recordset::FindField(std::string_view name) const noexcept {
  if (!cursor_) return -1;
  const auto& fields = cursor_->def().fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (platform::CompareNoCase1252(fields[i].name, name) == 0) return static_cast<int>(i);
  }
  return -1;
}

Variant Recordset::GetFieldValue(std::string_view name) const {
  int index = FindField(name);
  if (index < 0) throw DaoException("Item not found in this collection: " + std::string(name) + ".");
  return GetFieldValue(index);
}

Variant Recordset::GetFieldValue(int index) const {
  GetFieldInfo(index);  // range check
  if (cursor().eof()) throw DaoException("No current record.");
  return cursor().VariantValue(index);
}

const FieldValue& Recordset::GetFieldView(int index) const {
  GetFieldInfo(index);  // range check
  if (cursor().eof()) throw DaoException("No current record.");
  return cursor().Value(index);
}

std::span<const FieldValue> Recordset::GetRecordView() const {
  if (cursor().eof()) throw DaoException("No current record.");
  return cursor().AllValues();
}

void Recordset::SetTextEncoding(TextEncoding encoding) { cursor().SetTextEncoding(encoding); }

long Recordset::GetRecordCount() const { return cursor().RecordCount(); }

void Recordset::Close() { cursor_.reset(); }

}  // namespace kvdao::jet
