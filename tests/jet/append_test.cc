// Changing existing Jet 4 files: tables added to Access-made databases and
// rows added to existing tables, read back with this library (old rows
// unchanged, new rows present, every rebuilt index complete) and with
// mdbtools; refused or failed writes leave the file byte for byte as it was.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "common/test_env.h"
#include "byte_writer.h"
#include "database_file.h"
#include "header.h"
#include "index_reader.h"
#include "jet/writer_test_util.h"
#include "kvdao/jet/jet.h"

namespace kvdao::jet {
namespace {

using namespace writer_check;
namespace fs = std::filesystem;

// Entries of every rebuildable index of a table, read from its tree, per
// physical index; the tree reader checks their order as it goes.
std::vector<std::size_t> IndexEntryCounts(const std::string& path, const std::string& table) {
  internal::DatabaseFile file(path);
  const internal::TableDefinition& definition = file.Table(table)->definition;
  auto fetch = [&](std::uint32_t page) { return file.pages().Page(page); };
  std::vector<std::size_t> counts;
  for (const internal::RealIndexDef& index : definition.real_indexes) {
    counts.push_back(internal::ReadIndexEntries(fetch, index.first_page).size());
  }
  return counts;
}

long RowCount(const std::string& path, const std::string& table) {
  return static_cast<long>(ReadRows(path, table).size());
}

// Every table's rows, system tables included.
std::vector<std::vector<std::vector<Variant>>> AllRows(const std::string& path, bool include_system) {
  Database db;
  db.Open(path);
  std::vector<std::vector<std::vector<Variant>>> tables;
  for (const std::string& name : db.GetTableNames(include_system)) tables.push_back(ReadRows(path, name));
  return tables;
}

// The permission entries a new table inherits: those of the catalog's
// "Tables" container marked inheritable.
long InheritedPermissions(const std::string& path) {
  long container = 0;
  for (const auto& row : ReadRows(path, "MSysObjects")) {
    // Catalog fields in column order: Id 0, ParentId 1, Name 2, Type 3.
    if (row[2].text() == "Tables" && row[3].iVal() == 3) container = row[0].lVal();
  }
  long count = 0;
  for (const auto& row : ReadRows(path, "MSysACEs")) {
    // ObjectId 0, SID 1, ACM 2, FInheritable 3.
    if (row[0].lVal() == container && row[3].boolVal() != 0) ++count;
  }
  return count;
}

// Rows ordered by their first field (a key): scan order follows the pages,
// and new rows may sit on pages the file had free before old ones.
std::vector<std::vector<Variant>> ByKey(std::vector<std::vector<Variant>> rows) {
  std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a[0].lVal() < b[0].lVal(); });
  return rows;
}

std::string Memo(int row) { return std::string(static_cast<std::size_t>(row % 7) * 900, 'a' + row % 26) + "!"; }

TableDef SampleTable(Database& db, const std::string& name) {
  TableDef def = db.CreateTableDef(name);
  def.CreateField(Field("Id", dbLong, 0, true));
  def.CreateField(Field("Name", dbText, 80, false, true));
  def.CreateField(Field("Notes", dbMemo, 0, false, true));
  def.CreateField(Field("Amount", dbDouble));
  def.CreateIndex(PrimaryKey("Id"));
  return def;
}

void AddSampleRows(Recordset& rs, int first, int count) {
  for (int i = first; i < first + count; ++i) {
    rs.AddNew();
    rs.SetFieldValue("Id", Variant(static_cast<long>(i)));
    rs.SetFieldValue("Name", Variant("r\xE9sum\xE9 " + std::to_string(i)));
    rs.SetFieldValue("Notes", Variant(Memo(i)));
    if (i % 3 != 0) rs.SetFieldValue("Amount", Variant(i * 0.25));
    rs.Update();
  }
}

