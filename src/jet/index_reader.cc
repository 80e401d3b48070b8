#include "index_reader.h"

#include <string>
#include <unordered_set>

#include "index_page.h"
#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {
namespace {

// Deeper than any real index: 3616-byte pages of at most 10-column keys hold
// dozens of entries each, so a few levels index billions of rows.
constexpr int kMaxDepth = 32;

class TreeReader {
 public:
  TreeReader(const IndexPageFetcher& fetch, std::vector<IndexEntry>& out) : fetch_(fetch), out_(out) {}

  // Jet may add leaves past the end of an index by linking them from the
  // last leaf before the levels above know of them; they are read here.
  void VisitTrailingLeaves() {
    while (last_leaf_next_ != 0) {
      std::uint32_t page_number = last_leaf_next_;
      last_leaf_next_ = 0;
      if (seen_.count(page_number) != 0) Damaged("has a leaf chain that loops");
      Visit(page_number, kMaxDepth);
    }
  }

  void AppendPages(std::vector<std::uint32_t>& out) const { out.insert(out.end(), seen_.begin(), seen_.end()); }

  void Visit(std::uint32_t page_number, int depth) {
    if (depth > kMaxDepth) Damaged("is nested too deeply");
    if (!seen_.insert(page_number).second) {
      Damaged("reaches page " + std::to_string(page_number) + " twice");
    }
    index_page::Page page = index_page::Decode(fetch_(page_number), page_number);
    if (page.leaf) {
      for (const index_page::PageEntry& entry : page.entries) Emit(entry);
      last_leaf_next_ = page.next;
      return;
    }
    if (page.entries.empty() && page.tail == 0) Damaged("has an intermediate page without children");
    for (const index_page::PageEntry& entry : page.entries) Visit(entry.child_page, depth + 1);
    if (page.tail != 0) Visit(page.tail, depth + 1);
  }

 private:
  [[noreturn]] void Damaged(const std::string& what) {
    throw DaoException("The database file is damaged: an index tree " + what + ".");
  }

  void Emit(const index_page::PageEntry& entry) {
    IndexEntry next{std::vector<std::uint8_t>(entry.key.begin(), entry.key.end()), entry.data_page, entry.data_row};
    if (!out_.empty() && !IndexEntryLess(out_.back(), next)) Damaged("has entries out of order");
    out_.push_back(std::move(next));
  }

  const IndexPageFetcher& fetch_;
  std::vector<IndexEntry>& out_;
  std::unordered_set<std::uint32_t> seen_;
  std::uint32_t last_leaf_next_ = 0;
};

}  // namespace

std::vector<IndexEntry> ReadIndexEntries(const IndexPageFetcher& page, std::uint32_t root,
                                         std::vector<std::uint32_t>* tree_pages) {
  std::vector<IndexEntry> entries;
  TreeReader reader(page, entries);
  reader.Visit(root, 0);
  reader.VisitTrailingLeaves();
  if (tree_pages != nullptr) reader.AppendPages(*tree_pages);
  return entries;
}

}  // namespace kvdao::jet::internal
