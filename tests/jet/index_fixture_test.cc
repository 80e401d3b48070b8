// Index trees written by Access itself: every index on numeric, date and
// Boolean columns must hold exactly the keys this engine computes from the
// table's rows, and the builder must lay out those entries as Jet does.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "catalog.h"
#include "common/test_env.h"
#include "database_file.h"
#include "format.h"
#include "index_builder.h"
#include "index_key.h"
#include "index_memory_pages.h"
#include "index_page.h"
#include "index_reader.h"
#include "kvdao/jet/dao_exception.h"
#include "row_decoder.h"
#include "table_scanner.h"
#include "value_decoder.h"

namespace kvdao::jet::internal {
namespace {

namespace fs = std::filesystem;

// A physical index as the table definition stores it (Jet 4): its columns by
// number with their order, and its root page.
struct StoredIndex {
  std::vector<std::pair<std::uint16_t, bool>> columns;
  std::uint32_t root = 0;
};

std::vector<StoredIndex> StoredIndexes(const PageSource& pages, std::uint32_t tdef_page) {
  const format::Layout& layout = format::kJet4;
  std::vector<std::uint8_t> tdef;
  for (std::uint32_t page = tdef_page; page != 0;) {
    Bytes bytes = pages.Page(page);
    tdef.insert(tdef.end(), bytes.begin() + (tdef.empty() ? 0 : layout.tdef_continuation_header), bytes.end());
    page = LoadU32(bytes.data() + layout.tdef_next_page_offset);
  }
  std::uint32_t columns = LoadU16(&tdef[layout.tdef_columns_offset]);
  std::uint32_t real = LoadU32(&tdef[layout.tdef_real_indexes_offset]);
  std::size_t pos = layout.tdef_header_size + real * layout.tdef_real_index_count_size + columns * layout.column_entry_size;
  for (std::uint32_t i = 0; i < columns; ++i) pos += 2 + LoadU16(&tdef[pos]);
  std::vector<StoredIndex> indexes(real);
  for (StoredIndex& index : indexes) {
    const std::uint8_t* entry = &tdef[pos + layout.real_index_skip];
    for (int c = 0; c < format::kIndexMaxColumns; ++c) {
      std::uint16_t number = LoadU16(entry + 3 * c);
      if (number != 0xFFFF) index.columns.emplace_back(number, entry[3 * c + 2] == 0x01);
    }
    index.root = LoadU32(entry + 3 * format::kIndexMaxColumns + 4);
    pos += layout.real_index_entry_size;
  }
  return indexes;
}

// The entries Jet should hold for an index, from the table's rows; nullopt
// when a column cannot be indexed by this engine.
std::optional<std::vector<IndexEntry>> ExpectedEntries(const PageSource& pages, const TableDefinition& table,
                                                       const StoredIndex& index) {
  std::vector<IndexKeyColumn> key_columns;
  std::vector<std::size_t> positions;
  for (auto [number, ascending] : index.columns) {
    auto it = std::find_if(table.columns.begin(), table.columns.end(),
                           [&](const ColumnDef& c) { return c.number == number; });
    positions.push_back(static_cast<std::size_t>(it - table.columns.begin()));
    key_columns.push_back({it->type, ascending});
  }
  std::vector<Variant> values(key_columns.size());
  std::vector<IndexEntry> entries;
  try {
    std::vector<std::uint8_t> probe;
    EncodeIndexKey(key_columns, values, probe);
  } catch (const DaoException&) {
    return std::nullopt;
  }
  TableScanner scanner(pages, table);
  RowDecoder decoder(table, pages.layout());
  FieldValue field;
  FieldBuffers buffers;
  Bytes row;
  RowId id;
  while (scanner.Next(row, id)) {
    decoder.Decode(row);
    for (std::size_t i = 0; i < positions.size(); ++i) {
      DecodeValue(pages, table.columns[positions[i]], decoder.cells()[positions[i]], row, TextEncoding::kCp1252,
                  field, buffers);
      values[i] = ToVariant(field);
    }
    IndexEntry entry{{}, id.page, static_cast<std::uint8_t>(id.row)};
    EncodeIndexKey(key_columns, values, entry.key);
    entries.push_back(std::move(entry));
  }
  std::sort(entries.begin(), entries.end(), IndexEntryLess);
  return entries;
}

bool SameEntries(const std::vector<IndexEntry>& a, const std::vector<IndexEntry>& b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](const IndexEntry& x, const IndexEntry& y) {
           return x.key == y.key && x.data_page == y.data_page && x.data_row == y.data_row;
         });
}