void ExpectSampleRows(const std::string& path, const std::string& table, int count) {
  std::vector<std::vector<Variant>> rows = ReadRows(path, table);
  ASSERT_EQ(rows.size(), static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    SCOPED_TRACE(i);
    ASSERT_EQ(rows[i][0].lVal(), i);
    ASSERT_EQ(rows[i][1].text(), "r\xE9sum\xE9 " + std::to_string(i));
    ASSERT_EQ(rows[i][2].text(), Memo(i));
    if (i % 3 == 0) {
      ASSERT_TRUE(rows[i][3].IsEmptyOrNull());
    } else {
      ASSERT_EQ(rows[i][3].dblVal(), i * 0.25);
    }
  }
}

// mdbtools sees the table with its rows: the first exported field of each
// row is the key, in the order the rows were added.
void ExpectMdbToolsRead(const std::string& path, const std::string& table, int count) {
  if (!HaveMdbTools()) return;
  std::optional<std::string> tables = RunTool("mdb-tables -1 '" + path + "'");
  ASSERT_TRUE(tables.has_value());
  std::vector<std::string> names = Lines(*tables);
  EXPECT_NE(std::find(names.begin(), names.end(), table), names.end());
  std::optional<std::string> schema = RunTool("mdb-schema '" + path + "'");
  ASSERT_TRUE(schema.has_value());
  EXPECT_NE(schema->find("[" + table + "]"), std::string::npos);
  std::optional<std::string> exported = RunTool("mdb-export -H -d '|' '" + path + "' '" + table + "'");
  ASSERT_TRUE(exported.has_value());
  std::vector<std::string> lines = Lines(*exported);
  ASSERT_EQ(lines.size(), static_cast<std::size_t>(count));
  for (int i = 0; i < count; i += 37) EXPECT_EQ(lines[i].substr(0, lines[i].find('|')), std::to_string(i));
}

class JetAppendTest : public test::TempEnvTest {
 protected:
  // A copy of a fixture to change, or empty when fixtures are absent.
  std::string CopyOf(const std::string& fixture) {
    if (test::FixturesDir().empty()) return {};
    std::string path = PathTo(fixture);
    fs::copy_file(test::FixturesDir() + "/jet/real/" + fixture, path, fs::copy_options::overwrite_existing);
    return path;
  }
  // Files left beside path other than path itself (temporary copies).
  std::vector<std::string> Leftovers(const std::string& path) {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(fs::path(path).parent_path())) {
      std::string name = entry.path().filename().string();
      if (name.rfind(fs::path(path).filename().string() + ".", 0) == 0) found.push_back(name);
    }
    return found;
  }
};

TEST_F(JetAppendTest, TablesAddedToAccessMadeDatabases) {
  for (const char* fixture : {"jackcess-testV2000.mdb", "jackcess-indexTestV2000.mdb", "jackcess-adox_jet4.mdb"}) {
    SCOPED_TRACE(fixture);
    const std::string path = CopyOf(fixture);
    if (path.empty()) GTEST_SKIP() << "shared fixtures not present";
    const auto before = AllRows(path, false);
    const long catalog_rows = RowCount(path, "MSysObjects");
    const long permission_rows = RowCount(path, "MSysACEs");
    const long inherited = InheritedPermissions(path);
    {
      Database db;
      db.Open(path, false, false);
      db.Append(SampleTable(db, "Added"));
      Recordset rs = db.OpenTable("Added");
      AddSampleRows(rs, 0, 300);  // several data pages and long-value pages
      db.Close();
    }
    EXPECT_TRUE(Leftovers(path).empty());
    auto after = AllRows(path, false);
    ASSERT_EQ(after.size(), before.size() + 1);
    after.pop_back();
    EXPECT_TRUE(after == before) << "rows of the old tables changed";
    ExpectSampleRows(path, "Added", 300);
    EXPECT_EQ(RowCount(path, "MSysObjects"), catalog_rows + 1);
    EXPECT_EQ(RowCount(path, "MSysACEs"), permission_rows + inherited);
    // Rebuilt indexes hold every row: the catalog's Id and name indexes, the
    // permissions' ObjectId index, the new table's key.
    EXPECT_EQ(IndexEntryCounts(path, "MSysObjects"), std::vector<std::size_t>(2, catalog_rows + 1));
    EXPECT_EQ(IndexEntryCounts(path, "MSysACEs")[0], static_cast<std::size_t>(permission_rows + inherited));
    EXPECT_EQ(IndexEntryCounts(path, "Added"), std::vector<std::size_t>{300});
    ExpectMdbToolsRead(path, "Added", 300);
  }
}

