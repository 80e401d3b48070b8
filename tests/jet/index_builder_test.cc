// The bulk index builder must write trees that read back to the same
// entries, with the page structure Jet expects: bitmap, prefix compression,
// page links and tails. The reader must refuse damaged trees.

#include "index_builder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "format.h"
#include "index_key.h"
#include "index_memory_pages.h"
#include "index_page.h"
#include "index_reader.h"
#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {
namespace {

using test::MemoryPages;
constexpr std::uint32_t kTdef = 77;

std::vector<std::uint8_t> Key(std::span<const IndexKeyColumn> columns, std::span<const Variant> values) {
  std::vector<std::uint8_t> key;
  EncodeIndexKey(columns, values, key);
  return key;
}

std::vector<IndexEntry> LongEntries(int count, bool shuffled) {
  IndexKeyColumn column{format::kLong, true};
  std::vector<IndexEntry> entries;
  for (int i = 0; i < count; ++i) {
    Variant value(shuffled ? (i * 7919) % count - count / 2 : i);
    entries.push_back({Key(std::span(&column, 1), std::span(&value, 1)), static_cast<std::uint32_t>(100 + i / 40),
                       static_cast<std::uint8_t>(i % 40)});
  }
  std::sort(entries.begin(), entries.end(), IndexEntryLess);
  return entries;
}

// Ten Double columns: 94-byte leaf entries, so that 100,000 rows need
// several levels of intermediate pages.
std::vector<IndexEntry> WideEntries(int count) {
  std::vector<IndexKeyColumn> columns(10, IndexKeyColumn{format::kDouble, true});
  columns[3].ascending = false;
  std::mt19937 random(11);
  std::vector<IndexEntry> entries;
  std::vector<Variant> values(10);
  for (int i = 0; i < count; ++i) {
    for (Variant& value : values) value = static_cast<double>(random() % 1000) / 8.0;
    if (i % 10 == 0) values[5] = Variant();
    entries.push_back({Key(columns, values), static_cast<std::uint32_t>(5000 + i / 20), static_cast<std::uint8_t>(i % 20)});
  }
  std::sort(entries.begin(), entries.end(), IndexEntryLess);
  return entries;
}

bool SameEntries(const std::vector<IndexEntry>& a, const std::vector<IndexEntry>& b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](const IndexEntry& x, const IndexEntry& y) {
           return x.key == y.key && x.data_page == y.data_page && x.data_row == y.data_row;
         });
}

// Checks the structure under page: every page names the table, free space
// matches the bitmap, each intermediate entry (and the tail) repeats the last
// leaf entry of its child, and siblings under one parent are linked both
// ways. Returns the last leaf entry under page and counts pages per level.
IndexEntry CheckSubtree(const MemoryPages& pages, std::uint32_t page_number, std::vector<int>& per_level, int level) {
  index_page::Page page = index_page::Decode(pages.Page(page_number), page_number);
  auto bytes = pages.Page(page_number);
  EXPECT_EQ(page.owner, kTdef);
  if (per_level.size() <= static_cast<std::size_t>(level)) per_level.resize(level + 1);
  ++per_level[level];
  auto as_entry = [](const index_page::PageEntry& e) {
    return IndexEntry{std::vector<std::uint8_t>(e.key.begin(), e.key.end()), e.data_page, e.data_row};
  };
  // Free space is what follows the last entry end the bitmap marks.
  std::uint32_t used = 0;
  for (int i = 0; i < index_page::kBitmapSize * 8; ++i) {
    if ((bytes[index_page::kBitmapOffset + i / 8] >> (i % 8)) & 1) used = static_cast<std::uint32_t>(i);
  }
  EXPECT_EQ(LoadU16(bytes.data() + index_page::kFreeSpaceOffset), index_page::kEntrySpace - used);
  if (page.leaf) {
    EXPECT_EQ(page.tail, 0u);
    EXPECT_FALSE(page.entries.empty());
    return as_entry(page.entries.back());
  }
  std::vector<std::uint32_t> children;
  for (const auto& entry : page.entries) {
    children.push_back(entry.child_page);
    IndexEntry last = CheckSubtree(pages, entry.child_page, per_level, level + 1);
    EXPECT_TRUE(SameEntries({as_entry(entry)}, {last})) << "node entry differs from its child's last entry";
  }
  EXPECT_TRUE(page.tail != 0 || page.entries.size() == 1);
  IndexEntry last = page.tail != 0 ? CheckSubtree(pages, page.tail, per_level, level + 1) : as_entry(page.entries.back());
  if (page.tail != 0) children.push_back(page.tail);
  for (std::size_t i = 0; i + 1 < children.size(); ++i) {
    auto left = index_page::Decode(pages.Page(children[i]), children[i]);
    auto right = index_page::Decode(pages.Page(children[i + 1]), children[i + 1]);
    EXPECT_EQ(left.next, children[i + 1]);
    EXPECT_EQ(right.previous, children[i]);
  }
  auto first = index_page::Decode(pages.Page(children.front()), children.front());
  auto final = index_page::Decode(pages.Page(children.back()), children.back());
  if (!first.leaf) {
    EXPECT_EQ(first.previous, 0u) << "intermediate pages are not linked across parents";
    EXPECT_EQ(final.next, 0u);
  }
  return last;
}

