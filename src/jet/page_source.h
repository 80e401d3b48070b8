#pragma once

// PageSource: read access to the pages of one database file. The file is
// mapped into memory once; a page is handed out as a span into the mapping
// after checking that its number lies inside the file, so decoders never see
// bytes beyond the end of a page or of the file.

#include <cstdint>
#include <string>

#include "bytes.h"
#include "format.h"

namespace kvdao::jet::internal {

class PageSource {
 public:
  // Maps the file at path (DaoException when it cannot be opened or read).
  explicit PageSource(const std::string& path);
  // Wraps bytes the caller keeps alive (used for in-memory databases).
  explicit PageSource(Bytes bytes);
  ~PageSource();
  PageSource(const PageSource&) = delete;
  PageSource& operator=(const PageSource&) = delete;

  // The whole file.
  Bytes file() const noexcept { return {data_, size_}; }

  // Sets the page size once the header has told it.
  void SetLayout(const format::Layout& layout);
  const format::Layout& layout() const noexcept { return *layout_; }
  std::uint32_t page_size() const noexcept { return layout_->page_size; }
  std::uint32_t page_count() const noexcept { return page_count_; }

  // Page number n; DaoException when n is outside the file.
  Bytes Page(std::uint32_t n) const;
  // Tells the system that pages [first, first + count) are not needed soon:
  // their memory is given back and they are read again if touched. Readers
  // that sweep a large table call it behind them so that memory use stays
  // flat however large the table is. Spans into those pages stay valid.
  void Release(std::uint32_t first, std::uint32_t count) const noexcept;

  // Page n, also checking its type byte.
  Bytes Page(std::uint32_t n, std::uint8_t expected_type, const char* what) const;

 private:
  const std::uint8_t* data_ = nullptr;
  std::size_t size_ = 0;
  bool mapped_ = false;
  const format::Layout* layout_ = &format::kJet4;
  std::uint32_t page_count_ = 0;
};

}  // namespace kvdao::jet::internal
