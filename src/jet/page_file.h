#pragma once

// PageFile: a Jet 4 file being written. Pages live in memory while they are
// being filled; a writer that is done with a page (a full data page) retires
// it, which writes it to a temporary file beside the target and frees its
// memory, so that memory stays flat however many rows are written. Commit
// writes what is still in memory, flushes the file to disk and renames it
// over the target; a PageFile destroyed without Commit removes its
// temporary file and leaves the target untouched.
//
// The file also keeps which pages each table took in this session (for the
// tables' usage maps) and which pages were given back (for the file's own
// map of free pages).

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "page_writer.h"

namespace kvdao::jet::internal {

class PageFile final : public PageWriter {
 public:
  // A new, empty file to be committed at target. DaoException when the
  // temporary file cannot be made.
  static std::unique_ptr<PageFile> Create(const std::string& target);
  // A copy of the existing file at target, made beside it, to be changed
  // and committed over it. free_pages: the pages the file's free-page map
  // marks free; they are handed out before the file grows. DaoException
  // when the copy cannot be made or the file is not a whole number of pages.
  static std::unique_ptr<PageFile> OpenCopy(const std::string& target, std::vector<std::uint32_t> free_pages);

  ~PageFile() override;
  PageFile(const PageFile&) = delete;
  PageFile& operator=(const PageFile&) = delete;

  std::uint32_t PageSize() const noexcept override;
  std::uint32_t AllocatePage(std::uint32_t owner_tdef_page) override;
  void FreePage(std::uint32_t owner_tdef_page, std::uint32_t page) override;
  std::span<std::uint8_t> MutablePage(std::uint32_t page) override;
  std::span<const std::uint8_t> Page(std::uint32_t page) const override;

  std::uint32_t PageCount() const noexcept { return static_cast<std::uint32_t>(pages_.size()); }
  // Pages a table took in this session, in the order it took them.
  const std::vector<std::uint32_t>& PagesTakenBy(std::uint32_t owner_tdef_page) const;
  // Pages given back and not taken again.
  const std::vector<std::uint32_t>& FreePages() const noexcept { return free_; }

  // Writes a page to the temporary file and drops it from memory; it is
  // read back if asked for again.
  void Retire(std::uint32_t page);
  // True once any page was taken, given back or changed.
  bool modified() const noexcept { return modified_; }
  // Removes the temporary file now, leaving the target as it was.
  void Discard() noexcept;
  // Writes every page, flushes and renames the file over the target.
  // DaoException when any step fails (the target is then untouched).
  void Commit();

 private:
  PageFile(std::string target, std::string temp, int fd);
  std::uint8_t* Resident(std::uint32_t page) const;
  void WriteOut(std::uint32_t page) const;

  std::string target_;
  std::string temp_;
  int fd_ = -1;
  bool committed_ = false;
  bool modified_ = false;
  // Null when the page is only on disk.
  mutable std::vector<std::unique_ptr<std::uint8_t[]>> pages_;
  mutable std::vector<bool> dirty_;
  std::vector<std::uint32_t> free_;
  std::unordered_map<std::uint32_t, std::vector<std::uint32_t>> taken_;
};

}  // namespace kvdao::jet::internal
