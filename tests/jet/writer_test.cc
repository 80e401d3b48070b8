// The Jet 4 writer, checked from outside: every file written here is read
// back by this library's reader and, where mdbtools is installed, by
// mdb-tables / mdb-schema / mdb-export.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "bytes.h"
#include "common/test_env.h"
#include "format.h"
#include "index_key.h"
#include "index_reader.h"
#include "jet/writer_test_util.h"
#include "kvdao/jet/jet.h"
#include "kvdao/samplelist/schema.h"

namespace kvdao::jet {
namespace {

using namespace writer_check;

// The root page of a table's physical index, read from its definition
// (single-page definitions).
std::uint32_t IndexRoot(const std::vector<std::uint8_t>& file, std::uint32_t tdef_page, int real_index) {
  const format::Layout& l = format::kJet4;
  const std::uint8_t* t = file.data() + static_cast<std::size_t>(tdef_page) * l.page_size;
  std::size_t columns = internal::LoadU16(t + l.tdef_columns_offset);
  std::size_t reals = internal::LoadU32(t + l.tdef_real_indexes_offset);
  std::size_t pos = l.tdef_header_size + reals * 12 + columns * l.column_entry_size;
  for (std::size_t i = 0; i < columns; ++i) pos += 2 + internal::LoadU16(t + pos);
  pos += static_cast<std::size_t>(real_index) * l.real_index_entry_size;
  return internal::LoadU32(t + pos + format::kRealIndexFirstPageOffset);
}


class JetWriterTest : public test::TempEnvTest {};

TEST_F(JetWriterTest, NewDatabaseHasTheEngineSystemTablesAndRows) {
  if (test::FixturesDir().empty()) GTEST_SKIP() << "shared fixtures not present";
  const std::string path = PathTo("empty.mdb");
  Database::Create(path, dbLangGeneral, 0).Close();
  Database ours;
  ours.Open(path);
  Database engine;
  engine.Open(test::FixturesDir() + "/jet/real/jackcess-adox_jet4.mdb");

  EXPECT_EQ(ours.Info().jet_version, 4);
  EXPECT_EQ(ours.Info().code_page, 1252);
  EXPECT_EQ(ours.Info().sort_order, 0x409);
  EXPECT_GT(ours.Info().creation_date, 40000.0);
  ASSERT_EQ(ours.GetTableNames(true), engine.GetTableNames(true));
  for (const std::string& name : engine.GetTableNames(true)) {
    SCOPED_TRACE(name);
    TableDef mine = ours.GetTableDef(name), theirs = engine.GetTableDef(name);
    EXPECT_TRUE(mine.system);
    ASSERT_EQ(mine.fields.size(), theirs.fields.size());
    for (std::size_t i = 0; i < mine.fields.size(); ++i) {
      EXPECT_EQ(mine.fields[i].name, theirs.fields[i].name);
      EXPECT_EQ(mine.fields[i].type, theirs.fields[i].type);
      EXPECT_EQ(mine.fields[i].size, theirs.fields[i].size);
      EXPECT_EQ(mine.fields[i].attributes, theirs.fields[i].attributes);
    }
    ASSERT_EQ(mine.indexes.size(), theirs.indexes.size());
    for (std::size_t i = 0; i < mine.indexes.size(); ++i) {
      EXPECT_EQ(mine.indexes[i].name, theirs.indexes[i].name);
      EXPECT_EQ(mine.indexes[i].primary, theirs.indexes[i].primary);
      EXPECT_EQ(mine.indexes[i].unique, theirs.indexes[i].unique);
      EXPECT_EQ(mine.indexes[i].ignore_nulls, theirs.indexes[i].ignore_nulls);
      EXPECT_EQ(mine.indexes[i].required, theirs.indexes[i].required);
      ASSERT_EQ(mine.indexes[i].fields.size(), theirs.indexes[i].fields.size());
      for (std::size_t k = 0; k < mine.indexes[i].fields.size(); ++k) {
        EXPECT_EQ(mine.indexes[i].fields[k].name, theirs.indexes[i].fields[k].name);
      }
    }
    // Every row, cell by cell, except the creation stamps.
    auto mine_rows = ReadRows(path, name);
    auto their_rows = ReadRows(test::FixturesDir() + "/jet/real/jackcess-adox_jet4.mdb", name);
    ASSERT_EQ(mine_rows.size(), their_rows.size());
    for (std::size_t r = 0; r < mine_rows.size(); ++r) {
      for (std::size_t c = 0; c < mine_rows[r].size(); ++c) {
        if (mine.fields[c].type == dbDate) continue;
        EXPECT_TRUE(mine_rows[r][c] == their_rows[r][c]) << "row " << r << " field " << mine.fields[c].name;
      }
    }
  }
}

// The catalog's name index (MSysObjects "ParentIdName": ParentId, then the
// Text Name) is what Access looks tables up by. In a new database it must
// be the engine's own, entry for entry and byte for byte.
TEST_F(JetWriterTest, CatalogNameIndexIsTheEngines) {
  if (test::FixturesDir().empty()) GTEST_SKIP() << "shared fixtures not present";
  const std::string path = PathTo("empty.mdb");
  Database::Create(path, dbLangGeneral, 0).Close();
  std::vector<std::uint8_t> ours = FileBytes(path);
  std::vector<std::uint8_t> engine = FileBytes(test::FixturesDir() + "/jet/real/jackcess-adox_jet4.mdb");
  const std::uint32_t catalog = 2;  // MSysObjects' definition, in every Jet 4 file
  const int parent_id_name = 0;     // its first physical index
  std::uint32_t our_root = IndexRoot(ours, catalog, parent_id_name);
  std::uint32_t engine_root = IndexRoot(engine, catalog, parent_id_name);
  auto entries = [](const std::vector<std::uint8_t>& file, std::uint32_t root) {
    auto fetch = [&](std::uint32_t page) { return std::span<const std::uint8_t>(file).subspan(page * 4096, 4096); };
    return internal::ReadIndexEntries(fetch, root);
  };
  std::vector<internal::IndexEntry> mine = entries(ours, our_root), theirs = entries(engine, engine_root);
  ASSERT_EQ(mine.size(), theirs.size());
  for (std::size_t i = 0; i < mine.size(); ++i) {
    EXPECT_EQ(mine[i].key, theirs[i].key) << "entry " << i;
    EXPECT_EQ(mine[i].data_row, theirs[i].data_row) << "entry " << i;
  }
  // One leaf each, byte for byte the same up to the end of the entries once
  // the data page in each entry is blanked: the engine keeps its catalog
  // rows on another page.
  ASSERT_EQ(ours[our_root * 4096], format::kPageIndexLeaf);
  ASSERT_EQ(engine[engine_root * 4096], format::kPageIndexLeaf);
  auto blanked = [](const std::vector<std::uint8_t>& file, std::uint32_t root) {
    std::vector<std::uint8_t> page(file.begin() + root * 4096, file.begin() + (root + 1) * 4096);
    const std::size_t end = 480 + 3616 - internal::LoadU16(&page[2]);
    page.resize(end);
    std::fill_n(page.begin() + 12, 12, std::uint8_t{0});  // sibling and tail links
    for (std::size_t n = 1; 480 + n <= end; ++n) {
      if ((page[27 + n / 8] >> (n % 8) & 1) == 0) continue;  // marks where an entry ends
      std::fill_n(page.begin() + 480 + n - 4, 3, std::uint8_t{0});
    }
    return page;
  };
  std::vector<std::uint8_t> a = blanked(ours, our_root), b = blanked(engine, engine_root);
  ASSERT_EQ(a.size(), b.size());
  auto differs = std::mismatch(a.begin(), a.end(), b.begin());
  EXPECT_TRUE(differs.first == a.end()) << "leaf pages differ from byte " << (differs.first - a.begin());
}

// With user tables, every catalog row has its entry, keyed by its ParentId
// and Name as the key encoder makes them.
TEST_F(JetWriterTest, CatalogNameIndexListsUserTables) {
  const std::string path = PathTo("tables.mdb");
  {
    Database db = Database::Create(path);
    for (const char* name : {"Zeta", "alpha", "Beta", "\xC9t\xE9", "co-op"}) {
      TableDef def = db.CreateTableDef(name);
      def.CreateField(Field("A", dbLong));
      db.Append(def);
    }
  }
  std::vector<std::uint8_t> file = FileBytes(path);
  auto fetch = [&](std::uint32_t page) { return std::span<const std::uint8_t>(file).subspan(page * 4096, 4096); };
  std::vector<internal::IndexEntry> entries = internal::ReadIndexEntries(fetch, IndexRoot(file, 2, 0));
  std::vector<std::vector<std::uint8_t>> expected;
  Database db;
  db.Open(path);
  Recordset catalog = db.OpenTable("MSysObjects");
  const internal::IndexKeyColumn columns[] = {{format::kLong, true}, {format::kText, true}};
  while (!catalog.IsEOF()) {
    Variant values[] = {catalog.GetFieldValue("ParentId"), catalog.GetFieldValue("Name")};
    expected.emplace_back();
    internal::EncodeIndexKey(columns, values, expected.back());
    catalog.MoveNext();
  }
  std::sort(expected.begin(), expected.end());
  ASSERT_EQ(entries.size(), expected.size());
  for (std::size_t i = 0; i < entries.size(); ++i) EXPECT_EQ(entries[i].key, expected[i]) << "entry " << i;
}

// A Text primary key sorts as Access sorts (case and accents second,
// hyphens last) and, like Access, takes "APPLE" for a duplicate of "Apple".
TEST_F(JetWriterTest, TextPrimaryKeyFollowsTheGeneralSortOrder) {
  const std::string path = PathTo("text_key.mdb");
  const char* added[] = {"pear", "Apple", "co-op", "apple pie", "\xC9" "clair", "banana", "coop"};
  {
    Database db = Database::Create(path);
    TableDef def = db.CreateTableDef("Fruit");
    def.CreateField(Field("Name", dbText, 50, true));
    def.CreateIndex(PrimaryKey("Name"));
    db.Append(def);
    Recordset rs = db.OpenTable("Fruit");
    for (const char* name : added) {
      rs.AddNew();
      rs.SetFieldValue("Name", Variant(name));
      rs.Update();
    }
    rs.AddNew();
    rs.SetFieldValue("Name", Variant("APPLE"));
    EXPECT_THROW(rs.Update(), DaoException);
  }
  std::vector<std::uint8_t> file = FileBytes(path);
  auto fetch = [&](std::uint32_t page) { return std::span<const std::uint8_t>(file).subspan(page * 4096, 4096); };
  std::vector<internal::IndexEntry> entries = internal::ReadIndexEntries(fetch, IndexRoot(file, 9, 0));
  // Rows of one data page are numbered in the order they were added.
  std::vector<std::string> order;
  for (const internal::IndexEntry& e : entries) order.push_back(added[e.data_row]);
  EXPECT_EQ(order, (std::vector<std::string>{"Apple", "apple pie", "banana", "coop", "co-op", "\xC9" "clair", "pear"}));
  EXPECT_EQ(ReadRows(path, "Fruit").size(), std::size(added));
}

TEST_F(JetWriterTest, EveryTypeRoundTripsThroughBothReaders) {
  const std::string path = PathTo("types.mdb");
  const std::string long_text(255, 'x');
  const std::string accented = "caf\xe9 \x80 na\xefve";  // é, €, ï in code page 1252
  const std::string memo(6000, 'm');
  {
    Database db = Database::Create(path);
    TableDef def = db.CreateTableDef("Types");
    def.CreateField(Field("Id", dbLong, 0, true));
    def.CreateField(Field("Txt", dbText, 255, false, true));
    def.CreateField(Field("Dbl", dbDouble));
    def.CreateField(Field("Dt", dbDate));
    def.CreateField(Field("Int", dbInteger));
    def.CreateField(Field("Byt", dbByte));
    def.CreateField(Field("Flag", dbBoolean));
    def.CreateField(Field("Money", dbCurrency));
    def.CreateField(Field("Sgl", dbSingle));
    def.CreateField(Field("Note", dbMemo, 0, false, true));
    def.CreateIndex(PrimaryKey("Id"));
    db.Append(def);
    Recordset rs = db.OpenTable("Types");
    rs.SetCurrentIndex("PrimaryKey");
    rs.AddNew();
    rs.SetFieldValue("Id", Variant(1L));
    rs.SetFieldValue("Txt", Variant(accented));
    rs.SetFieldValue("Dbl", Variant(-2.5e-7));
    rs.SetFieldValue("Dt", Variant(OleDate{45000.75}));
    rs.SetFieldValue("Int", Variant(static_cast<short>(-32768)));
    rs.SetFieldValue("Byt", Variant(static_cast<unsigned char>(255)));
    rs.SetFieldValue("Flag", Variant(static_cast<short>(VARIANT_TRUE), VT_BOOL));
    rs.SetFieldValue("Money", Variant(Currency{123456789}));
    rs.SetFieldValue("Sgl", Variant(1.5f));
    rs.SetFieldValue("Note", Variant(memo));
    rs.Update();
    rs.AddNew();  // every field but the key null
    rs.SetFieldValue(0, Variant(2L));
    rs.Update();
    rs.AddNew();
    rs.SetFieldValue(0, Variant("3"));  // converted as DAO converts
    rs.SetFieldValue("Txt", Variant(long_text));
    rs.SetFieldValue("Note", Variant(""));
    rs.SetFieldValue("Dbl", Variant(7L));
    rs.Update();
    rs.AddNew();
    rs.SetFieldValue(0, Variant(4L));
    rs.SetFieldValue("Txt", Variant(""));
    rs.SetFieldValue("Note", Variant("short memo"));
    rs.Update();
    db.Close();
  }
  auto rows = ReadRows(path, "Types");
  ASSERT_EQ(rows.size(), 4u);
  EXPECT_EQ(rows[0][1].text(), accented);
  EXPECT_EQ(rows[0][2].dblVal(), -2.5e-7);
  EXPECT_EQ(rows[0][3].vt(), VT_DATE);
  EXPECT_EQ(rows[0][3].date(), 45000.75);
  EXPECT_EQ(rows[0][4].iVal(), -32768);
  EXPECT_EQ(rows[0][5].bVal(), 255);
  EXPECT_NE(rows[0][6].boolVal(), 0);
  EXPECT_EQ(rows[0][7].cyVal(), 123456789);
  EXPECT_EQ(rows[0][8].fltVal(), 1.5f);
  EXPECT_EQ(rows[0][9].text(), memo);
  for (std::size_t c = 1; c < rows[1].size(); ++c) {
    if (c == 6) {
      EXPECT_EQ(rows[1][c].boolVal(), 0);  // a Boolean is never null
    } else {
      EXPECT_EQ(rows[1][c].vt(), VT_NULL) << c;
    }
  }
  EXPECT_EQ(rows[2][0].lVal(), 3);
  EXPECT_EQ(rows[2][1].text(), long_text);
  EXPECT_EQ(rows[2][2].dblVal(), 7.0);
  EXPECT_EQ(rows[2][9].vt(), VT_BSTR);
  EXPECT_EQ(rows[2][9].text(), "");
  EXPECT_EQ(rows[3][1].vt(), VT_BSTR);
  EXPECT_EQ(rows[3][1].text(), "");
  EXPECT_EQ(rows[3][9].text(), "short memo");

  TableDef def = [&] {
    Database db;
    db.Open(path);
    return db.GetTableDef("Types");
  }();
  EXPECT_TRUE(def.fields[0].required);
  EXPECT_TRUE(def.fields[1].allow_zero_length);
  EXPECT_EQ(def.fields[1].size, 255);
  ASSERT_EQ(def.indexes.size(), 1u);
  EXPECT_TRUE(def.indexes[0].primary);

  if (!HaveMdbTools()) GTEST_SKIP() << "mdbtools not installed";
  EXPECT_EQ(RunTool("mdb-tables -1 " + path), "Types\n");
  std::string schema = RunTool("mdb-schema " + path).value_or("");
  for (const char* expected : {"[Id]\t\t\tLong Integer NOT NULL", "[Txt]\t\t\tText (255)", "[Dbl]\t\t\tDouble",
                               "[Dt]\t\t\tDateTime", "[Flag]\t\t\tBoolean", "[Money]\t\t\tCurrency",
                               "[Sgl]\t\t\tSingle", "[Note]\t\t\tMemo"}) {
    EXPECT_NE(schema.find(expected), std::string::npos) << expected;
  }
  std::vector<std::string> csv = Lines(RunTool("mdb-export -T '%Y-%m-%d %H:%M:%S' " + path + " Types").value_or(""));
  ASSERT_EQ(csv.size(), 5u);
  EXPECT_EQ(csv[0], "Id,Txt,Dbl,Dt,Int,Byt,Flag,Money,Sgl,Note");
  EXPECT_EQ(csv[1], "1,\"caf\xc3\xa9 \xe2\x82\xac na\xc3\xafve\",-2.5e-07,\"2023-03-15 18:00:00\",-32768,255,1,12345.6789,1.5,\"" +
                        memo + "\"");
  EXPECT_EQ(csv[2], "2,,,,,,0,,,");
  // mdbtools shows empty texts and memos like nulls.
  EXPECT_EQ(csv[3], "3,\"" + long_text + "\",7,,,,0,,,");
  EXPECT_EQ(csv[4], "4,,,,,,0,,,\"short memo\"");
}

// Tables of 0, 1, a page and a bit, and 100,000 rows: the reader sees every
// row in order, the primary key's tree (several levels for the largest)
// holds one entry per row pointing at that row, and mdbtools counts the same.
TEST_F(JetWriterTest, TablesOfEverySizeAndTheirPrimaryKeys) {
  for (int rows : {0, 1, 120, 100000}) {
    SCOPED_TRACE(rows);
    const std::string path = PathTo("rows" + std::to_string(rows) + ".mdb");
    {
      Database db = Database::Create(path);
      TableDef def = db.CreateTableDef("T");
      def.CreateField(Field("Index", dbDouble, 255, true));
      def.CreateField(Field("Label", dbText, 40, false, true));
      def.CreateIndex(PrimaryKey("Index"));
      db.Append(def);
      Recordset rs = db.OpenTable("T");
      for (int i = 0; i < rows; ++i) {
        rs.AddNew();
        // Added in descending order, so the index must sort.
        rs.SetFieldValue(0, Variant(static_cast<double>(rows - i)));
        rs.SetFieldValue(1, Variant("row " + std::to_string(i)));
        rs.Update();
      }
      EXPECT_EQ(rs.GetRecordCount(), rows);
    }  // closing the database writes the file
    Database db;
    db.Open(path);
    EXPECT_EQ(db.GetTableDef("T").record_count, rows);
    Recordset rs = db.OpenTable("T");
    int seen = 0;
    while (!rs.IsEOF()) {
      ASSERT_EQ(rs.GetFieldValue(0).dblVal(), rows - seen);
      ASSERT_EQ(rs.GetFieldValue(1).text(), "row " + std::to_string(seen));
      rs.MoveNext();
      ++seen;
    }
    EXPECT_EQ(seen, rows);

    std::vector<std::uint8_t> file = FileBytes(path);
    const std::uint32_t tdef = 9;  // the first page after the system tables and their maps
    ASSERT_EQ(file[tdef * 4096], format::kPageTableDefinition);
    std::uint32_t root = IndexRoot(file, tdef, 0);
    auto fetch = [&](std::uint32_t page) { return std::span<const std::uint8_t>(file).subspan(page * 4096, 4096); };
    std::vector<internal::IndexEntry> entries = internal::ReadIndexEntries(fetch, root);
    ASSERT_EQ(entries.size(), static_cast<std::size_t>(rows));
    if (rows == 100000) {
      EXPECT_EQ(file[root * 4096], format::kPageIndexNode);
    }
    for (std::size_t i = 1; i < entries.size(); ++i) ASSERT_TRUE(internal::IndexEntryLess(entries[i - 1], entries[i]));
    if (rows > 0) {
      // The first key is 1.0, stored by the last row added.
      internal::Bytes page = fetch(entries.front().data_page);
      EXPECT_EQ(internal::LoadU32(page.data() + 4), tdef);
    }
    if (HaveMdbTools()) {
      EXPECT_EQ(Lines(RunTool("mdb-export " + path + " T").value_or("")).size(), static_cast<std::size_t>(rows) + 1);
    }
  }
}

TEST_F(JetWriterTest, SampleListTableOf160Columns) {
  const std::string path = PathTo("analysis.mdb");
  {
    Database db = Database::Create(path);
    TableDef def = db.CreateTableDef("ANALYSIS", 0x10000);
    for (int c = 0; c < kSampleColumnCount; ++c) {
      FieldInfo field = Field(kSampleColumns[c].name, kSampleColumns[c].type, 255, !kSampleColumns[c].optional,
                              kSampleColumns[c].type == dbText);
      field.ordinal_position = c + 1;
      def.CreateField(field);
    }
    def.CreateIndex(PrimaryKey("Index"));
    db.Append(def);
    Recordset rs = db.OpenTable("ANALYSIS");
    rs.SetCurrentIndex("PrimaryKey");
    for (int r = 0; r < 50; ++r) {
      rs.AddNew();
      for (int c = 0; c < kSampleColumnCount; c += 4) {
        rs.SetFieldValue(c, kSampleColumns[c].type == dbText ? Variant("t" + std::to_string(r * 1000 + c))
                                                             : Variant(r + c / 1000.0));
      }
      rs.SetFieldValue(kColumnIndex, Variant(static_cast<double>(r)));
      rs.Update();
    }
  }
  auto rows = ReadRows(path, "ANALYSIS");
  ASSERT_EQ(rows.size(), 50u);
  ASSERT_EQ(rows[0].size(), static_cast<std::size_t>(kSampleColumnCount));
  for (int r = 0; r < 50; ++r) {
    for (int c = 0; c < kSampleColumnCount; ++c) {
      const Variant& v = rows[r][c];
      if (c == kColumnIndex) {
        ASSERT_EQ(v.dblVal(), r);
      } else if (c % 4 != 0) {
        ASSERT_EQ(v.vt(), VT_NULL);
      } else if (kSampleColumns[c].type == dbText) {
        ASSERT_EQ(v.text(), "t" + std::to_string(r * 1000 + c));
      } else {
        ASSERT_EQ(v.dblVal(), r + c / 1000.0);
      }
    }
  }
  if (!HaveMdbTools()) GTEST_SKIP() << "mdbtools not installed";
  std::vector<std::string> csv = Lines(RunTool("mdb-export " + path + " ANALYSIS").value_or(""));
  ASSERT_EQ(csv.size(), 51u);
  EXPECT_EQ(csv[0].rfind("VERSION,", 0), 0u);
  EXPECT_EQ(std::count(csv[0].begin(), csv[0].end(), ','), kSampleColumnCount - 1);
}

// What Jet refuses is refused with a description, and nothing is left at
// the path of a database that was never closed.
TEST_F(JetWriterTest, RefusalsSayWhatIsWrong) {
  const std::string path = PathTo("refused.mdb");
  Database db = Database::Create(path);
  EXPECT_FALSE(std::filesystem::exists(path));
  auto refuse = [&](TableDef def, const char* words) {
    try {
      db.Append(def);
      ADD_FAILURE() << "accepted: " << words;
    } catch (const DaoException& e) {
      EXPECT_NE(e.Description().find(words), std::string::npos) << e.Description();
    }
  };
  TableDef twice = db.CreateTableDef("Twice");
  twice.CreateField(Field("A", dbLong));
  twice.CreateField(Field("a", dbText, 10));
  refuse(twice, "defined twice");
  TableDef long_name = db.CreateTableDef(std::string(65, 'n'));
  long_name.CreateField(Field("A", dbLong));
  refuse(long_name, "longer than 64");
  TableDef bad_char = db.CreateTableDef("T");
  bad_char.CreateField(Field("a.b", dbLong));
  refuse(bad_char, "does not allow");
  TableDef wide_text = db.CreateTableDef("T");
  wide_text.CreateField(Field("A", dbText, 256));
  refuse(wide_text, "at most 255");
  TableDef wide = db.CreateTableDef("T");
  for (int i = 0; i < 256; ++i) wide.CreateField(Field("F" + std::to_string(i), dbLong));
  refuse(wide, "255");
  TableDef memo_key = db.CreateTableDef("T");
  memo_key.CreateField(Field("A", dbMemo));
  memo_key.CreateIndex(PrimaryKey("A"));
  refuse(memo_key, "cannot be indexed");

  TableDef good = db.CreateTableDef("Good");
  good.CreateField(Field("K", dbLong, 0, true));
  good.CreateField(Field("S", dbText, 5));
  good.CreateIndex(PrimaryKey("K"));
  db.Append(good);
  refuse(good, "already exists");
  Recordset rs = db.OpenTable("Good");
  rs.AddNew();
  EXPECT_THROW(rs.SetFieldValue("S", Variant("too long")), DaoException);
  EXPECT_THROW(rs.SetFieldValue("K", Variant("not a number")), DaoException);
  EXPECT_THROW(rs.SetFieldValue("K", Variant(3e10)), DaoException);
  EXPECT_THROW(rs.Update(), DaoException);  // K is required
  rs.SetFieldValue("K", Variant(1L));
  rs.Update();
  rs.AddNew();
  rs.SetFieldValue("K", Variant(1L));
  EXPECT_THROW(rs.Update(), DaoException);  // duplicate key
  rs.SetFieldValue("K", Variant(2L));
  rs.Update();
  EXPECT_THROW(rs.SetCurrentIndex("NoSuchIndex"), DaoException);
  rs.Close();
  db.Close();
  EXPECT_EQ(ReadRows(path, "Good").size(), 2u);
  EXPECT_THROW(Database::Create(path), DaoException);  // exists already
}

}  // namespace
}  // namespace kvdao::jet
