#include "kvdao/samplelist/schema.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "kvdao/samplelist/sample_list.h"

namespace kvdao {
namespace {

TEST(SchemaTest, NameLookupIsExactAndCaseSensitive) {
  EXPECT_EQ(CSampleList::GetNumFields(), 160);
  EXPECT_EQ(CSampleList::GetFieldIndex("VERSION"), 0);
  EXPECT_EQ(CSampleList::GetFieldIndex("Index"), 159);
  EXPECT_EQ(CSampleList::GetFieldIndex("INDEX"), -1);
  EXPECT_EQ(CSampleList::GetFieldIndex("file_name"), -1);
  EXPECT_EQ(CSampleList::GetFieldIndex("FILE_NAME "), -1);
  EXPECT_EQ(CSampleList::GetFieldIndex(""), -1);
  for (int i = 0; i < kSampleColumnCount; ++i) {
    EXPECT_EQ(CSampleList::GetFieldIndex(kSampleColumns[i].name), i) << kSampleColumns[i].name;
  }
}

TEST(SchemaTest, GroupsStartWhereTheirFirstMemberIsAndRunTheirLength) {
  struct Group {
    int first;
    int count;
    const char* firstName;
    const char* lastName;
  };
  const Group groups[] = {
      {kColumnConcFirst, kConcColumnCount, "CONC_A", "CONC_T"},
      {kColumnWavelengthFirst, kWavelengthColumnCount, "WAVELENGTH_A", "WAVELENGTH_J"},
      {kColumnMassFirst, kMassColumnCount, "MASS_A", "MASS_DD"},
      {kColumnFractionFirst, kFractionColumnCount, "FRACTION_1", "FRACTION_10"},
      {kColumnUserFactorFirst, kUserFactorColumnCount, "USER_FACTOR_1", "USER_FACTOR_3"},
      {kColumnSpareFirst, kSpareColumnCount, "SPARE_1", "SPARE_5"},
      {kColumnCompoundFirst, kCompoundColumnCount, "COMPOUND_A", "COMPOUND_DD"},
  };
  for (const Group& group : groups) {
    EXPECT_EQ(FindSampleColumn(group.firstName), group.first);
    EXPECT_EQ(FindSampleColumn(group.lastName), group.first + group.count - 1);
  }
  EXPECT_EQ(FindSampleColumn("MASS_Z"), 82);
  EXPECT_EQ(FindSampleColumn("MASS_AA"), 83);
  EXPECT_EQ(FindSampleColumn("USER_DIVISOR_1"), 101);
}

TEST(SchemaTest, TypesAndTheSingleRequiredIndexColumn) {
  // The double columns; every other column is text.
  const std::set<std::string> doubles = {
      "VERSION",      "WAVELENGTH_A",  "WAVELENGTH_B",  "WAVELENGTH_C",  "WAVELENGTH_D",
      "WAVELENGTH_E", "WAVELENGTH_F",  "WAVELENGTH_G",  "WAVELENGTH_H",  "WAVELENGTH_I",
      "WAVELENGTH_J", "INJ_VOL",       "STOCK_DIL",     "USER_DIVISOR_1", "USER_FACTOR_1",
      "USER_FACTOR_2", "USER_FACTOR_3", "SUBJECT_TIME", "RETENTION_TIME_OFFSET",
      "PREP_INJ_VOL", "Index"};
  for (int i = 0; i < kSampleColumnCount; ++i) {
    const SampleColumnDef& column = kSampleColumns[i];
    int expected = doubles.count(column.name) != 0 ? dbDouble : dbText;
    EXPECT_EQ(column.type, expected) << column.name;
    EXPECT_EQ(CSampleList::GetType(i), expected);
    EXPECT_EQ(column.optional, i == 159 ? 0 : 1) << column.name;
    EXPECT_EQ(CSampleList::IsIndexField(i), i == 159 ? 1 : 0);
  }
  EXPECT_EQ(CSampleList::IsIndexField(160), 0);
  EXPECT_EQ(CSampleList::GetType(160), 0);
  EXPECT_EQ(CSampleList::GetType(-1), 0);
}

}  // namespace
}  // namespace kvdao
