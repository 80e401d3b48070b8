#include "long_value_writer.h"

#include <cstring>
#include <vector>

#include "byte_writer.h"
#include "format.h"

namespace kvdao::jet::internal {

void WriteLongValue(DataPageWriter& pages, std::string& value) {
  const std::size_t length = value.size();
  std::uint8_t reference[format::kLongValueHeaderSize] = {};
  if (length <= kMaxInlineLongValue) {
    StoreU32(reference, static_cast<std::uint32_t>(length) | format::kLongValueInline);
    value.insert(0, reinterpret_cast<const char*>(reference), sizeof reference);
    return;
  }
  const std::size_t max_row = DataPageWriter::MaxRowSize(format::kJet4.page_size);
  std::uint32_t pointer = 0;
  if (length <= max_row) {
    std::span<std::uint8_t> row = pages.Add(length, pointer);
    std::memcpy(row.data(), value.data(), length);
    StoreU32(reference, static_cast<std::uint32_t>(length) | format::kLongValueSinglePage);
  } else {
    // A chain: written last part first so that each part knows the next.
    const std::size_t part = max_row - 4;
    std::size_t parts = (length + part - 1) / part;
    std::uint32_t next = 0;
    for (std::size_t i = parts; i-- > 0;) {
      std::size_t begin = i * part;
      std::size_t size = std::min(part, length - begin);
      std::span<std::uint8_t> row = pages.Add(size + 4, pointer);
      StoreU32(row.data(), next);
      std::memcpy(row.data() + 4, value.data() + begin, size);
      next = pointer;
    }
    StoreU32(reference, static_cast<std::uint32_t>(length));
  }
  StoreU32(reference + 4, pointer);
  value.assign(reinterpret_cast<const char*>(reference), sizeof reference);
}

}  // namespace kvdao::jet::internal
