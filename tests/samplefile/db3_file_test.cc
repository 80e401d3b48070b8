// Record-database files through CDB3File and CDB3Record: counts cut to the
// records left, replace-then-append, the position rules, kind checks before
// any file access, and the records' copy and conversion behaviour.

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <vector>

#include "common/test_env.h"
#include "kvdao/method/method_record.h"
#include "kvdao/samplefile/db3_file.h"

namespace kvdao {
namespace {

CDB3MethodRecord Named(const char* name) {
  CMethodRecord method;
  method.SetName(std::string(name));
  CDB3MethodRecord record;
  record = method;
  return record;
}

std::string NameOf(const CDB3MethodRecord& record) {
  const tagINTERNAL_METHOD& data = record;
  return data.Name;
}

class Db3FileTest : public test::TempEnvTest {
 protected:
  // A method file holding records named a, b, c, ... (count of them), open.
  void Fill(CDB3MethodFile& file, int count) {
    ASSERT_EQ(file.Open(PathTo("m.db3").c_str(), CDB3File::modeCreate), 1);
    std::vector<CDB3MethodRecord> records;
    for (int i = 0; i < count; ++i) records.push_back(Named(std::string(1, static_cast<char>('a' + i)).c_str()));
    ASSERT_EQ(file.Write(records.data(), count), count);
    file.SetCurrentRecord(1);
  }
  std::vector<std::string> Names(CDB3MethodFile& file) {
    file.SetCurrentRecord(1);
    std::vector<CDB3MethodRecord> records(static_cast<std::size_t>(std::max(file.GetLength(), 0)));
    file.Read(records.data(), static_cast<int>(records.size()));
    std::vector<std::string> names;
    for (const auto& record : records) names.push_back(NameOf(record));
    return names;
  }
};

TEST_F(Db3FileTest, ReadIsCutToTheRecordsLeftAndAdvances) {
  CDB3MethodFile file;
  Fill(file, 3);
  file.SetCurrentRecord(2);
  CDB3MethodRecord records[5];
  EXPECT_EQ(file.Read(records, 5), 2);
  EXPECT_EQ(NameOf(records[0]), "b");
  EXPECT_EQ(NameOf(records[1]), "c");
  EXPECT_EQ(file.GetPosition(), 4);
  EXPECT_EQ(file.Read(records, 5), 0) << "at the end";
  file.SetCurrentRecord(6);
  EXPECT_EQ(file.Read(records, 1), -1) << "fewer than 0 left";
  file.SetCurrentRecord(1);
  EXPECT_EQ(file.Read(records, 0), 0);
  EXPECT_EQ(file.Read(static_cast<CDB3Record*>(nullptr), 1), -1);
  char raw[16];
  EXPECT_EQ(file.Read(raw, 16u), 0u) << "byte reads do nothing";
}

TEST_F(Db3FileTest, WriteReplacesWithinTheFileThenAppends) {
  CDB3MethodFile file;
  Fill(file, 3);
  file.SetCurrentRecord(file.GetLength());
  CDB3MethodRecord records[] = {Named("x"), Named("y"), Named("z")};
  EXPECT_EQ(file.Write(records, 3), 3);
  EXPECT_EQ(file.GetPosition(), 6);
  EXPECT_EQ(Names(file), (std::vector<std::string>{"a", "b", "x", "y", "z"}));
  // Beyond the end every record appends, whatever the number.
  file.SetCurrentRecord(9);
  EXPECT_EQ(file.Write(records, 1), 1);
  EXPECT_EQ(file.GetLength(), 6);
  EXPECT_EQ(file.Write(records, 0), 0);
  EXPECT_EQ(file.Write(static_cast<const CDB3Record*>(nullptr), 1), -1);
}

TEST_F(Db3FileTest, RecordsOfAnotherKindFailBeforeTheFileIsTouched) {
  CDB3MethodFile file;
  Fill(file, 2);
  const std::string before = test::ReadFile(PathTo("m.db3"));
  // A good record followed by a sample record: nothing may be read or
  // written, so the position stays and the file keeps its bytes.
  CDB3Record mixed[] = {CDB3MethodRecord(), CDB3SampleRecord()};
  EXPECT_EQ(file.Read(mixed, 2), -1);
  EXPECT_EQ(file.GetPosition(), 1);
  EXPECT_EQ(file.Write(mixed, 2), -1);
  EXPECT_EQ(file.GetPosition(), 1);
  CDB3Record small(20, 16);  // the kind is right, the buffer too small
  EXPECT_EQ(file.Write(&small, 1), -1);
  EXPECT_EQ(file.WriteFile(mixed, 2), -1);
  EXPECT_EQ(test::ReadFile(PathTo("m.db3")), before);
}

TEST_F(Db3FileTest, SeekNeverMovesAndClosedFilesAnswerMinusOne) {
  CDB3MethodFile file;
  EXPECT_EQ(file.GetLength(), -1);
  EXPECT_EQ(file.GetPosition(), -1);
  EXPECT_EQ(file.VerifyDB(), 0);
  EXPECT_EQ(file.Open(PathTo("missing.db3").c_str(), 0), 0);
  EXPECT_EQ(file.GetCurrentRecord(), 0);
  Fill(file, 3);
  file.SetCurrentRecord(2);
  EXPECT_EQ(file.Seek(0, 0), -1);
  EXPECT_EQ(file.Seek(1, 1), -1);
  EXPECT_EQ(file.GetCurrentRecord(), 2);
  EXPECT_EQ(file.VerifyDB(), 1);
  EXPECT_EQ(file.GetType(), 20);
  EXPECT_EQ(file.Open(PathTo("m.db3").c_str(), 0), 0) << "already open";
  CDB3MethodFile second;
  EXPECT_EQ(second.Open(PathTo("m.db3").c_str(), 0), 0) << "one open file per kind";
  CDB3PeakFile peaks;
  EXPECT_EQ(peaks.Open(PathTo("p.db3").c_str(), CDB3File::modeCreate), 1);
  file.Close();
  EXPECT_EQ(file.GetLength(), -1);
  EXPECT_EQ(second.Open(PathTo("m.db3").c_str(), 0), 1);
  EXPECT_EQ(second.GetLength(), 3);
}

TEST_F(Db3FileTest, WriteFileReplacesTheWholeContent) {
  CDB3MethodFile file;
  Fill(file, 4);
  CDB3MethodRecord records[] = {Named("p"), Named("q")};
  EXPECT_EQ(file.WriteFile(records, 2), 2);
  EXPECT_EQ(file.GetCurrentRecord(), 3);
  EXPECT_EQ(Names(file), (std::vector<std::string>{"p", "q"}));
  file.Close();
  EXPECT_EQ(std::filesystem::file_size(PathTo("m.db3")), 64u + 2u * 3508u);
}

TEST_F(Db3FileTest, ModifiedTimeIsSetOnlyWhileClosed) {
  CDB3SampleFile file;
  EXPECT_EQ(file.GetModifiedTime(), 0) << "no path yet";
  ASSERT_EQ(file.Open(PathTo("s.sdb").c_str(), CDB3File::modeCreate), 1);
  EXPECT_FALSE(file.SetModifiedTime(1000000000));
  EXPECT_GT(file.GetModifiedTime(), 1000000000);
  file.Close();
  EXPECT_TRUE(file.SetModifiedTime(1000000000));
  EXPECT_EQ(file.GetModifiedTime(), 1000000000);
}

TEST(Db3RecordTest, BuffersAreZeroedCopiedAndConverted) {
  CDB3CalibrationRecord curve;
  EXPECT_EQ(curve.GetType(), 16);
  EXPECT_EQ(curve.GetSize(), 19496);
  const auto* bytes = static_cast<const std::uint8_t*>(curve.GetBuffer());
  EXPECT_TRUE(std::all_of(bytes, bytes + 19496, [](std::uint8_t b) { return b == 0; }));

  _tagINTERNAL_PEAK_DB_RECORD peak{};
  peak.bytes[4111] = 7;
  CDB3PeakRecord record(peak);
  CDB3PeakRecord copy(record);
  _tagINTERNAL_PEAK_DB_RECORD* view = record;
  view->bytes[0] = 1;  // the conversion gives the buffer itself
  EXPECT_EQ(static_cast<const std::uint8_t*>(record.GetBuffer())[0], 1);
  EXPECT_EQ(static_cast<const std::uint8_t*>(copy.GetBuffer())[0], 0) << "copies are deep";
  EXPECT_EQ(static_cast<const std::uint8_t*>(copy.GetBuffer())[4111], 7);

  // Assigning a record of another kind takes its kind, size and bytes.
  CDB3Record any(2, 4112);
  any = CDB3MethodRecord(Named("m"));
  EXPECT_EQ(any.GetType(), 20);
  EXPECT_EQ(any.GetSize(), 3504);
  EXPECT_STREQ(static_cast<const tagINTERNAL_METHOD*>(any.GetBuffer())->Name, "m");
  EXPECT_EQ(any.Initialise(), 1);
  EXPECT_EQ(static_cast<const tagINTERNAL_METHOD*>(any.GetBuffer())->Name[0], 0) << "Initialise zeroes";
}

}  // namespace
}  // namespace kvdao