TEST_F(JetAppendTest, RowsAppendedToTablesOfEitherMaker) {
  // A table this writer made, continued across pages and with Memo values;
  // a duplicate of an old key is refused at Update and the row stays staged.
  const std::string path = PathTo("ours.mdb");
  {
    Database db = Database::Create(path);
    db.Append(SampleTable(db, "T"));
    Recordset rs = db.OpenTable("T");
    AddSampleRows(rs, 0, 50);
    db.Close();
  }
  for (int round = 1; round <= 2; ++round) {
    Database db;
    db.Open(path, false, false);
    Recordset rs = db.OpenTable("T");
    rs.AddNew();
    rs.SetFieldValue("Id", Variant(7L));
    EXPECT_THROW(rs.Update(), DaoException);
    rs.CancelUpdate();
    AddSampleRows(rs, 50 * round, 50);
    db.Close();
  }
  ExpectSampleRows(path, "T", 150);
  EXPECT_EQ(IndexEntryCounts(path, "T"), std::vector<std::size_t>{150});
  Database reread;
  reread.Open(path);
  EXPECT_EQ(reread.GetTableDef("T").record_count, 150);
  reread.Close();
  ExpectMdbToolsRead(path, "T", 150);

  // An Access-made table whose indexes (a primary key, a plain one and the
  // primary side of a relationship) are on a Long column.
  const std::string access = CopyOf("jackcess-indexTestV2000.mdb");
  if (access.empty()) GTEST_SKIP() << "shared fixtures not present";
  const auto old_rows = ByKey(ReadRows(access, "Table2"));
  const std::vector<std::size_t> old_counts = IndexEntryCounts(access, "Table2");
  {
    Database db;
    db.Open(access, false, false);
    Recordset rs = db.OpenTable("Table2");
    rs.AddNew();
    rs.SetFieldValue("id", Variant(1L));
    EXPECT_THROW(rs.Update(), DaoException);  // the key is in the file already
    for (long id = 100; id < 400; ++id) {
      rs.AddNew();
      rs.SetFieldValue("id", Variant(id));
      rs.SetFieldValue("data", Variant("new" + std::to_string(id)));
      rs.Update();
    }
    db.Close();
  }
  const auto rows = ByKey(ReadRows(access, "Table2"));
  ASSERT_EQ(rows.size(), old_rows.size() + 300);
  EXPECT_TRUE(std::equal(old_rows.begin(), old_rows.end(), rows.begin()));
  EXPECT_EQ(rows.back()[1].text(), "new399");
  for (std::size_t count : IndexEntryCounts(access, "Table2")) EXPECT_EQ(count, old_rows.size() + 300);
  EXPECT_EQ(old_counts.size(), IndexEntryCounts(access, "Table2").size());
  if (HaveMdbTools()) {
    std::optional<std::string> exported = RunTool("mdb-export -H '" + access + "' Table2");
    ASSERT_TRUE(exported.has_value());
    EXPECT_EQ(Lines(*exported).size(), rows.size());
  }

  // An Access-made table keyed on Text (primary key A, a plain index on B):
  // keys compare in the General sort order, so "ABCDEFG" repeats "abcdefg".
  const std::string text_keyed = CopyOf("jackcess-testV2000.mdb");
  {
    Database db;
    db.Open(text_keyed, false, false);
    Recordset rs = db.OpenTable("Table1");
    rs.AddNew();
    rs.SetFieldValue("A", Variant("ABCDEFG"));
    EXPECT_THROW(rs.Update(), DaoException);
    for (int i = 0; i < 200; ++i) {
      rs.AddNew();
      rs.SetFieldValue("A", Variant("key " + std::to_string(i)));
      rs.SetFieldValue("B", Variant(std::to_string(i % 10)));
      rs.SetFieldValue("I", Variant(static_cast<short>(VARIANT_TRUE), VT_BOOL));
      rs.Update();
    }
    db.Close();
  }
  EXPECT_EQ(RowCount(text_keyed, "Table1"), 202);
  EXPECT_EQ(IndexEntryCounts(text_keyed, "Table1"), std::vector<std::size_t>(2, 202));
  if (HaveMdbTools()) {
    std::optional<std::string> exported = RunTool("mdb-export -H '" + text_keyed + "' Table1");
    ASSERT_TRUE(exported.has_value());
    EXPECT_EQ(Lines(*exported).size(), 202u);
  }
}

