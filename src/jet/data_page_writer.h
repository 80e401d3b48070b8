#pragma once

// Filling data pages: rows are packed from the end of a page towards its
// row-offset table, one page at a time; a new page is taken when the next
// row does not fit (or the page holds 255 rows, the most a row pointer can
// name). Used for table rows, long values (pages owned by "LVAL") and the
// rows that hold usage maps (pages owned by no table).

#include <cstdint>
#include <span>
#include <vector>

#include "page_writer.h"

namespace kvdao::jet::internal {

class DataPageWriter {
 public:
  // owner: the value written in each page's owner field; taker: the table
  // definition page the pages are recorded under.
  DataPageWriter(PageWriter& pages, std::uint32_t owner, std::uint32_t taker) noexcept
      : pages_(pages), owner_(owner), taker_(taker) {}

  // Continues filling an existing page of the same owner.
  void Resume(std::uint32_t page) noexcept { current_ = page; }
  // Continues filling a page that came with the file when it is laid out
  // the way this writer packs pages (a data page of this owner, rows packed
  // downwards from the end, the free-space field equal to the gap); returns
  // whether it does. A page laid out otherwise is left alone.
  bool ResumeIfPacked(std::uint32_t page);

  // Room for a row of size bytes; returns where it goes and its row pointer
  // (page << 8 | row). Called with a size the page can never hold, it
  // throws DaoException ("Record is too large").
  std::span<std::uint8_t> Add(std::size_t size, std::uint32_t& row_pointer);

  std::uint32_t current_page() const noexcept { return current_; }
  // Every page this writer took, in order.
  const std::vector<std::uint32_t>& pages() const noexcept { return taken_; }
  // Largest row a page can hold.
  static std::size_t MaxRowSize(std::uint32_t page_size) noexcept;
  // Called with each page the writer leaves behind as full.
  void OnPageFull(void (*callback)(void*, std::uint32_t), void* context) noexcept {
    on_full_ = callback;
    on_full_context_ = context;
  }

 private:
  void NewPage();

  PageWriter& pages_;
  std::uint32_t owner_;
  std::uint32_t taker_;
  std::uint32_t current_ = 0;
  void (*on_full_)(void*, std::uint32_t) = nullptr;
  void* on_full_context_ = nullptr;
  std::vector<std::uint32_t> taken_;
};

}  // namespace kvdao::jet::internal
