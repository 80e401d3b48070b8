#include <gtest/gtest.h>

#include "kvdao/samplelist/sample_record.h"
#include "samplelist/full_row.h"

namespace kvdao {
namespace {

using test::FullRow;

TEST(SampleRecordRowTest, EveryColumnSurvivesTheTripThroughARecord) {
  const CSampleListRow original = FullRow();
  CSampleRecord record(original);
  CSampleListRow back;
  record.GetSample(&back);
  for (int column = 0; column < kSampleColumnCount; ++column) {
    EXPECT_EQ(back[column], original[column]) << kSampleColumns[column].name;
  }
  // A second record made from the first is the same record.
  CSampleRecord again;
  again = back;
  _tagINTERNAL_SAMPLES_DB_RECORD a, b;
  record.GetSample(&a);
  again.GetSample(&b);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(&a), sizeof a),
            std::string(reinterpret_cast<const char*>(&b), sizeof b));
  EXPECT_EQ(again.Attributes(), record.Attributes());
}

TEST(SampleRecordRowTest, ColumnsLandInTheirNamedFields) {
  CSampleRecord record(FullRow());
  EXPECT_EQ(record.GetDataFile(), "v1");
  EXPECT_EQ(record.GetMSFile(), "v3");
  EXPECT_EQ(record.GetConcentrationText(0), "v27");
  EXPECT_EQ(record.GetMassText(29), "v86");
  EXPECT_EQ(record.GetCompound(29), "v147");
  EXPECT_EQ(record.GetWavelength(0), 1.0 + 47 * 0.25);
  EXPECT_EQ(record.GetFractionTrigger(9), "v97");
  EXPECT_EQ(record.GetSpare(0), "v105");
  EXPECT_EQ(record.GetSubjectSex(), "v116");
  EXPECT_EQ(record.GetQuanRef(), "v111");
  EXPECT_EQ(record.GetInjectionVolume(), 1.0 + 99 * 0.25);
  EXPECT_EQ(record.GetRetentionTimeOffset(), 1.0 + 150 * 0.25);
  EXPECT_EQ(record.GetSampleNumber(), 42);
  EXPECT_EQ(record.GetNumMasses(), 30);
}

TEST(SampleRecordRowTest, GroupCountsFollowWhatWasEntered) {
  CSampleListRow row;
  row[kColumnMassFirst] = "301.2";
  row[kColumnMassFirst + 2] = "445.1";
  row[kColumnWavelengthFirst + 1] = 254.0;
  CSampleRecord record(row);
  EXPECT_EQ(record.GetNumMasses(), 3);
  EXPECT_EQ(record.GetNumWavelengths(), 2);
  EXPECT_EQ(record.GetNumCompounds(), 0);

  // Numbers given as text in a number column are parsed; other tags too.
  record.CopyFieldOther(kColumnWavelengthFirst, CKVVariant("280.5nm"));
  EXPECT_EQ(record.GetWavelength(0), 280.5);
  record.CopyFieldOther(kColumnIndex, CKVVariant(7L));
  EXPECT_EQ(record.GetSampleNumber(), 7);
  record.CopyFieldString(kColumnIndex, "9");
  EXPECT_EQ(record.GetSampleNumber(), 9);
  record.CopyField(row, 160);  // outside the schema: nothing
  CSampleListRow out;
  record.CopyToRowVal(out, -1);
  EXPECT_EQ(out, CSampleListRow());
}

TEST(SampleRecordRowTest, TypedAccessByColumnAndMember) {
  CSampleRecord record;
  EXPECT_TRUE(record.SetValue(kColumnConcFirst, std::string("12.5"), 3));
  EXPECT_EQ(record.GetConcentrationText(3), "12.5");
  double number = 0;
  EXPECT_TRUE(record.GetValue(kColumnConcFirst, number, 3));
  EXPECT_EQ(number, 12.5);
  EXPECT_TRUE(record.SetValue(kColumnWavelengthFirst, 254.5, 1));
  int whole = 0;
  EXPECT_TRUE(record.GetValue(kColumnWavelengthFirst, whole, 1));
  EXPECT_EQ(whole, 254);
  std::string text;
  EXPECT_TRUE(record.GetValue(kColumnWavelengthFirst, text, 1));
  EXPECT_EQ(text, "254.500000");
  EXPECT_TRUE(record.SetValue(kColumnIndex, 17, 0));
  EXPECT_EQ(record.GetSampleNumber(), 17);

  bool flag = false;
  EXPECT_TRUE(record.SetValue(kColumnSpareFirst, true, 0));
  EXPECT_TRUE(record.GetValue(kColumnSpareFirst, flag, 0));
  EXPECT_TRUE(flag);
  EXPECT_EQ(record.GetSpare(0), "TRUE");
  EXPECT_TRUE(record.GetValue(kColumnWavelengthFirst, flag, 5));
  EXPECT_FALSE(flag);

  EXPECT_FALSE(record.SetValue(kColumnCompoundFirst, std::string("x"), 42));
  EXPECT_FALSE(record.GetValue(-1, number, 0));
  EXPECT_FALSE(record.GetValue(kColumnIndex, text, 1));
}

TEST(SampleRecordRowTest, ProgramsComeFromTheProcessFields) {
  CSampleRecord record;
  CExternalProgram program;
  EXPECT_EQ(record.GetExternalProgram(program), 0);
  record.SetProcess("C:\\Korvalis\\Quantify");
  record.SetProcessParameters("/Batch X");
  ASSERT_EQ(record.GetExternalProgram(program), 1);
  EXPECT_EQ(program.GetProgram(), "c:\\korvalis\\quantify.exe");
  EXPECT_EQ(program.GetArguments(), " /batch x");
  EXPECT_EQ(program.GetDirectory(), "c:\\korvalis\\");
  record.SetAcquProcess("D:\\acq.exe");
  ASSERT_EQ(record.GetAcquProgram(program), 1);
  EXPECT_EQ(program.GetProgram(), "d:\\acq.exe");
  EXPECT_EQ(program.GetArguments(), "");
}

}  // namespace
}  // namespace kvdao
