#include "usage_map_writer.h"

#include <algorithm>
#include <cstring>

#include "byte_writer.h"
#include "bytes.h"
#include "data_page.h"
#include "format.h"
#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {
namespace {

// A map row: the writer makes 69-byte rows; Access makes longer ones too
// (an inline bitmap of more than 64 bytes covers more pages).
std::span<std::uint8_t> MapRow(PageFile& file, std::uint32_t row_pointer) {
  RowId id = RowId::FromPointer(row_pointer);
  std::span<std::uint8_t> page = file.MutablePage(id.page);
  RowSlot slot = DataPageRow(page, format::kJet4, id.row, true);
  if (slot.bytes.size() < static_cast<std::size_t>(format::kUsageMapRowSize)) {
    throw DaoException("The database file is damaged: a usage map row has an unexpected size.");
  }
  return page.subspan(static_cast<std::size_t>(slot.bytes.data() - page.data()), slot.bytes.size());
}

// Pages an inline map in this row covers.
std::uint32_t InlinePages(std::span<const std::uint8_t> row) noexcept {
  return static_cast<std::uint32_t>((row.size() - 5) * 8);
}

void SetBit(std::uint8_t* bitmap, std::uint32_t bit) noexcept {
  bitmap[bit / 8] = static_cast<std::uint8_t>(bitmap[bit / 8] | (1u << (bit % 8)));
}

// Makes the row a reference map of `needed` cleared bitmap pages: reuses
// those the row names already, takes new ones for the rest.
std::vector<std::uint32_t> ReferencePages(PageFile& file, std::uint32_t row_pointer, std::size_t needed) {
  std::span<std::uint8_t> row = MapRow(file, row_pointer);
  if (needed > (row.size() - 1) / 4) throw DaoException("The database is larger than a usage map can describe.");
  std::vector<std::uint32_t> pages(needed, 0);
  if (row[0] == format::kUsageMapReference) {
    for (std::size_t i = 0; i < needed; ++i) pages[i] = LoadU32(row.data() + 1 + 4 * i);
  }
  for (std::uint32_t& page : pages) {
    if (page == 0) page = file.AllocatePage(0);
    std::span<std::uint8_t> bitmap = file.MutablePage(page);
    std::fill(bitmap.begin(), bitmap.end(), 0);
    bitmap[0] = format::kPageUsageMap;
    bitmap[1] = 0x01;
  }
  row = MapRow(file, row_pointer);
  std::fill(row.begin(), row.end(), 0);
  row[0] = format::kUsageMapReference;
  for (std::size_t i = 0; i < pages.size(); ++i) StoreU32(row.data() + 1 + 4 * i, pages[i]);
  return pages;
}

}  // namespace

void WriteUsageMap(PageFile& file, std::uint32_t row_pointer, const std::vector<std::uint32_t>& sorted_pages) {
  std::span<std::uint8_t> row = MapRow(file, row_pointer);
  const std::uint32_t inline_pages = InlinePages(row);
  std::uint32_t start = sorted_pages.empty() ? 0 : (sorted_pages.front() & ~7u);
  if (!sorted_pages.empty() && sorted_pages.back() < inline_pages) start = 0;
  if (sorted_pages.empty() || sorted_pages.back() - start < inline_pages) {
    std::fill(row.begin(), row.end(), 0);
    row[0] = format::kUsageMapInline;
    StoreU32(row.data() + 1, start);
    for (std::uint32_t page : sorted_pages) SetBit(row.data() + 5, page - start);
    return;
  }
  const std::uint32_t per_page = (file.PageSize() - format::kUsageMapPageDataOffset) * 8;
  std::vector<std::uint32_t> bitmaps = ReferencePages(file, row_pointer, sorted_pages.back() / per_page + 1);
  for (std::uint32_t page : sorted_pages) {
    std::span<std::uint8_t> bitmap = file.MutablePage(bitmaps[page / per_page]);
    SetBit(bitmap.data() + format::kUsageMapPageDataOffset, page % per_page);
  }
}

void WriteGlobalUsageMap(PageFile& file, std::uint32_t row_pointer) {
  std::span<std::uint8_t> row = MapRow(file, row_pointer);
  const std::uint32_t inline_pages = InlinePages(row);
  if (file.PageCount() <= inline_pages && row[0] != format::kUsageMapReference) {
    std::fill(row.begin(), row.end(), 0);
    row[0] = format::kUsageMapInline;
    for (std::uint32_t page = file.PageCount(); page < inline_pages; ++page) SetBit(row.data() + 5, page);
    for (std::uint32_t page : file.FreePages()) SetBit(row.data() + 5, page);
    return;
  }
  const std::uint32_t per_page = (file.PageSize() - format::kUsageMapPageDataOffset) * 8;
  // Taking bitmap pages grows the file, which may need one more of them;
  // pages already named are reused, so this settles within two rounds.
  std::vector<std::uint32_t> bitmaps;
  do {
    bitmaps = ReferencePages(file, row_pointer, (file.PageCount() - 1) / per_page + 1);
  } while ((file.PageCount() - 1) / per_page + 1 > bitmaps.size());
  const std::uint32_t covered = static_cast<std::uint32_t>(bitmaps.size()) * per_page;
  for (std::uint32_t i = 0; i < bitmaps.size(); ++i) {
    std::uint8_t* bits = file.MutablePage(bitmaps[i]).data() + format::kUsageMapPageDataOffset;
    for (std::uint32_t page = std::max(file.PageCount(), i * per_page); page < std::min(covered, (i + 1) * per_page);
         ++page) {
      SetBit(bits, page - i * per_page);
    }
  }
  for (std::uint32_t page : file.FreePages()) {
    SetBit(file.MutablePage(bitmaps[page / per_page]).data() + format::kUsageMapPageDataOffset, page % per_page);
  }
}

}  // namespace kvdao::jet::internal
