#include "index_builder.h"

#include <algorithm>
#include <string>

#include "index_page.h"
#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {
namespace {

// The stored bytes of one level's entries, back to back: key, data page and
// row, and on intermediate levels the child page.
class LevelEntries {
 public:
  void Add(Bytes key, Bytes pointers) {
    key_lengths_.push_back(static_cast<std::uint32_t>(key.size()));
    bytes_.insert(bytes_.end(), key.begin(), key.end());
    bytes_.insert(bytes_.end(), pointers.begin(), pointers.end());
    ends_.push_back(static_cast<std::uint32_t>(bytes_.size()));
  }
  std::size_t size() const noexcept { return ends_.size(); }
  Bytes Entry(std::size_t i) const noexcept {
    std::uint32_t begin = i == 0 ? 0 : ends_[i - 1];
    return Bytes(bytes_.data() + begin, ends_[i] - begin);
  }
  std::uint32_t KeyLength(std::size_t i) const noexcept { return key_lengths_[i]; }
  // The entry without a child page: what a level above repeats.
  Bytes LeafPart(std::size_t i) const noexcept {
    return Entry(i).first(key_lengths_[i] + index_page::kLeafPointerSize);
  }
  std::uint32_t ChildPage(std::size_t i) const noexcept {
    Bytes entry = Entry(i);
    const std::uint8_t* p = entry.data() + entry.size() - 4;
    return (std::uint32_t{p[0]} << 24) | (std::uint32_t{p[1]} << 16) | (std::uint32_t{p[2]} << 8) | p[3];
  }

 private:
  std::vector<std::uint8_t> bytes_;
  std::vector<std::uint32_t> ends_;
  std::vector<std::uint32_t> key_lengths_;
};

// One page of a level: entries [begin, end) stored on it with the prefix
// they share, and for intermediate pages the child named as tail.
struct PagePlan {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::uint32_t prefix = 0;
  bool has_tail = false;
  std::size_t tail = 0;
  std::uint32_t page = 0;
};

// What the first and last entries of a page have in common, up to the end of
// the data page number: the row byte always differs between entries.
std::uint32_t SharedPrefix(const LevelEntries& level, std::size_t first, std::size_t last) {
  Bytes a = level.Entry(first);
  Bytes b = level.Entry(last);
  std::size_t limit = std::min(level.KeyLength(first), level.KeyLength(last)) + 3u;
  std::size_t n = 0;
  while (n < limit && a[n] == b[n]) ++n;
  return static_cast<std::uint32_t>(n);
}

// Entries [begin, end), known to fit one page: compressed only when they do
// not fit uncompressed, as Jet does.
std::uint32_t PrefixFor(const LevelEntries& level, std::size_t begin, std::size_t end) {
  std::uint32_t total = 0;
  for (std::size_t i = begin; i < end; ++i) total += static_cast<std::uint32_t>(level.Entry(i).size());
  return total > index_page::kEntrySpace ? SharedPrefix(level, begin, end - 1) : 0;
}

// The longest run of entries from begin that one page holds. Adding an
// entry never lengthens the shared prefix, so the first entry that does not
// fit ends the run.
PagePlan FillPage(const LevelEntries& level, std::size_t begin) {
  PagePlan plan;
  plan.begin = plan.end = begin;
  std::uint32_t total = 0;
  for (std::size_t i = begin; i < level.size(); ++i) {
    std::uint32_t with_entry = total + static_cast<std::uint32_t>(level.Entry(i).size());
    std::uint32_t prefix = 0;
    if (with_entry > index_page::kEntrySpace) {
      prefix = SharedPrefix(level, begin, i);
      if (with_entry - prefix * static_cast<std::uint32_t>(i - begin) > index_page::kEntrySpace) break;
    }
    total = with_entry;
    plan.end = i + 1;
    plan.prefix = prefix;
  }
  if (plan.end == begin) {
    throw DaoException("An index entry of " + std::to_string(level.Entry(begin).size()) +
                       " bytes is too long for an index page.");
  }
  return plan;
}

std::vector<PagePlan> PlanLeaves(const LevelEntries& level) {
  std::vector<PagePlan> plans;
  for (std::size_t begin = 0; begin < level.size(); begin = plans.back().end) {
    plans.push_back(FillPage(level, begin));
  }
  return plans;
}

// Intermediate pages store an entry for each child but the last, which the
// header names as the tail. A page left with a single child stores it as an
// ordinary entry.
std::vector<PagePlan> PlanNodes(const LevelEntries& level) {
  std::vector<PagePlan> plans;
  for (std::size_t begin = 0; begin < level.size();) {
    PagePlan plan = FillPage(level, begin);
    if (plan.end < level.size()) {
      plan.has_tail = true;
      plan.tail = plan.end;
      begin = plan.end + 1;
    } else {
      begin = plan.end;
      if (plan.end - plan.begin > 1) {
        plan.has_tail = true;
        plan.tail = --plan.end;
        plan.prefix = PrefixFor(level, plan.begin, plan.end);
      }
    }
    plans.push_back(plan);
  }
  return plans;
}

// Allocates and writes the pages of one level, chained previous/next from
// first to last, and returns the entries of the level above: for each page,
// the last leaf entry under it and the page's number.
LevelEntries WriteLevel(PageWriter& pages, std::uint32_t tdef_page, bool leaf, const LevelEntries& level,
                        std::vector<PagePlan>& plans, std::vector<std::uint32_t>* written_pages) {
  for (PagePlan& plan : plans) {
    plan.page = pages.AllocatePage(tdef_page);
    if (written_pages != nullptr) written_pages->push_back(plan.page);
  }
  std::vector<Bytes> entries;
  LevelEntries above;
  std::vector<std::uint8_t> pointers;
  for (std::size_t i = 0; i < plans.size(); ++i) {
    const PagePlan& plan = plans[i];
    index_page::Header header;
    header.leaf = leaf;
    header.owner = tdef_page;
    header.previous = i == 0 ? 0 : plans[i - 1].page;
    header.next = i + 1 == plans.size() ? 0 : plans[i + 1].page;
    std::size_t last = plan.end == 0 ? 0 : plan.end - 1;
    if (plan.has_tail) {
      header.tail = level.ChildPage(plan.tail);
      last = plan.tail;
    }
    entries.clear();
    for (std::size_t e = plan.begin; e < plan.end; ++e) entries.push_back(level.Entry(e));
    index_page::Encode(pages.MutablePage(plan.page), header, entries, plan.prefix);
    if (plan.begin == plan.end && !plan.has_tail) continue;  // the empty root of an empty index

    Bytes leaf_part = level.LeafPart(last);
    pointers.assign(leaf_part.end() - index_page::kLeafPointerSize, leaf_part.end());
    index_page::AppendChild(plan.page, pointers);
    above.Add(leaf_part.first(level.KeyLength(last)), pointers);
  }
  return above;
}

// Intermediate pages are chained only to siblings under the same parent:
// cuts the links that cross from one parent's children to the next.
void SeparateCousins(PageWriter& pages, const std::vector<PagePlan>& children,
                     const std::vector<PagePlan>& parents) {
  for (std::size_t p = 0; p + 1 < parents.size(); ++p) {
    // The parent's last child is its tail when it has one, else its last entry.
    std::size_t last = parents[p].has_tail ? parents[p].tail : parents[p].end - 1;
    if (last + 1 >= children.size()) continue;
    std::span<std::uint8_t> left = pages.MutablePage(children[last].page);
    std::fill_n(left.data() + index_page::kNextOffset, 4, std::uint8_t{0});
    std::span<std::uint8_t> right = pages.MutablePage(children[last + 1].page);
    std::fill_n(right.data() + index_page::kPreviousOffset, 4, std::uint8_t{0});
  }
}

}  // namespace

