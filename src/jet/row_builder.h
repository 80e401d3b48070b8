#pragma once

// RowBuilder: the record being added to a table, kept in the shape of a
// Jet 4 row so that encoding it is a few copies: the fixed-length values sit
// in a fixed-area buffer at their offsets, the variable-length values in one
// reusable buffer per column, booleans and nulls in the null mask. Nothing
// is allocated per row once the buffers have grown to the table's usual
// values.

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "table_layout.h"

namespace kvdao::jet::internal {

class RowBuilder {
 public:
  explicit RowBuilder(const TableLayout& spec);

  // Every column null (booleans false).
  void Clear() noexcept;
  void SetNull(std::size_t column) noexcept;
  // Fixed-length value: FixedTypeSize(type) bytes, little-endian.
  void SetFixed(std::size_t column, const std::uint8_t* bytes) noexcept;
  void SetBoolean(std::size_t column, bool value) noexcept;
  // The buffer of a variable-length column, cleared; fill it and the column
  // counts as present.
  std::string& Variable(std::size_t column);
  bool IsNull(std::size_t column) const noexcept { return !present_[column]; }
  // The staged value bytes of a column (fixed or variable).
  std::span<const std::uint8_t> Bytes(std::size_t column) const noexcept;

  // Bytes the encoded row takes.
  std::size_t EncodedSize() const noexcept;
  // Encodes the row into out (at least EncodedSize() bytes).
  void Encode(std::uint8_t* out) const noexcept;

 private:
  const TableLayout& spec_;
  std::uint16_t column_count_ = 0;  // highest column number + 1
  std::uint16_t fixed_size_ = 0;
  std::vector<std::uint8_t> fixed_;
  std::vector<bool> present_;
  std::vector<bool> boolean_;
  std::vector<std::string> variable_;
  std::vector<std::size_t> by_var_index_;  // variable columns in offset-table order
};

// Jet 4 text bytes of code page 1252 text: the compressed form (FF FE and
// one byte a character) when the column allows it, every character fits in
// one byte and it saves space; else UCS-2.
void EncodeText(std::string_view cp1252, bool compressible, std::string& out);

}  // namespace kvdao::jet::internal
