#include "data_page_writer.h"

#include "byte_writer.h"
#include "bytes.h"
#include "format.h"
#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {
namespace {

constexpr std::size_t kHeader = static_cast<std::size_t>(format::kJet4DataHeaderSize);
constexpr std::uint32_t kMaxRowsPerPage = 255;

}  // namespace

std::size_t DataPageWriter::MaxRowSize(std::uint32_t page_size) noexcept { return page_size - kHeader - 2; }

void DataPageWriter::NewPage() {
  if (current_ != 0 && on_full_ != nullptr) on_full_(on_full_context_, current_);
  current_ = pages_.AllocatePage(taker_);
  taken_.push_back(current_);
  std::span<std::uint8_t> page = pages_.MutablePage(current_);
  page[0] = format::kPageData;
  page[1] = 0x01;
  StoreU16(page.data() + 2, static_cast<std::uint16_t>(page.size() - kHeader));
  StoreU32(page.data() + format::kJet4.data_owner_offset, owner_);
}

bool DataPageWriter::ResumeIfPacked(std::uint32_t page_number) {
  std::span<const std::uint8_t> page = pages_.Page(page_number);
  if (page[0] != format::kPageData || LoadU32(page.data() + format::kJet4.data_owner_offset) != owner_) return false;
  const std::size_t rows = LoadU16(page.data() + format::kJet4.data_row_count_offset);
  if (rows >= kMaxRowsPerPage || kHeader + 2 * rows > page.size()) return false;
  std::size_t end = page.size();
  for (std::size_t i = 0; i < rows; ++i) {
    std::size_t start = LoadU16(page.data() + kHeader + 2 * i) & format::kRowOffsetMask;
    if (start >= end || start < kHeader + 2 * rows) return false;
    end = start;
  }
  if (LoadU16(page.data() + 2) != end - kHeader - 2 * rows) return false;
  current_ = page_number;
  return true;
}

std::span<std::uint8_t> DataPageWriter::Add(std::size_t size, std::uint32_t& row_pointer) {
  const std::uint32_t page_size = pages_.PageSize();
  if (size > MaxRowSize(page_size)) {
    throw DaoException("Record is too large: the row needs " + std::to_string(size) + " bytes; a page holds " +
                       std::to_string(MaxRowSize(page_size)) + ".");
  }
  for (int attempt = 0; attempt < 2; ++attempt) {
    if (current_ != 0) {
      std::span<std::uint8_t> page = pages_.MutablePage(current_);
      std::uint16_t free_space = LoadU16(page.data() + 2);
      std::uint16_t rows = LoadU16(page.data() + format::kJet4.data_row_count_offset);
      if (rows < kMaxRowsPerPage && free_space >= size + 2) {
        std::uint16_t end = rows == 0 ? static_cast<std::uint16_t>(page_size)
                                      : static_cast<std::uint16_t>(LoadU16(page.data() + kHeader + 2 * (rows - 1)) &
                                                                   format::kRowOffsetMask);
        std::uint16_t start = static_cast<std::uint16_t>(end - size);
        StoreU16(page.data() + kHeader + 2 * rows, start);
        StoreU16(page.data() + format::kJet4.data_row_count_offset, static_cast<std::uint16_t>(rows + 1));
        StoreU16(page.data() + 2, static_cast<std::uint16_t>(free_space - size - 2));
        row_pointer = (current_ << 8) | rows;
        return page.subspan(start, size);
      }
    }
    NewPage();
  }
  throw DaoException("Record is too large.");
}

}  // namespace kvdao::jet::internal
