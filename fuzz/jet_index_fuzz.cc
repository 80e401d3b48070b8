// Reads arbitrary pages as a Jet 4 index tree. The input is a root page
// number (4 bytes, little-endian) followed by the pages, page n starting
// n * 4096 bytes after it. Damage must end in DaoException; a tree that
// reads must rebuild into a tree that reads back to the same entries.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include "index_builder.h"
#include "index_reader.h"
#include "kvdao/jet/dao_exception.h"
#include "page_writer.h"

namespace {

using kvdao::jet::DaoException;
using namespace kvdao::jet::internal;

constexpr std::size_t kPage = 4096;

class VectorPages : public PageWriter {
 public:
  std::uint32_t PageSize() const noexcept override { return kPage; }
  std::uint32_t AllocatePage(std::uint32_t) override {
    pages_.emplace_back(kPage, std::uint8_t{0});
    return static_cast<std::uint32_t>(pages_.size());  // page 0 stays the file header
  }
  void FreePage(std::uint32_t, std::uint32_t) override {}
  std::span<std::uint8_t> MutablePage(std::uint32_t page) override { return pages_.at(page - 1); }
  std::span<const std::uint8_t> Page(std::uint32_t page) const override {
    if (page == 0 || page > pages_.size()) throw DaoException("no page " + std::to_string(page));
    return pages_[page - 1];
  }

 private:
  std::vector<std::vector<std::uint8_t>> pages_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 4) return 0;
  std::uint32_t root = static_cast<std::uint32_t>(data[0] | (data[1] << 8) | (data[2] << 16)) |
                       (static_cast<std::uint32_t>(data[3]) << 24);
  std::span<const std::uint8_t> image(data + 4, size - 4);
  auto fetch = [&](std::uint32_t page) -> std::span<const std::uint8_t> {
    if (page >= image.size() / kPage) throw DaoException("no page " + std::to_string(page));
    return image.subspan(page * kPage, kPage);
  };
  std::vector<IndexEntry> entries;
  try {
    entries = ReadIndexEntries(fetch, root);
  } catch (const DaoException&) {
    return 0;
  }
  VectorPages pages;
  std::uint32_t rebuilt;
  try {
    rebuilt = BuildIndexTree(pages, 1, entries);
  } catch (const DaoException&) {
    return 0;  // an entry too long for a page of its own
  }
  auto fetch_rebuilt = [&](std::uint32_t page) { return pages.Page(page); };
  std::vector<IndexEntry> again = ReadIndexEntries(fetch_rebuilt, rebuilt);
  if (again.size() != entries.size()) std::abort();
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (again[i].key != entries[i].key || again[i].data_page != entries[i].data_page ||
        again[i].data_row != entries[i].data_row) {
      std::abort();
    }
  }
  return 0;
}
