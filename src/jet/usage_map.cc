#include "usage_map.h"

#include "data_page.h"
#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {
namespace {

void AddBits(Bytes bitmap, std::uint64_t first_page, std::uint32_t page_count,
             std::vector<std::uint32_t>& out) {
  for (std::size_t i = 0; i < bitmap.size(); ++i) {
    std::uint8_t byte = bitmap[i];
    if (byte == 0) continue;
    for (int bit = 0; bit < 8; ++bit) {
      if ((byte & (1u << bit)) == 0) continue;
      std::uint64_t page = first_page + i * 8 + bit;
      // Bits past the end of the file mark nothing a reader could visit;
      // stop early so damaged maps cannot make huge lists.
      if (page >= page_count) return;
      out.push_back(static_cast<std::uint32_t>(page));
    }
  }
}

}  // namespace

std::vector<std::uint32_t> ReadUsageMap(const PageSource& pages, std::uint32_t row_pointer) {
  const format::Layout& layout = pages.layout();
  RowId id = RowId::FromPointer(row_pointer);
  Bytes page = pages.Page(id.page, format::kPageData, "a usage map");
  if (id.row >= DataPageRowCount(page, layout)) {
    throw DaoException("The database file is damaged: a usage map row is missing.");
  }
  RowSlot slot = DataPageRow(page, layout, id.row);
  if (slot.deleted || slot.bytes.empty()) {
    throw DaoException("The database file is damaged: a usage map row is missing.");
  }
  ByteReader map(slot.bytes, "a usage map");
  std::vector<std::uint32_t> out;
  std::uint8_t type = map.U8(0);
  if (type == format::kUsageMapInline) {
    std::uint32_t start = map.U32(1);
    AddBits(slot.bytes.subspan(5), start,
            pages.page_count(), out);
  } else if (type == format::kUsageMapReference) {
    std::uint64_t per_page = static_cast<std::uint64_t>(layout.page_size - format::kUsageMapPageDataOffset) * 8;
    for (std::size_t i = 0; 1 + 4 * i + 4 <= slot.bytes.size(); ++i) {
      std::uint32_t map_page = map.U32(1 + 4 * i);
      if (map_page == 0) continue;
      Bytes bitmap = pages.Page(map_page, format::kPageUsageMap, "a usage bitmap");
      AddBits(bitmap.subspan(format::kUsageMapPageDataOffset), per_page * i, pages.page_count(), out);
    }
  } else {
    throw DaoException("The database file is damaged: unknown usage map type " + std::to_string(type) + ".");
  }
  return out;
}

}  // namespace kvdao::jet::internal
