#pragma once

// Writing long values (Memo, OLE): small values follow their 12-byte
// reference inside the row; larger ones go to long-value pages, in one row
// when a page can hold them, else in a chain of rows each starting with a
// pointer to the next.

#include <cstdint>
#include <span>
#include <string>

#include "data_page_writer.h"

namespace kvdao::jet::internal {

// Values up to this size stay in the row.
inline constexpr std::size_t kMaxInlineLongValue = 64;

// Replaces `value` (the stored bytes) by what the row holds: the reference,
// followed by the bytes themselves when they stay in the row.
void WriteLongValue(DataPageWriter& long_value_pages, std::string& value);

}  // namespace kvdao::jet::internal
