// The DAO-shaped interface: table and field descriptions, indexes, variant
// values in code page 1252, SQL recordsets, and the errors it reports.

#include <gtest/gtest.h>

#include "common/test_env.h"
#include "kvdao/jet/jet.h"

namespace kvdao::jet {
namespace {

class JetDatabaseTest : public ::testing::Test {
 protected:
  void SetUp() override {
    fixtures_ = kvdao::test::FixturesDir();
    if (fixtures_.empty()) GTEST_SKIP() << "shared fixtures folder not found";
  }
  std::string Fixture(const std::string& name) const { return fixtures_ + "/jet/" + name; }

  std::string fixtures_;
};

TEST_F(JetDatabaseTest, HeaderAndTableLists) {
  Database jet3 = Workspace::Shared().OpenDatabase(Fixture("real/jackcess-testV1997.mdb"));
  EXPECT_EQ(jet3.Info().jet_version, 3);
  EXPECT_EQ(jet3.Info().page_size, 2048);
  Database jet4 = Workspace::Shared().OpenDatabase(Fixture("generated/analysis-100.mdb"));
  EXPECT_EQ(jet4.Info().jet_version, 4);
  EXPECT_EQ(jet4.Info().page_size, 4096);
  EXPECT_GT(jet4.Info().creation_date, 36526.0);  // written after 2000-01-01

  EXPECT_EQ(jet4.GetTableNames(), std::vector<std::string>{"ANALYSIS"});
  std::vector<std::string> all = jet4.GetTableNames(true);
  EXPECT_NE(std::find(all.begin(), all.end(), "MSysObjects"), all.end());
  EXPECT_TRUE(jet4.GetTableDef("msysobjects").system);
}

TEST_F(JetDatabaseTest, SampleListFieldsAndPrimaryKey) {
  Database db = Workspace::Shared().OpenDatabase(Fixture("generated/analysis-100.mdb"));
  TableDef def = db.GetTableDef("analysis");
  ASSERT_EQ(def.fields.size(), 160u);
  EXPECT_EQ(def.record_count, 100);
  const FieldInfo& version = def.fields.front();
  EXPECT_EQ(version.name, "VERSION");
  EXPECT_EQ(version.type, dbDouble);
  EXPECT_EQ(version.size, 8);
  EXPECT_EQ(version.attributes & dbFixedField, dbFixedField);
  const FieldInfo* file_name = def.FindField("file_name");
  ASSERT_NE(file_name, nullptr);
  EXPECT_EQ(file_name->type, dbText);
  EXPECT_EQ(file_name->size, 255);
  EXPECT_EQ(file_name->ordinal_position, 1);
  EXPECT_TRUE(file_name->allow_zero_length);
  EXPECT_FALSE(file_name->required);
  const FieldInfo& index = def.fields.back();
  EXPECT_EQ(index.name, "Index");
  EXPECT_TRUE(index.required);

  ASSERT_EQ(def.indexes.size(), 1u);
  const IndexInfo& key = def.indexes[0];
  EXPECT_EQ(key.name, "PrimaryKey");
  EXPECT_TRUE(key.primary);
  EXPECT_TRUE(key.unique);
  ASSERT_EQ(key.fields.size(), 1u);
  EXPECT_EQ(key.fields[0].name, "Index");
  EXPECT_FALSE(key.fields[0].descending);
}

TEST_F(JetDatabaseTest, IndexesOfRealFiles) {
  Database db = Workspace::Shared().OpenDatabase(Fixture("real/jackcess-fixedTextTestV2000.mdb"));
  EXPECT_EQ(db.GetTableDef("users").indexes.size(), 6u);
  Database rel = Workspace::Shared().OpenDatabase(Fixture("real/jackcess-indexTestV1997.mdb"));
  TableDef table1 = rel.GetTableDef("Table1");
  int primary = 0, foreign = 0;
  for (const IndexInfo& index : table1.indexes) {
    primary += index.primary;
    foreign += index.foreign;
    EXPECT_FALSE(index.fields.empty()) << index.name;
  }
  EXPECT_EQ(primary, 1);
  EXPECT_GE(foreign, 1);
}

TEST_F(JetDatabaseTest, VariantsCarryCodePage1252AndDaoTags) {
  Database db = Workspace::Shared().OpenDatabase(Fixture("real/jackcess-testUnicodeCompV2003.mdb"));
  Recordset rs = db.OpenRecordset("SELECT * FROM [Table] ORDER BY ID");
  std::vector<std::string> texts;
  for (; !rs.IsEOF(); rs.MoveNext()) {
    Variant id = rs.GetFieldValue("id");
    EXPECT_EQ(id.vt(), VT_I4);
    texts.emplace_back(rs.GetFieldValue("Unicode").text());
  }
  ASSERT_EQ(texts.size(), 8u);
  EXPECT_EQ(texts[1], "\xE4\xE4kk\xF6si\xE4");  // ääkkösiä
  EXPECT_EQ(texts[2], "???");                    // Cyrillic has no code page 1252 form

  Database sample = Workspace::Shared().OpenDatabase(Fixture("generated/analysis-100.mdb"));
  Recordset rows = sample.OpenTable("ANALYSIS");
  bool euro = false;
  for (; !rows.IsEOF(); rows.MoveNext()) {
    Variant text = rows.GetFieldValue("FILE_TEXT");
    if (text.vt() == VT_BSTR && text.text().find('\x80') != std::string_view::npos) euro = true;
    Variant version = rows.GetFieldValue("VERSION");
    ASSERT_EQ(version.vt(), VT_R8);
    EXPECT_EQ(version.dblVal(), 31.5);
  }
  EXPECT_TRUE(euro) << "a FILE_TEXT with the euro sign as byte 0x80";
}

TEST_F(JetDatabaseTest, VariantTagsOfEveryBasicType) {
  // Jet 3 file: its scan order ends with the row holding non-zero values.
  Database db = Workspace::Shared().OpenDatabase(Fixture("real/jackcess-testV1997.mdb"));
  Recordset rs = db.OpenTable("Table1");
  rs.MoveLast();
  ASSERT_FALSE(rs.IsEOF());
  EXPECT_EQ(rs.GetFieldValue("A").text(), "abcdefg");
  EXPECT_EQ(rs.GetFieldValue("C").vt(), VT_UI1);
  EXPECT_EQ(rs.GetFieldValue("C").bVal(), 2);
  EXPECT_EQ(rs.GetFieldValue("D").vt(), VT_I2);
  EXPECT_EQ(rs.GetFieldValue("D").iVal(), 222);
  EXPECT_EQ(rs.GetFieldValue("E").lVal(), 333333333);
  EXPECT_EQ(rs.GetFieldValue("F").dblVal(), 444.555);
  EXPECT_EQ(rs.GetFieldValue("G").vt(), VT_DATE);
  EXPECT_EQ(FormatOleDate(rs.GetFieldValue("G").date()), "1974-09-21T00:00:00");
  EXPECT_EQ(rs.GetFieldValue("H").vt(), VT_CY);
  EXPECT_EQ(rs.GetFieldValue("H").cyVal(), 35000);
  EXPECT_EQ(rs.GetFieldValue("I").vt(), VT_BOOL);
  EXPECT_EQ(rs.GetFieldValue("I").boolVal(), VARIANT_TRUE);
  rs.MoveNext();
  EXPECT_TRUE(rs.IsEOF());
  EXPECT_THROW(rs.MoveNext(), DaoException);
  EXPECT_THROW(rs.GetFieldValue("A"), DaoException);
}

TEST_F(JetDatabaseTest, OrderedRecordsetsAndNulls) {
  Database db = Workspace::Shared().OpenDatabase(Fixture("generated/analysis-100.mdb"));
  Recordset rs = db.OpenRecordset("select * from ANALYSIS order by [Index] desc;");
  EXPECT_EQ(rs.GetRecordCount(), 100);
  double expected = 99;
  int nulls = 0, empties = 0;
  for (; !rs.IsEOF(); rs.MoveNext(), expected -= 1) {
    EXPECT_EQ(rs.GetFieldValue("Index").dblVal(), expected);
    Variant text = rs.GetFieldValue("FILE_TEXT");
    nulls += text.vt() == VT_NULL;
    empties += text.vt() == VT_BSTR && text.text().empty();
  }
  EXPECT_EQ(expected, -1);
  EXPECT_GT(nulls, 0);
  EXPECT_GT(empties, 0);

  Recordset by_name = db.OpenRecordset("SELECT * FROM ANALYSIS ORDER BY FILE_NAME");
  std::string previous;
  for (; !by_name.IsEOF(); by_name.MoveNext()) {
    std::string name(by_name.GetFieldValue("FILE_NAME").text());
    EXPECT_LE(previous, name);
    previous = name;
  }
}

TEST_F(JetDatabaseTest, WholeRecordViewsAgreeWithSingleFields) {
  Database db = Workspace::Shared().OpenDatabase(Fixture("generated/analysis-100.mdb"));
  Recordset rs = db.OpenTable("ANALYSIS");
  int rows = 0;
  for (; !rs.IsEOF(); rs.MoveNext(), ++rows) {
    // Alternate the order of the two paths so that each sees values the
    // other decoded on this row and on the row before.
    if (rows % 2 == 0) rs.GetFieldValue("FILE_TEXT");
    std::span<const FieldValue> record = rs.GetRecordView();
    ASSERT_EQ(record.size(), 160u);
    for (int i = 0; i < 160; ++i) {
      Variant single = rs.GetFieldValue(i);
      const FieldValue& view = record[static_cast<std::size_t>(i)];
      ASSERT_EQ(view.null, single.vt() == VT_NULL) << "row " << rows << " field " << i;
      EXPECT_EQ(view.type, rs.GetFieldInfo(i).type);
      if (!view.null && view.type == dbText) {
        EXPECT_EQ(view.text, single.text());
      }
      if (!view.null && view.type == dbDouble) {
        EXPECT_EQ(view.real, single.dblVal());
      }
    }
  }
  EXPECT_EQ(rows, 100);
}

TEST_F(JetDatabaseTest, FailuresCarryDescriptions) {
  Database db = Workspace::Shared().OpenDatabase(Fixture("generated/analysis-100.mdb"));
  auto description = [](auto&& action) {
    try {
      action();
    } catch (const DaoException& error) {
      return error.Description();
    }
    return std::string("no exception");
  };
  EXPECT_NE(description([&] { db.OpenTable("NoSuchTable"); }).find("NoSuchTable"), std::string::npos);
  Recordset rs = db.OpenTable("ANALYSIS");
  EXPECT_NE(description([&] { rs.GetFieldValue("NO_FIELD"); }).find("NO_FIELD"), std::string::npos);
  EXPECT_NE(description([&] { db.OpenRecordset("SELECT A FROM ANALYSIS"); }).find("Syntax"), std::string::npos);
  EXPECT_NE(description([&] { db.OpenRecordset("SELECT * FROM ANALYSIS ORDER BY Nope"); }), "no exception");

  Database other;
  EXPECT_NE(description([&] { other.Open(Fixture("README.md")); }).find("not a Jet database"), std::string::npos);
  EXPECT_NE(description([&] { other.Open(Fixture("real/none.mdb")); }), "no exception");
  EXPECT_NE(description([&] { other.Open(Fixture("real/jackcess-testV1997.mdb"), false, true, "Text;"); }),
            "no exception");
  EXPECT_NE(description([&] { other.GetTableNames(); }), "no exception");
}

}  // namespace
}  // namespace kvdao::jet