TEST(IndexBuilder, EmptyIndexIsOneEmptyLeaf) {
  MemoryPages pages(kTdef);
  std::vector<std::uint32_t> written;
  std::uint32_t root = BuildIndexTree(pages, kTdef, {}, &written);
  EXPECT_EQ(written, std::vector<std::uint32_t>{root});
  auto bytes = pages.Page(root);
  std::vector<std::uint8_t> expected(4096, 0);
  expected[0] = format::kPageIndexLeaf;
  expected[1] = 0x01;
  expected[2] = 3616 & 0xFF;  // free space: the whole entry area
  expected[3] = 3616 >> 8;
  expected[4] = kTdef;
  EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), expected.begin()));
  EXPECT_TRUE(ReadIndexEntries(pages.Fetcher(), root).empty());
}

TEST(IndexBuilder, SmallIndexIsOneUncompressedLeaf) {
  std::vector<IndexEntry> entries = LongEntries(3, false);
  MemoryPages pages(kTdef);
  std::uint32_t root = BuildIndexTree(pages, kTdef, entries);
  auto bytes = pages.Page(root);
  // Three 9-byte entries end at 9, 18 and 27 bytes into the entry area.
  EXPECT_EQ(bytes[index_page::kBitmapOffset + 1], 0x02);
  EXPECT_EQ(bytes[index_page::kBitmapOffset + 2], 0x04);
  EXPECT_EQ(bytes[index_page::kBitmapOffset + 3], 0x08);
  EXPECT_EQ(LoadU16(bytes.data() + index_page::kPrefixLengthOffset), 0);
  // First entry: 7F 80 00 00 00, data page 100 as 00 00 64, row 0.
  std::vector<std::uint8_t> first(bytes.begin() + 480, bytes.begin() + 489);
  EXPECT_EQ(first, (std::vector<std::uint8_t>{0x7F, 0x80, 0, 0, 0, 0, 0, 100, 0}));
  EXPECT_TRUE(SameEntries(ReadIndexEntries(pages.Fetcher(), root), entries));
}

TEST(IndexBuilder, LargeTreesReadBackWithJetStructure) {
  struct Case {
    const char* name;
    std::vector<IndexEntry> entries;
    std::size_t min_levels;
  };
  std::vector<Case> cases;
  cases.push_back({"100,000 Long keys in order", LongEntries(100000, false), 2});
  cases.push_back({"100,000 Long keys out of order", LongEntries(100000, true), 2});
  cases.push_back({"100,000 ten-column keys", WideEntries(100000), 4});
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    MemoryPages pages(kTdef);
    std::vector<std::uint32_t> written;
    std::uint32_t root = BuildIndexTree(pages, kTdef, c.entries, &written);
    EXPECT_EQ(written.size(), pages.count() - 1u);
    EXPECT_TRUE(SameEntries(ReadIndexEntries(pages.Fetcher(), root), c.entries));
    std::vector<int> per_level;
    CheckSubtree(pages, root, per_level, 0);
    EXPECT_GE(per_level.size(), c.min_levels);
    EXPECT_EQ(per_level.front(), 1);

    // The leaves form one chain from first to last, in index order.
    std::uint32_t leaf = root;
    while (true) {
      auto page = index_page::Decode(pages.Page(leaf), leaf);
      if (page.leaf) break;
      leaf = page.entries.empty() ? page.tail : page.entries.front().child_page;
    }
    std::size_t seen = 0;
    std::uint32_t previous = 0;
    for (; leaf != 0; leaf = index_page::Decode(pages.Page(leaf), leaf).next) {
      auto page = index_page::Decode(pages.Page(leaf), leaf);
      EXPECT_EQ(page.previous, previous);
      seen += page.entries.size();
      previous = leaf;
    }
    EXPECT_EQ(seen, c.entries.size());
  }
}

