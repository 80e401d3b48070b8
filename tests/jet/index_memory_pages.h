#pragma once

// An in-memory PageWriter for index tests: pages live in a vector, page 0
// is never handed out (Jet's header page), and every allocation is checked
// to come from the owner the builder was given.

#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "kvdao/jet/dao_exception.h"
#include "page_writer.h"

namespace kvdao::jet::internal::test {

class MemoryPages : public PageWriter {
 public:
  explicit MemoryPages(std::uint32_t owner) : owner_(owner), pages_(1, std::vector<std::uint8_t>(4096)) {}

  std::uint32_t PageSize() const noexcept override { return 4096; }
  std::uint32_t AllocatePage(std::uint32_t owner_tdef_page) override {
    EXPECT_EQ(owner_tdef_page, owner_);
    pages_.emplace_back(4096, std::uint8_t{0});
    return static_cast<std::uint32_t>(pages_.size() - 1);
  }
  void FreePage(std::uint32_t, std::uint32_t) override { ADD_FAILURE() << "an index build frees no page"; }
  std::span<std::uint8_t> MutablePage(std::uint32_t page) override { return pages_.at(page); }
  std::span<const std::uint8_t> Page(std::uint32_t page) const override { return pages_.at(page); }

  std::uint32_t count() const noexcept { return static_cast<std::uint32_t>(pages_.size()); }
  // A fetcher for ReadIndexEntries: a page beyond the end is a damaged file.
  auto Fetcher() const {
    return [this](std::uint32_t page) -> std::span<const std::uint8_t> {
      if (page >= pages_.size()) throw DaoException("no page " + std::to_string(page));
      return pages_[page];
    };
  }

 private:
  std::uint32_t owner_;
  std::vector<std::vector<std::uint8_t>> pages_;
};

}  // namespace kvdao::jet::internal::test