TEST_F(JetAppendTest, RefusedAndFailedWritesLeaveTheFileAsItWas) {
  const std::string jet3 = CopyOf("jackcess-testV1997.mdb");
  const std::string jet4 = CopyOf("jackcess-testV2000.mdb");
  if (jet3.empty()) GTEST_SKIP() << "shared fixtures not present";
  const std::vector<std::uint8_t> jet3_bytes = FileBytes(jet3), jet4_bytes = FileBytes(jet4);
  auto description = [](auto&& action) {
    try {
      action();
    } catch (const DaoException& e) {
      return std::string(e.what());
    }
    return std::string("no exception");
  };

  // Jet 3 is read, never written.
  Database db;
  EXPECT_NE(description([&] { db.Open(jet3, false, false); }).find("Jet 3"), std::string::npos);
  db.Open(jet3);
  EXPECT_FALSE(db.GetTableNames().empty());
  db.Close();

  // A table that exists; a table whose key is a GUID.
  db.Open(jet4, false, false);
  EXPECT_NE(description([&] { db.Append(SampleTable(db, "table1")); }).find("already exists"), std::string::npos);
  EXPECT_NE(description([&] { db.OpenTable("Table4"); }).find("GUID"), std::string::npos);
  EXPECT_EQ(db.GetTableDef("Table4").fields.size(), 2u);  // still described
  db.Close();

  // An exception unwinding past a database being written discards it.
  EXPECT_THROW(
      {
        Database writing;
        writing.Open(jet4, false, false);
        writing.Append(SampleTable(writing, "Lost"));
        Recordset rs = writing.OpenTable("Lost");
        AddSampleRows(rs, 0, 20);
        rs.AddNew();
        rs.SetFieldValue("Id", Variant(3L));
        rs.Update();  // a duplicate key: throws
      },
      DaoException);

  // Header values the writer cannot keep: a password, another code page.
  const std::string engine = CopyOf("jackcess-adox_jet4.mdb");
  for (const auto& [offset, value, why] :
       {std::tuple{format::kHeaderPasswordJet4, 0x61u, "password"}, std::tuple{format::kHeaderCodePage, 1250u, "code page"}}) {
    std::vector<std::uint8_t> bytes = FileBytes(CopyOf("jackcess-adox_jet4.mdb"));
    std::uint8_t key[4];
    internal::StoreU32(key, format::kHeaderMaskKey);
    std::span<std::uint8_t> masked(bytes.data() + format::kHeaderMaskedOffset, format::kHeaderMaskedSizeJet4);
    internal::Rc4Apply(key, masked);
    bytes[static_cast<std::size_t>(offset)] ^= static_cast<std::uint8_t>(value);
    bytes[static_cast<std::size_t>(offset) + 1] ^= static_cast<std::uint8_t>(value >> 8);
    internal::Rc4Apply(key, masked);
    test::WriteFile(engine, std::string(bytes.begin(), bytes.end()));
    EXPECT_NE(description([&] { db.Open(engine, false, false); }).find(why), std::string::npos);
    db.Open(engine);
    EXPECT_EQ(db.GetTableNames().size(), 0u);
    db.Close();
    EXPECT_EQ(FileBytes(engine), bytes);
  }

  EXPECT_EQ(FileBytes(jet3), jet3_bytes);
  EXPECT_EQ(FileBytes(jet4), jet4_bytes);
  EXPECT_TRUE(Leftovers(jet3).empty());
  EXPECT_TRUE(Leftovers(jet4).empty());
}

}  // namespace
}  // namespace kvdao::jet