bool IndexEntryLess(const IndexEntry& a, const IndexEntry& b) noexcept {
  if (a.key != b.key) return a.key < b.key;  // lexicographic on unsigned bytes
  if (a.data_page != b.data_page) return a.data_page < b.data_page;
  return a.data_row < b.data_row;
}

std::optional<std::size_t> FindDuplicateKey(std::span<const IndexEntry> sorted, std::size_t column_count) noexcept {
  for (std::size_t i = 1; i < sorted.size(); ++i) {
    // A key of one byte per column holds only null flags: every value takes
    // a flag and at least one more byte.
    if (sorted[i].key.size() == column_count) continue;
    if (sorted[i].key == sorted[i - 1].key) return i;
  }
  return std::nullopt;
}

std::uint32_t CountDistinctKeys(std::span<const IndexEntry> sorted) noexcept {
  std::uint32_t count = 0;
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    if (i == 0 || sorted[i].key != sorted[i - 1].key) ++count;
  }
  return count;
}

std::uint32_t BuildIndexTree(PageWriter& pages, std::uint32_t tdef_page, std::span<const IndexEntry> sorted,
                             std::vector<std::uint32_t>* written_pages) {
  return BuildIndexTree(
      pages, tdef_page, sorted.size(),
      [&](std::size_t i) { return IndexEntryView{sorted[i].key, sorted[i].data_page, sorted[i].data_row}; },
      written_pages);
}

std::uint32_t BuildIndexTree(PageWriter& pages, std::uint32_t tdef_page, std::size_t count,
                             const std::function<IndexEntryView(std::size_t)>& entry,
                             std::vector<std::uint32_t>* written_pages) {
  LevelEntries level;
  std::vector<std::uint8_t> pointers;
  for (std::size_t i = 0; i < count; ++i) {
    IndexEntryView view = entry(i);
    pointers.clear();
    index_page::AppendPointers(view.data_page, view.data_row, pointers);
    level.Add(view.key, pointers);
  }
  std::vector<PagePlan> plans = PlanLeaves(level);
  if (plans.empty()) plans.push_back(PagePlan{});  // an empty index is one empty leaf
  level = WriteLevel(pages, tdef_page, true, level, plans, written_pages);
  bool leaf_level = true;
  while (plans.size() > 1) {
    std::vector<PagePlan> parents = PlanNodes(level);
    if (!leaf_level) SeparateCousins(pages, plans, parents);
    level = WriteLevel(pages, tdef_page, false, level, parents, written_pages);
    plans = std::move(parents);
    leaf_level = false;
  }
  return plans.front().page;
}

}  // namespace kvdao::jet::internal
