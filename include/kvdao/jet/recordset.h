#pragma once

// kvdao::jet::Recordset: a forward cursor over the records of one table,
// in table-scan order or sorted by one field, as DAO's recordset presents
// it. Records are decoded straight from the file as the cursor moves; only
// a sorted recordset keeps anything per record (its sort keys and record
// positions), so reading a table never holds the table in memory.

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "kvdao/jet/field.h"
#include "kvdao/jet/field_value.h"
#include "kvdao/jet/tabledef.h"
#include "kvdao/platform/variant.h"

namespace kvdao::jet {

namespace internal {
class RecordCursor;
class RecordAppender;
}

// DAO recordset types and options (accepted for compatibility; recordsets
// on opened files are read-only, those on databases being written add
// records).
enum RecordsetTypeEnum : int { dbOpenTable = 1, dbOpenDynaset = 2, dbOpenSnapshot = 4, dbOpenForwardOnly = 8 };
enum RecordsetOptionEnum : int { dbReadOnly = 4, dbForwardOnly = 0x100 };

class Recordset {
 public:
  explicit Recordset(std::unique_ptr<internal::RecordCursor> cursor);
  explicit Recordset(std::unique_ptr<internal::RecordAppender> appender);
  Recordset(Recordset&&) noexcept;
  Recordset& operator=(Recordset&&) noexcept;
  ~Recordset();

  // True after the last record (or at once when there is none).
  bool IsEOF() const;
  // Moves to the next record; a DaoException when already at the end.
  void MoveNext();
  // Moves to the last record (stays at the end when there is none).
  void MoveLast();

  int GetFieldCount() const;
  const FieldInfo& GetFieldInfo(int index) const;
  // Position of a field (case-insensitive), or -1.
  int FindField(std::string_view name) const noexcept;

  // The current record's value as a variant: NULL as VT_NULL, Double VT_R8,
  // Single VT_R4, Text and Memo as 8-bit VT_BSTR, Date VT_DATE, Boolean
  // VT_BOOL, Byte VT_UI1, Integer VT_I2, Long VT_I4, Currency VT_CY, Binary
  // and OLE as byte arrays, GUID as "{...}" text, Decimal as its exact text.
  // A missing field
  // or no current record raises a DaoException.
  Variant GetFieldValue(std::string_view name) const;
  Variant GetFieldValue(int index) const;

  // The current record's value without copying (see FieldValue).
  const FieldValue& GetFieldView(int index) const;
  // Every field of the current record at once, in field order: the fast
  // path for reading whole tables (valid until the recordset moves).
  std::span<const FieldValue> GetRecordView() const;
  void SetTextEncoding(TextEncoding encoding);

  // Records the cursor will visit in all (the table's record count for a
  // table scan before it is complete).
  long GetRecordCount() const;

  // Adding records (table-type recordsets on a database being written):
  // AddNew starts a record with every field null, SetFieldValue stages a
  // value (converted to the field's type; a DaoException when it cannot be,
  // or is too long), Update stores the record (a DaoException when a
  // required field is null or a unique index already holds its key; the
  // record then stays staged). A recordset that cannot add records raises a
  // DaoException.
  void AddNew();
  void SetFieldValue(std::string_view name, const Variant& value);
  void SetFieldValue(int index, const Variant& value);
  void Update();
  void CancelUpdate();
  // DAO's Index property: the index records are kept in order of. Records
  // are stored in the order they are added; every index is kept whatever
  // the current one is. A DaoException when the table has no such index.
  void SetCurrentIndex(std::string_view index);
  const std::string& GetCurrentIndex() const;

  void Close();

 private:
  internal::RecordCursor& cursor() const;
  internal::RecordAppender& appender() const;
  const TableDef& def() const;
  std::unique_ptr<internal::RecordCursor> cursor_;
  std::unique_ptr<internal::RecordAppender> appender_;
};

}  // namespace kvdao::jet
