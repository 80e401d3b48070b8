// Reading CSV for import: RFC 4180 quoting, null versus empty text, errors
// that name the line, column types inferred or given, field conversion, and
// what `kvdao jet export` writes reading back to the values it exported.

#include "csv_table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <sstream>

#include "cli.h"
#include "column_type_inference.h"
#include "common/test_env.h"
#include "kvdao/jet/jet.h"
#include "kvdao/platform/dao_types.h"

namespace kvdao::cli {
namespace {

std::string ErrorOf(std::string_view text) {
  try {
    CsvTable::Parse(text);
  } catch (const CsvError& e) {
    return e.what();
  }
  return "no error";
}

TEST(CsvTable, ReadsQuotingNullsAndLineEnds) {
  CsvTable table = CsvTable::Parse(
      "\xEF\xBB\xBF" "id,\"na,me\",note\r\n"
      "1,\"say \"\"hi\"\"\",\"two\r\nlines\"\n"
      "2,,\"\"\r\n"
      "3,plain,x");  // no final line end
  ASSERT_EQ(table.columns(), (std::vector<std::string>{"id", "na,me", "note"}));
  ASSERT_EQ(table.row_count(), 3u);
  EXPECT_EQ(table.Field(0, 1), "say \"hi\"");
  EXPECT_EQ(table.Field(0, 2), "two\r\nlines");
  EXPECT_EQ(table.Field(1, 1), std::nullopt);  // unquoted empty: null
  EXPECT_EQ(table.Field(1, 2), "");            // quoted empty: empty text
  EXPECT_EQ(table.Field(2, 0), "3");
  EXPECT_EQ(table.Field(2, 2), "x");

  CsvTable one_column = CsvTable::Parse("a\n\n5\n");
  ASSERT_EQ(one_column.row_count(), 2u);
  EXPECT_EQ(one_column.Field(0, 0), std::nullopt);
  EXPECT_EQ(CsvTable::Parse("a,b\r\n").row_count(), 0u);
}

TEST(CsvTable, ErrorsNameTheLine) {
  EXPECT_EQ(ErrorOf(""), "line 1: the file has no header line");
  EXPECT_EQ(ErrorOf("\xEF\xBB\xBF"), "line 1: the file has no header line");
  EXPECT_EQ(ErrorOf("a,,b\n"), "line 1: a column name is empty");
  EXPECT_EQ(ErrorOf("a,b,a\n"), "line 1: the column name 'a' appears twice");
  EXPECT_EQ(ErrorOf("a,b\n1,2\n\"x\ny\",2,3\n"), "line 3: 3 fields where the header has 2");
  EXPECT_EQ(ErrorOf("a,b\n1,\"open\n"), "line 2: a quoted field is never closed");
  EXPECT_EQ(ErrorOf("a,b\n1,x\"y\n"), "line 2: a quote inside a field that does not start with one");
  EXPECT_EQ(ErrorOf("a,b\n\"multi\nline\"x,2\n"), "line 3: a closing quote is followed by more text in the same field");
  EXPECT_EQ(ErrorOf("a,b\n1,\xC3\n"), "line 2: the text is not valid UTF-8");
  EXPECT_EQ(ErrorOf("a,b\n1,\xED\xA0\x80\n"), "line 2: the text is not valid UTF-8");  // a surrogate
}

ImportColumnType Inferred(const std::string& values) {
  CsvTable table = CsvTable::Parse("c\n" + values);
  return InferColumnType(table, 0);
}

TEST(ColumnTypes, InferredFromEveryValue) {
  EXPECT_EQ(Inferred("1\n-2147483648\n\n2147483647\n").dao_type, dbLong);
  EXPECT_EQ(Inferred("1\n2147483648\n").dao_type, dbDouble);
  EXPECT_EQ(Inferred("1\n2.5\n1e+20\nInfinity\nNaN\n").dao_type, dbDouble);
  EXPECT_EQ(Inferred("2024-02-29\n2024-03-01T13:45:10.250\n").dao_type, dbDate);
  EXPECT_EQ(Inferred("2023-02-29\n").dao_type, dbText);  // no such day
  EXPECT_EQ(Inferred("1\n\"\"\n").dao_type, dbText);  // an empty text is no number
  EXPECT_EQ(Inferred("\n\n").dao_type, dbText);
  ImportColumnType text = Inferred("x\n\"\xC3\xA9t\xC3\xA9\"\n");
  EXPECT_EQ(text.dao_type, dbText);
  EXPECT_EQ(text.max_length, 3);  // characters, not bytes
  EXPECT_EQ(Inferred(std::string(256, 'a') + "\n").dao_type, dbMemo);
  EXPECT_EQ(Inferred(std::string(255, 'a') + "\n").dao_type, dbText);
}

TEST(ColumnTypes, NamesAndTypeLists) {
  EXPECT_EQ(DaoTypeFromName("currency"), dbCurrency);
  EXPECT_EQ(DaoTypeFromName("Date"), dbDate);
  EXPECT_EQ(DaoTypeFromName("Decimal"), std::nullopt);
  std::map<std::string, int> types = ParseTypeList("a:Integer,b c:MEMO");
  EXPECT_EQ(types, (std::map<std::string, int>{{"a", dbInteger}, {"b c", dbMemo}}));
  EXPECT_THROW(ParseTypeList("a"), ColumnTypeError);
  EXPECT_THROW(ParseTypeList("a:Number"), ColumnTypeError);
}

TEST(ColumnTypes, FieldsConvertToStoredValues) {
  EXPECT_EQ(ConvertField(std::nullopt, dbLong).vt(), VT_NULL);
  EXPECT_EQ(ConvertField("-7", dbLong), Variant(-7));
  EXPECT_EQ(ConvertField("-32768", dbInteger), Variant(short{-32768}));
  EXPECT_EQ(ConvertField("255", dbByte), Variant(static_cast<unsigned char>(255)));
  EXPECT_EQ(ConvertField("TRUE", dbBoolean), Variant(VARIANT_TRUE, VT_BOOL));
  EXPECT_EQ(ConvertField("no", dbBoolean), Variant(VARIANT_FALSE, VT_BOOL));
  EXPECT_EQ(ConvertField("-1", dbBoolean), Variant(VARIANT_TRUE, VT_BOOL));
  EXPECT_EQ(ConvertField("-12.5", dbCurrency), Variant(Currency{-125000}));
  EXPECT_EQ(ConvertField("922337203685477.5807", dbCurrency), Variant(Currency{INT64_MAX}));
  EXPECT_EQ(ConvertField("0.25", dbSingle), Variant(0.25f));
  EXPECT_EQ(ConvertField("1e-300", dbDouble), Variant(1e-300));
  EXPECT_EQ(ConvertField("caf\xC3\xA9", dbText), Variant("caf\xE9"));  // code page 1252
  // OLE dates: 1900-01-01 is day 2; before 1899-12-30 the time of day
  // still adds to the magnitude.
  EXPECT_EQ(ConvertField("1900-01-01", dbDate).date(), 2.0);
  EXPECT_EQ(ConvertField("1899-12-29T06:00:00", dbDate).date(), -1.25);
  EXPECT_EQ(ConvertField("2000-01-01 12:00:00.5", dbDate).date(), 36526.0 + 43200.5 / 86400.0);

  for (auto [text, type] : std::vector<std::pair<const char*, int>>{
           {"2147483648", dbLong}, {"40000", dbInteger}, {"-1", dbByte}, {"1.5", dbLong}, {"maybe", dbBoolean},
           {"1.23456", dbCurrency}, {"922337203685477.5808", dbCurrency}, {"1e39", dbSingle}, {"12:00", dbDate},
           {"", dbDouble}}) {
    EXPECT_THROW(ConvertField(std::string_view(text), type), ColumnTypeError) << text << " as " << type;
  }
}

TEST(CsvTable, ExportReadsBackToTheSameValues) {
  std::string fixtures = kvdao::test::FixturesDir();
  if (fixtures.empty()) GTEST_SKIP() << "shared fixtures folder not found";
  std::string path = fixtures + "/jet/real/jackcess-testV2000.mdb";
  std::ostringstream out, err;
  for (const Command& command : Commands()) {
    if (command.name != "jet") continue;
    CommandContext context{{"export", path, "Table1"}, out, err};
    ASSERT_EQ(command.run(context), kExitOk) << err.str();
  }
  CsvTable table = CsvTable::Parse(out.str());

  jet::Database database;
  database.Open(path);
  jet::Recordset records = database.OpenRecordset("SELECT * FROM Table1");
  ASSERT_EQ(table.columns().size(), static_cast<std::size_t>(records.GetFieldCount()));
  std::size_t row = 0;
  int compared_types = 0;
  for (; !records.IsEOF(); records.MoveNext(), ++row) {
    ASSERT_LT(row, table.row_count());
    for (int i = 0; i < records.GetFieldCount(); ++i) {
      int type = records.GetFieldInfo(i).type;
      Variant expected = records.GetFieldValue(i);
      Variant actual = ConvertField(table.Field(row, static_cast<std::size_t>(i)), type);
      if (type == dbDate) {
        EXPECT_NEAR(actual.date(), expected.date(), 0.5 / 86400000.0);  // the export keeps milliseconds
      } else {
        EXPECT_TRUE(actual == expected) << table.columns()[static_cast<std::size_t>(i)] << " row " << row;
      }
      ++compared_types;
    }
  }
  EXPECT_EQ(row, table.row_count());
  EXPECT_GE(compared_types, 18);  // two rows of Text, Byte, Integer, Long, Double, Date, Currency, Boolean
}

}  // namespace
}  // namespace kvdao::cli
