#include "kvdao/jet/recordset.h"

#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/text.h"
#include "record_appender.h"
#include "record_cursor.h"

namespace kvdao::jet {

Recordset::Recordset(std::unique_ptr<internal::RecordCursor> cursor) : cursor_(std::move(cursor)) {}
Recordset::Recordset(std::unique_ptr<internal::RecordAppender> appender) : appender_(std::move(appender)) {}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

internal::RecordCursor& Recordset::cursor() const {
  if (!cursor_) throw DaoException("Object invalid or no longer set.");
  return *cursor_;
}

internal::RecordAppender& Recordset::appender() const {
  if (!appender_) {
    if (!cursor_) throw DaoException("Object invalid or no longer set.");
    throw DaoException("Cannot update. Database or object is read-only.");
  }
  return *appender_;
}

const TableDef& Recordset::def() const { return appender_ ? appender_->def() : cursor().def(); }

bool Recordset::IsEOF() const { return appender_ ? true : cursor().eof(); }

void Recordset::MoveNext() {
  if (cursor().eof()) throw DaoException("No current record.");
  cursor().MoveNext();
}

void Recordset::MoveLast() {
  if (!appender_) cursor().MoveLast();
}

int Recordset::GetFieldCount() const { return static_cast<int>(def().fields.size()); }

const FieldInfo& Recordset::GetFieldInfo(int index) const {
  const auto& fields = def().fields;
  if (index < 0 || static_cast<std::size_t>(index) >= fields.size()) {
    throw DaoException("Item not found in this collection.");
  }
  return fields[static_cast<std::size_t>(index)];
}

int Recordset::FindField(std::string_view name) const noexcept {
  if (!cursor_ && !appender_) return -1;
  const auto& fields = appender_ ? appender_->def().fields : cursor_->def().fields;
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

long Recordset::GetRecordCount() const {
  return appender_ ? static_cast<long>(appender_->table().row_count()) : cursor().RecordCount();
}

void Recordset::AddNew() { appender().table().AddNew(); }

void Recordset::SetFieldValue(std::string_view name, const Variant& value) {
  int index = FindField(name);
  if (index < 0) throw DaoException("Item not found in this collection: " + std::string(name) + ".");
  SetFieldValue(index, value);
}

void Recordset::SetFieldValue(int index, const Variant& value) {
  internal::TableWriter& table = appender().table();
  if (index < 0 || static_cast<std::size_t>(index) >= table.spec().columns.size()) {
    throw DaoException("Item not found in this collection.");
  }
  table.SetValue(static_cast<std::size_t>(index), value);
}

void Recordset::Update() { appender().table().Update(); }

void Recordset::CancelUpdate() { appender().table().CancelUpdate(); }

void Recordset::SetCurrentIndex(std::string_view index) { appender().SetCurrentIndex(index); }

const std::string& Recordset::GetCurrentIndex() const { return appender().current_index(); }

void Recordset::Close() {
  cursor_.reset();
  appender_.reset();
}

}  // namespace kvdao::jet
