#pragma once

// PageWriter: the page-level view of a Jet file while it is being written.
// Builders of table structures (data pages, index trees, usage maps) take
// pages from it and fill them in place; the writer decides where pages live
// in memory and when they reach the disk, and records which table owns each
// page so that the owner's usage map stays right.

#include <cstdint>
#include <span>

namespace kvdao::jet::internal {

class PageWriter {
 public:
  virtual ~PageWriter() = default;

  // Bytes per page (4096 for Jet 4).
  virtual std::uint32_t PageSize() const noexcept = 0;

  // A zero-filled page for the table whose definition starts on
  // owner_tdef_page: a free page when there is one, else a new page at the
  // end of the file. The page is recorded as owned by that table.
  virtual std::uint32_t AllocatePage(std::uint32_t owner_tdef_page) = 0;

  // Gives a page the table no longer uses back to the file's free pages.
  virtual void FreePage(std::uint32_t owner_tdef_page, std::uint32_t page) = 0;

  // A page's bytes for changing in place. The span stays valid until the
  // next AllocatePage call.
  virtual std::span<std::uint8_t> MutablePage(std::uint32_t page) = 0;

  // A page's bytes for reading (same validity as MutablePage).
  virtual std::span<const std::uint8_t> Page(std::uint32_t page) const = 0;
};

}  // namespace kvdao::jet::internal
