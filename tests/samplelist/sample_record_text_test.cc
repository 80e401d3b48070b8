#include <gtest/gtest.h>

#include <cstring>

#include "common/test_env.h"
#include "kvdao/samplelist/sample_record.h"
#include "samplelist/full_row.h"

namespace kvdao {
namespace {

class SampleRecordTextTest : public test::TempEnvTest {};

// A record with every kind of field set, including texts that a line
// could mangle (blanks at the ends, quotes, '=').
CSampleRecord FullRecord() {
  CSampleListRow row = test::FullRow(12.0);
  CSampleRecord record(row);
  record.SetDescription("  padded = \"quoted\"  ");
  record.SetID("\"whole\"");
  record.SetWavelength(2, 0.1 + 0.2);
  record.SetSamplePosition(37);
  record.SetAcquParameters("acq");
  record.SetParameters("par");
  record.SetPlateDescription("plate \xb5g");
  return record;
}

bool SameRecord(const CSampleRecord& a, const CSampleRecord& b) {
  _tagINTERNAL_SAMPLES_DB_RECORD x, y;
  a.GetSample(&x);
  b.GetSample(&y);
  return std::memcmp(&x, &y, sizeof x) == 0 && a.Attributes() == b.Attributes();
}

TEST_F(SampleRecordTextTest, WriteThenReadGivesTheSameRecord) {
  CSampleRecord record = FullRecord();
  std::string path = PathTo("sample.txt");
  ASSERT_EQ(record.Write(path.c_str()), 1);
  CSampleRecord read;
  ASSERT_EQ(read.Read(path.c_str()), 1);
  EXPECT_TRUE(SameRecord(read, record));
  EXPECT_EQ(read.GetDescription(), "  padded = \"quoted\"  ");
  EXPECT_EQ(read.GetID(), "\"whole\"");
  EXPECT_EQ(read.GetWavelength(2), 0.1 + 0.2);

  std::string text = test::ReadFile(path);
  EXPECT_EQ(text.rfind("[Sample1]\nData File Name=v1\n", 0), 0u) << text;
  EXPECT_NE(text.find("\nMasses=30\nMass1=v57\n"), std::string::npos);
  EXPECT_NE(text.find("\nInjection Volume=25.750000\n"), std::string::npos);
}

TEST_F(SampleRecordTextTest, SeveralSamplesInOneFile) {
  std::string path = PathTo("list.txt");
  CSampleRecord first = FullRecord();
  CSampleRecord second;
  second.SetDataFile("SECOND");
  second.SetMass(0, "100");
  ASSERT_EQ(first.Write(path.c_str(), 1), 1);
  ASSERT_EQ(second.Add(path.c_str(), 2), 1);
  CSampleRecord read;
  ASSERT_EQ(read.Read(path.c_str(), 2), 1);
  EXPECT_TRUE(SameRecord(read, second));
  ASSERT_EQ(read.Read(path.c_str(), 1), 1);
  EXPECT_TRUE(SameRecord(read, first));
  // A missing section leaves the record as it was.
  EXPECT_EQ(read.Read(path.c_str(), 3), 0);
  EXPECT_TRUE(SameRecord(read, first));
  EXPECT_EQ(read.Read(PathTo("missing.txt").c_str()), 0);
  EXPECT_EQ(first.Write(PathTo("no/folder/x.txt").c_str()), 0);
}

TEST_F(SampleRecordTextTest, BadValuesReadAsDefaultsAndWithinWidths) {
  std::string path = PathTo("bad.txt");
  test::WriteFile(path,
                  "[Sample1]\r\n"
                  "Sample Description=" + std::string(500, 'd') + "\r\n"
                  "Injection Volume=lots\r\n"
                  "Sample Position=x\r\n"
                  "Masses=1000\r\n"
                  "Mass1=301.2\r\n"
                  "Wavelengths=-4\r\n"
                  "Sample Type=blank\r\n");
  CSampleRecord read;
  ASSERT_EQ(read.Read(path.c_str()), 1);
  EXPECT_EQ(read.GetDescription(), std::string(119, 'd'));
  EXPECT_EQ(read.GetInjectionVolume(), 0.0);
  EXPECT_EQ(read.GetSamplePosition(), 0);
  EXPECT_EQ(read.GetNumMasses(), 30);
  EXPECT_EQ(read.GetMassText(0), "301.2");
  EXPECT_EQ(read.GetNumWavelengths(), 0);
  int type = -1;
  EXPECT_EQ(read.GetType(type), 3);
}

TEST_F(SampleRecordTextTest, LineBreaksBecomeBlanks) {
  CSampleRecord record;
  record.SetDescription("two\r\nlines\there");
  std::string path = PathTo("breaks.txt");
  ASSERT_EQ(record.Write(path.c_str()), 1);
  CSampleRecord read;
  ASSERT_EQ(read.Read(path.c_str()), 1);
  EXPECT_EQ(read.GetDescription(), "two  lines\there");
}

}  // namespace
}  // namespace kvdao
