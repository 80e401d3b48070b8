#pragma once

// RecordCursor: the engine behind a Recordset. It walks a table in scan
// order, or in the order of one field, decoding the current row once per
// move and each field on demand.

#include <memory>
#include <optional>
#include <vector>

#include "database_file.h"
#include "row_decoder.h"
#include "table_scanner.h"
#include "value_decoder.h"

namespace kvdao::jet::internal {

struct SortOrder {
  int field = -1;
  bool descending = false;
};

class RecordCursor {
 public:
  RecordCursor(std::shared_ptr<DatabaseFile> file, std::shared_ptr<const OpenTable> table,
               std::optional<SortOrder> order);

  bool eof() const noexcept { return eof_; }
  void MoveNext();
  void MoveLast();
  long RecordCount() const noexcept;

  const TableDef& def() const noexcept { return table_->def; }
  const FieldValue& Value(int field);
  // Every field of the current row, decoded.
  std::span<const FieldValue> AllValues();
  // The value as a Variant, texts in code page 1252 whatever the encoding
  // of the views.
  Variant VariantValue(int field);
  void SetTextEncoding(TextEncoding encoding) noexcept {
    if (encoding == encoding_) return;
    encoding_ = encoding;
    ++stamp_;  // decoded values are stale
  }

 private:
  void Position(Bytes row);
  void Sort(const SortOrder& order);
  void Touch(std::uint32_t field);

  std::shared_ptr<DatabaseFile> file_;
  std::shared_ptr<const OpenTable> table_;
  TableScanner scanner_;
  RowDecoder decoder_;
  TextEncoding encoding_ = TextEncoding::kCp1252;
  bool eof_ = true;
  Bytes row_;
  std::vector<FieldValue> values_;
  // values_[i] is current when decoded_[i] == stamp_; moving bumps stamp_.
  std::vector<std::uint32_t> decoded_;
  std::uint32_t stamp_ = 1;
  std::uint32_t all_decoded_ = 0;
  // Every values_ entry that is not null is listed here, so that AllValues
  // can null the previous row's values without visiting every field.
  std::vector<std::uint32_t> touched_;
  std::vector<bool> is_touched_;
  std::vector<FieldBuffers> buffers_;
  FieldValue scratch_value_;
  FieldBuffers scratch_buffers_;
  // Sorted cursors: the rows in order, and the next one to visit.
  bool sorted_ = false;
  std::vector<RowId> order_;
  std::size_t next_ = 0;
};

}  // namespace kvdao::jet::internal
