#include "row_builder.h"

#include <algorithm>
#include <cstring>

#include "byte_writer.h"
#include "kvdao/platform/code_page.h"

namespace kvdao::jet::internal {

RowBuilder::RowBuilder(const TableLayout& spec) : spec_(spec) {
  for (const ColumnLayout& column : spec.columns) {
    column_count_ = std::max<std::uint16_t>(column_count_, column.number + 1);
  }
  fixed_size_ = spec.FixedSize();
  fixed_.assign(fixed_size_, 0);
  present_.assign(spec.columns.size(), false);
  boolean_.assign(spec.columns.size(), false);
  variable_.resize(spec.columns.size());
  for (std::size_t i = 0; i < spec.columns.size(); ++i) {
    if (!spec.columns[i].fixed()) by_var_index_.push_back(i);
  }
  std::sort(by_var_index_.begin(), by_var_index_.end(), [&](std::size_t a, std::size_t b) {
    return spec.columns[a].var_index < spec.columns[b].var_index;
  });
}

void RowBuilder::Clear() noexcept {
  std::fill(fixed_.begin(), fixed_.end(), 0);
  std::fill(present_.begin(), present_.end(), false);
  std::fill(boolean_.begin(), boolean_.end(), false);
}

void RowBuilder::SetNull(std::size_t column) noexcept {
  const ColumnLayout& spec = spec_.columns[column];
  present_[column] = false;
  boolean_[column] = false;
  if (spec.fixed()) std::memset(&fixed_[spec.fixed_offset], 0, FixedTypeSize(spec.type));
}

void RowBuilder::SetFixed(std::size_t column, const std::uint8_t* bytes) noexcept {
  const ColumnLayout& spec = spec_.columns[column];
  std::memcpy(&fixed_[spec.fixed_offset], bytes, FixedTypeSize(spec.type));
  present_[column] = true;
}

void RowBuilder::SetBoolean(std::size_t column, bool value) noexcept {
  present_[column] = true;
  boolean_[column] = value;
}

std::string& RowBuilder::Variable(std::size_t column) {
  present_[column] = true;
  variable_[column].clear();
  return variable_[column];
}

std::span<const std::uint8_t> RowBuilder::Bytes(std::size_t column) const noexcept {
  const ColumnLayout& spec = spec_.columns[column];
  if (spec.fixed()) return {fixed_.data() + spec.fixed_offset, FixedTypeSize(spec.type)};
  const std::string& text = variable_[column];
  return {reinterpret_cast<const std::uint8_t*>(text.data()), present_[column] ? text.size() : 0};
}

std::size_t RowBuilder::EncodedSize() const noexcept {
  std::size_t size = 2 + fixed_size_ + (column_count_ + 7) / 8;
  if (!by_var_index_.empty()) {
    size += 2 * (by_var_index_.size() + 1) + 2;
    for (std::size_t column : by_var_index_) {
      if (present_[column]) size += variable_[column].size();
    }
  }
  return size;
}

void RowBuilder::Encode(std::uint8_t* out) const noexcept {
  StoreU16(out, column_count_);
  std::uint8_t* p = out + 2;
  if (fixed_size_ != 0) std::memcpy(p, fixed_.data(), fixed_size_);  // a table of variable columns has none
  p += fixed_size_;
  if (!by_var_index_.empty()) {
    // Variable values in offset-table order, then the offsets stored
    // backwards: end of data first, variable column 0 last.
    const std::size_t count = by_var_index_.size();
    std::uint16_t offsets[256];
    for (std::size_t k = 0; k < count; ++k) {
      std::size_t column = by_var_index_[k];
      offsets[k] = static_cast<std::uint16_t>(p - out);
      if (present_[column]) {
        const std::string& value = variable_[column];
        std::memcpy(p, value.data(), value.size());
        p += value.size();
      }
    }
    StoreU16(p, static_cast<std::uint16_t>(p - out));
    p += 2;
    for (std::size_t k = count; k-- > 0;) {
      StoreU16(p, offsets[k]);
      p += 2;
    }
    StoreU16(p, static_cast<std::uint16_t>(count));
    p += 2;
  }
  std::size_t mask_size = (column_count_ + 7) / 8;
  std::memset(p, 0, mask_size);
  for (std::size_t i = 0; i < spec_.columns.size(); ++i) {
    const ColumnLayout& column = spec_.columns[i];
    bool bit = column.type == format::kBoolean ? boolean_[i] : present_[i];
    if (bit) p[column.number / 8] = static_cast<std::uint8_t>(p[column.number / 8] | (1u << (column.number % 8)));
  }
}

void EncodeText(std::string_view cp1252, bool compressible, std::string& out) {
  out.clear();
  const std::size_t n = cp1252.size();
  bool compress = compressible && n > 2 && n <= format::kMaxCompressedTextChars;
  if (compress) {
    for (unsigned char c : cp1252) {
      // Bytes 0x80-0x9F are characters above U+00FF in code page 1252.
      if (c == 0 || (c >= 0x80 && c < 0xA0)) {
        compress = false;
        break;
      }
    }
  }
  if (compress) {
    out.reserve(n + 2);
    out.push_back(static_cast<char>(format::kCompressedTextMarker[0]));
    out.push_back(static_cast<char>(format::kCompressedTextMarker[1]));
    out.append(cp1252);
    return;
  }
  out.resize(2 * n);
  for (std::size_t i = 0; i < n; ++i) {
    char32_t cp = platform::CodePointFrom1252(static_cast<unsigned char>(cp1252[i]));
    out[2 * i] = static_cast<char>(cp & 0xFF);
    out[2 * i + 1] = static_cast<char>((cp >> 8) & 0xFF);
  }
}

}  // namespace kvdao::jet::internal