TEST(IndexBuilder, FullPagesShareAPrefix) {
  // Consecutive Long keys on one data page share flag, high key bytes and
  // the data page: compressed pages hold far more than 3616 / 9 entries.
  std::vector<IndexEntry> entries = LongEntries(2000, false);
  MemoryPages pages(kTdef);
  std::uint32_t root = BuildIndexTree(pages, kTdef, entries);
  auto top = index_page::Decode(pages.Page(root), root);
  ASSERT_FALSE(top.leaf);
  auto first_leaf = index_page::Decode(pages.Page(top.entries.front().child_page), top.entries.front().child_page);
  EXPECT_GE(first_leaf.prefix_length, 3);
  EXPECT_GT(first_leaf.entries.size(), 3616u / 9);
}

TEST(IndexBuilder, UniqueKeysAndDistinctCount) {
  IndexKeyColumn columns[] = {{format::kLong, true}, {format::kInteger, false}};
  auto entry = [&](Variant a, Variant b, std::uint8_t row) {
    Variant values[] = {a, b};
    return IndexEntry{Key(columns, values), 9, row};
  };
  std::vector<IndexEntry> entries = {entry(Variant(), Variant(), 0), entry(Variant(), Variant(), 1),
                                     entry(Variant(1), Variant(), 2), entry(Variant(1), Variant(short{2}), 3),
                                     entry(Variant(2), Variant(short{2}), 4)};
  std::sort(entries.begin(), entries.end(), IndexEntryLess);
  // Two all-null keys do not violate uniqueness; a partly null key counts.
  EXPECT_FALSE(FindDuplicateKey(entries, 2).has_value());
  EXPECT_EQ(CountDistinctKeys(entries), 4u);
  entries.push_back(entry(Variant(1), Variant(), 5));
  std::sort(entries.begin(), entries.end(), IndexEntryLess);
  auto duplicate = FindDuplicateKey(entries, 2);
  ASSERT_TRUE(duplicate.has_value());
  EXPECT_EQ(entries[*duplicate].data_row, 5);
  EXPECT_EQ(entries[*duplicate - 1].data_row, 2);
}

TEST(IndexReader, RefusesDamagedTrees) {
  std::vector<IndexEntry> entries = LongEntries(2000, false);
  MemoryPages original(kTdef);
  std::uint32_t root = BuildIndexTree(original, kTdef, entries);
  auto top = index_page::Decode(original.Page(root), root);
  std::uint32_t leaf = top.entries.front().child_page;

  auto expect_damaged = [&](const char* what, auto change) {
    SCOPED_TRACE(what);
    MemoryPages pages = original;
    change(pages);
    EXPECT_THROW(ReadIndexEntries(pages.Fetcher(), root), DaoException);
  };
  expect_damaged("wrong page type", [&](MemoryPages& p) { p.MutablePage(leaf)[0] = format::kPageData; });
  expect_damaged("child loops to the root", [&](MemoryPages& p) {
    auto bytes = p.MutablePage(root);
    bytes[index_page::kTailOffset] = static_cast<std::uint8_t>(root);
    bytes[index_page::kTailOffset + 1] = static_cast<std::uint8_t>(root >> 8);
  });
  expect_damaged("bitmap past the page", [&](MemoryPages& p) {
    p.MutablePage(leaf)[index_page::kBitmapOffset + index_page::kBitmapSize - 1] = 0x80;
  });
  expect_damaged("prefix longer than the first entry", [&](MemoryPages& p) {
    p.MutablePage(leaf)[index_page::kPrefixLengthOffset + 1] = 0x10;
  });
  expect_damaged("entry shorter than its pointers", [&](MemoryPages& p) {
    auto bytes = p.MutablePage(leaf);
    std::fill_n(bytes.data() + index_page::kBitmapOffset, index_page::kBitmapSize, std::uint8_t{0});
    bytes[index_page::kPrefixLengthOffset] = 0;
    bytes[index_page::kBitmapOffset] = 0x08;  // one 3-byte entry
  });
  expect_damaged("entries out of order", [&](MemoryPages& p) {
    p.MutablePage(leaf)[index_page::kEntriesOffset + 1] = 0xFF;  // first key becomes the largest
  });
  expect_damaged("page beyond the file", [&](MemoryPages& p) {
    auto bytes = p.MutablePage(root);
    bytes[index_page::kTailOffset + 3] = 0x7F;
  });
}

}  // namespace
}  // namespace kvdao::jet::internal