// Rebuilding the entries of one of Jet's leaf pages on its own gives that
// page's bytes: same compression, bitmap, entries and free space.
void ExpectLeafRebuildsAsJet(const PageSource& pages, std::uint32_t tdef_page, std::uint32_t leaf) {
  Bytes jet = pages.Page(leaf);
  index_page::Page decoded = index_page::Decode(jet, leaf);
  std::vector<IndexEntry> entries;
  for (const auto& e : decoded.entries) entries.push_back({{e.key.begin(), e.key.end()}, e.data_page, e.data_row});
  test::MemoryPages rebuilt(tdef_page);
  std::uint32_t root = BuildIndexTree(rebuilt, tdef_page, entries);
  Bytes ours = rebuilt.Page(root);
  std::uint32_t used = index_page::kEntrySpace - LoadU16(jet.data() + index_page::kFreeSpaceOffset);
  // Links to other pages differ; everything else, up to the entries' end, must not.
  std::vector<std::uint8_t> a(jet.begin(), jet.begin() + index_page::kEntriesOffset + used);
  std::vector<std::uint8_t> b(ours.begin(), ours.begin() + index_page::kEntriesOffset + used);
  for (int offset : {index_page::kPreviousOffset, index_page::kNextOffset}) {
    std::fill_n(a.begin() + offset, 4, std::uint8_t{0});
  }
  EXPECT_EQ(a, b) << "leaf page " << leaf;
}

TEST(IndexFixtures, AccessIndexesHoldTheKeysWeCompute) {
  std::string fixtures = kvdao::test::FixturesDir();
  if (fixtures.empty()) GTEST_SKIP() << "shared fixtures folder not found";
  int compared = 0, multi_page = 0, compressed_pages = 0, single_leaf_pages = 0;
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(fs::path(fixtures) / "jet" / "real")) {
    if (entry.path().extension() == ".mdb") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  for (const fs::path& file : files) {
    DatabaseFile database(file.string());
    if (database.pages().layout().version != format::Version::kJet4) continue;
    const PageSource& pages = database.pages();
    auto fetch = [&](std::uint32_t page) { return pages.Page(page); };
    for (const CatalogEntry& object : database.catalog()) {
      if (!object.IsTable()) continue;
      std::shared_ptr<const OpenTable> table = database.Table(object.name);
      std::vector<StoredIndex> indexes = StoredIndexes(pages, table->definition.page);
      for (const StoredIndex& index : indexes) {
        SCOPED_TRACE(file.filename().string() + " " + object.name + " root " + std::to_string(index.root));
        auto expected = ExpectedEntries(pages, table->definition, index);
        if (!expected) continue;
        std::vector<IndexEntry> stored = ReadIndexEntries(fetch, index.root);
        EXPECT_TRUE(SameEntries(stored, *expected)) << stored.size() << " stored, " << expected->size() << " computed";
        ++compared;

        // Where Jet's whole index is one leaf, our tree for the same
        // entries is that very page; on larger trees, each of Jet's
        // compressed leaves rebuilds to the same bytes.
        index_page::Page root = index_page::Decode(pages.Page(index.root), index.root);
        if (root.leaf) {
          test::MemoryPages rebuilt(table->definition.page);
          Bytes ours = rebuilt.Page(BuildIndexTree(rebuilt, table->definition.page, *expected));
          // Past the entries, Jet leaves whatever deleted entries left.
          Bytes jet = pages.Page(index.root);
          std::size_t end = index_page::kEntriesOffset + index_page::kEntrySpace -
                            LoadU16(jet.data() + index_page::kFreeSpaceOffset);
          auto mismatch = std::mismatch(jet.begin(), jet.begin() + end, ours.begin());
          EXPECT_TRUE(mismatch.first == jet.begin() + end)
              << "page " << index.root << " differs from byte " << (mismatch.first - jet.begin());
          ++single_leaf_pages;
          continue;
        }
        ++multi_page;
        for (std::uint32_t leaf = 0; leaf < pages.page_count(); ++leaf) {
          Bytes bytes = pages.Page(leaf);
          if (bytes[0] != format::kPageIndexLeaf || LoadU32(bytes.data() + 4) != table->definition.page) continue;
          if (LoadU16(bytes.data() + index_page::kPrefixLengthOffset) == 0) continue;
          ExpectLeafRebuildsAsJet(pages, table->definition.page, leaf);
          ++compressed_pages;
        }
      }
    }
  }
  // Numeric, date or Boolean indexes of user and system tables across the
  // files, one of them (compIndexTestV2003) with an intermediate page and a
  // prefix-compressed leaf.
  EXPECT_GE(compared, 20);
  EXPECT_GE(multi_page, 1);
  EXPECT_GE(compressed_pages, 1);
  EXPECT_GE(single_leaf_pages, 10);
}

}  // namespace
}  // namespace kvdao::jet::internal
