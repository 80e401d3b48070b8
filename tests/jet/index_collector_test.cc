// The index collector refuses exactly the duplicates a set of the keys
// would, whatever order keys arrive in (in order, then out of order, which
// switches it from comparing with the last key to its hash table), and
// builds a tree holding every accepted row in index order.

#include "index_collector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <random>

#include "index_memory_pages.h"
#include "index_reader.h"
#include "kvdao/jet/dao_exception.h"
#include "kvdao/jet/tabledef.h"
#include "row_builder.h"
#include "table_layout.h"
#include "value_encoder.h"

namespace kvdao::jet::internal {
namespace {

constexpr std::uint32_t kTdefPage = 9;

TableLayout Spec(bool unique, bool ignore_nulls) {
  TableDef def;
  def.name = "T";
  FieldInfo k;
  k.name = "K";
  k.type = dbLong;
  def.CreateField(k);
  FieldInfo s;
  s.name = "S";
  s.type = dbText;
  s.size = 20;
  s.attributes = dbVariableField;
  def.CreateField(s);
  IndexInfo index;
  index.name = "ByKey";
  index.fields.push_back({"K", false});
  index.fields.push_back({"S", false});
  index.unique = unique;
  index.ignore_nulls = ignore_nulls;
  def.CreateIndex(index);
  return LayoutFromTableDef(def);
}

// Adds a row (K, S), a null for nullopt; false when the collector refuses it.
class Rows {
 public:
  explicit Rows(bool unique, bool ignore_nulls = false)
      : spec_(Spec(unique, ignore_nulls)), row_(spec_), collector_(spec_, 0) {}

  bool Add(std::optional<int> k, const char* s = "x") {
    row_.Clear();
    for (std::size_t i = 0; i < spec_.columns.size(); ++i) {
      bool key = spec_.columns[i].name == "K";
      Variant value = key ? (k ? Variant(static_cast<long>(*k)) : Variant()) : (s ? Variant(s) : Variant());
      StageValue(spec_.columns[i], i, value, row_);
    }
    try {
      collector_.Check(row_);
    } catch (const DaoException&) {
      return false;
    }
    collector_.Add(((100 + added_ / 50) << 8) | (added_ % 50));
    ++added_;
    return true;
  }

  // The built tree's entries, and the collector's distinct key count.
  std::vector<IndexEntry> Build(std::uint32_t& distinct) {
    test::MemoryPages pages(kTdefPage);
    std::vector<std::uint32_t> written;
    std::uint32_t root = collector_.Build(pages, kTdefPage, written);
    distinct = collector_.distinct_keys();
    return ReadIndexEntries(pages.Fetcher(), root);
  }

 private:
  TableLayout spec_;
  RowBuilder row_;
  IndexCollector collector_;
  std::uint32_t added_ = 0;
};

TEST(IndexCollector, RefusesWhatASetOfKeysWouldInAnyOrder) {
  std::mt19937 random(11);
  Rows rows(true);
  std::map<int, int> accepted;  // key -> rows
  // Increasing keys with repeats first, then keys in random order.
  for (int i = 0; i < 3000; ++i) {
    int k = i < 1000 ? i / 2 : static_cast<int>(random() % 2500);
    bool fresh = accepted.count(k) == 0;
    ASSERT_EQ(rows.Add(k), fresh) << "row " << i << " key " << k;
    if (fresh) accepted[k] = 1;
  }
  // All-null keys never collide, not even with each other.
  ASSERT_TRUE(rows.Add(std::nullopt, nullptr));
  ASSERT_TRUE(rows.Add(std::nullopt, nullptr));
  // Text is compared as the General sort order sees it: case does not count.
  ASSERT_TRUE(rows.Add(5000, "abc"));
  EXPECT_FALSE(rows.Add(5000, "ABC"));
  EXPECT_TRUE(rows.Add(5000, "abd"));

  std::uint32_t distinct = 0;
  std::vector<IndexEntry> entries = rows.Build(distinct);
  ASSERT_EQ(entries.size(), accepted.size() + 4);
  EXPECT_EQ(distinct, accepted.size() + 3);
  for (std::size_t i = 1; i < entries.size(); ++i) ASSERT_TRUE(IndexEntryLess(entries[i - 1], entries[i])) << i;
}

TEST(IndexCollector, IgnoreNullsLeavesNullKeysOut) {
  Rows rows(false, true);
  EXPECT_TRUE(rows.Add(std::nullopt, nullptr));
  EXPECT_TRUE(rows.Add(3));
  EXPECT_TRUE(rows.Add(std::nullopt, nullptr));
  EXPECT_TRUE(rows.Add(3));  // not unique
  EXPECT_TRUE(rows.Add(std::nullopt, "y"));  // one column null: indexed
  std::uint32_t distinct = 0;
  std::vector<IndexEntry> entries = rows.Build(distinct);
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(distinct, 2u);
  EXPECT_EQ(entries[0].key.front(), 0x00);  // the null K sorts first
  EXPECT_EQ(entries[1].key, entries[2].key);
  EXPECT_LT(entries[1].data_row, entries[2].data_row);  // equal keys in row order
}

}  // namespace
}  // namespace kvdao::jet::internal
