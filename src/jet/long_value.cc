#include "long_value.h"

#include <algorithm>

#include "data_page.h"
#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {
namespace {

Bytes LongValueRow(const PageSource& pages, std::uint32_t pointer) {
  RowId id = RowId::FromPointer(pointer);
  Bytes page = pages.Page(id.page, format::kPageData, "long value data");
  if (id.row >= DataPageRowCount(page, pages.layout())) {
    throw DaoException("The database file is damaged: a long value points to a missing row.");
  }
  RowSlot slot = DataPageRow(page, pages.layout(), id.row);
  if (slot.deleted) throw DaoException("The database file is damaged: a long value points to a deleted row.");
  return slot.bytes;
}

}  // namespace

Bytes ReadLongValue(const PageSource& pages, Bytes reference, std::vector<std::uint8_t>& buffer) {
  ByteReader header(reference, "a long value reference");
  std::uint32_t word = header.U32(0);
  std::uint32_t length = word & format::kLongValueLengthMask;
  std::uint32_t pointer = header.U32(4);
  if ((word & format::kLongValueInline) != 0) {
    return header.Slice(format::kLongValueHeaderSize, length);
  }
  if ((word & format::kLongValueSinglePage) != 0) {
    Bytes row = LongValueRow(pages, pointer);
    if (length > row.size()) {
      throw DaoException("The database file is damaged: a long value is longer than its row.");
    }
    return row.first(length);
  }
  // A chain of rows: the length bounds how much may be gathered, and each
  // row adds at least one byte or ends the chain, so damage cannot loop.
  if (length > pages.file().size()) {
    throw DaoException("The database file is damaged: a long value is longer than the file.");
  }
  buffer.clear();
  while (buffer.size() < length) {
    if (pointer == 0) {
      throw DaoException("The database file is damaged: a long value chain ends early.");
    }
    Bytes row = LongValueRow(pages, pointer);
    if (row.size() < 4) throw DaoException("The database file is damaged: a long value row is too short.");
    pointer = LoadU32(row.data());
    Bytes part = row.subspan(4);
    if (part.empty()) throw DaoException("The database file is damaged: a long value row is empty.");
    std::size_t take = std::min<std::size_t>(part.size(), length - buffer.size());
    buffer.insert(buffer.end(), part.begin(), part.begin() + static_cast<std::ptrdiff_t>(take));
  }
  return {buffer.data(), buffer.size()};
}

}  // namespace kvdao::jet::internal
