#include "kvdao/samplelist/sample_list_mem.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "common/test_env.h"
#include "kvdao/platform/exceptions.h"

namespace kvdao {
namespace {

// The smallest storage: no file format, Save only chooses its name.
class MemoryList : public CSampleListMem {
 public:
  int Load(const char*) override { return 0; }
  int Save(const char* path) override { return PreSave(path); }
};

constexpr int kFileName = 1;
constexpr int kWavelengthA = 47;
constexpr int kMassA = 57;

// A list of `rows` rows whose FILE_NAME cells read "row0", "row1", ...
void Fill(MemoryList& list, int rows) {
  list.New();
  list.AddRecords(rows - 1);
  for (int i = 0; i < rows; ++i) {
    ASSERT_EQ(list.SetRow(i), 1);
    list.SetMemberVar(kFileName, "row" + std::to_string(i));
  }
  list.MoveFirst();
}

std::vector<std::string> Names(MemoryList& list) {
  std::vector<std::string> names;
  for (int i = 0; i < list.GetNumSamples(); ++i) {
    names.emplace_back(list[i][kFileName].text());
  }
  return names;
}

TEST(SampleListTest, NewListHasOneBlankRowAndIsClean) {
  MemoryList list;
  EXPECT_EQ(list.GetNumSamples(), 0);
  EXPECT_EQ(list.IsUntitled(), 1);
  list.New();
  EXPECT_EQ(list.GetNumSamples(), 1);
  EXPECT_EQ(list.IsDirty(), 0);
  EXPECT_EQ(list.IsUntitled(), 1);
  CKVVariant wavelength = list.GetItem(kWavelengthA);
  EXPECT_EQ(wavelength.vt(), VT_R8);
  EXPECT_EQ(wavelength.dblVal(), 0.0);
  CKVVariant name = list.GetItem(kFileName);
  EXPECT_EQ(name.vt(), VT_BSTR);
  EXPECT_TRUE(name.text().empty());
  EXPECT_EQ(list[0], CSampleListRow());
}

TEST(SampleListTest, SettingTheValueACellHoldsIsNoChange) {
  MemoryList list;
  list.New();
  EXPECT_EQ(list.SetItem(kFileName, CKVVariant("")), 1);
  EXPECT_EQ(list.IsDirty(), 0);
  EXPECT_EQ(list.SetItem(kWavelengthA, CKVVariant(0.0)), 1);
  EXPECT_EQ(list.IsDirty(), 0);
  // Same number, other tag: a change.
  EXPECT_EQ(list.SetItem(kWavelengthA, CKVVariant(0.0f)), 1);
  EXPECT_EQ(list.IsDirty(), 1);
}

TEST(SampleListTest, TypedSettersParseTextButPutNumbersOnlyIntoDoubleColumns) {
  MemoryList list;
  list.New();
  double value = -1;
  EXPECT_EQ(list.SetMemberVar(kWavelengthA, "254.5nm"), 1);
  ASSERT_EQ(list.GetMemberVar(kWavelengthA, &value), 1);
  EXPECT_EQ(value, 254.5);
  EXPECT_EQ(list.GetMemberVar(kWavelengthA), "254.500000");
  EXPECT_EQ(list.SetMemberVar("WAVELENGTH_A", "  -1e2x"), 1);
  EXPECT_EQ(list.GetItem(kWavelengthA).dblVal(), -100.0);
  EXPECT_EQ(list.SetMemberVar(kWavelengthA, "nm 254"), 1);
  EXPECT_EQ(list.GetItem(kWavelengthA).dblVal(), 0.0);

  EXPECT_EQ(list.SetMemberVar(kMassA, "301.2"), 1);
  EXPECT_EQ(list.SetMemberVar(kMassA, 999.0), 0);
  EXPECT_EQ(list.SetMemberVar("MASS_A", 999.0), 0);
  EXPECT_EQ(list.GetMemberVar("MASS_A"), "301.2");
  EXPECT_EQ(list.SetMemberVar("WAVELENGTH_B", 280.0), 1);
  EXPECT_EQ(list.GetItem(48).dblVal(), 280.0);

  for (int bad : {-1, 160}) {
    EXPECT_EQ(list.SetMemberVar(bad, "1"), 0);
    EXPECT_EQ(list.SetMemberVar(bad, 1.0), 0);
  }
  EXPECT_EQ(list.SetMemberVar("wavelength_a", "1"), 0);
  EXPECT_EQ(list.GetMemberVar("NO_SUCH", &value), 0);
  EXPECT_EQ(list.GetMemberVar(kWavelengthA, nullptr), 0);
  EXPECT_THROW(list.GetMemberVar(160), NotSupportedException);
  EXPECT_THROW(list.GetMemberVar("NO_SUCH"), NotSupportedException);
}

TEST(SampleListTest, CursorStopsAtBothEnds) {
  MemoryList list;
  Fill(list, 3);
  EXPECT_EQ(list.MoveLast(), 1);
  EXPECT_EQ(list.NextRow(), 0);
  EXPECT_EQ(list.GetCurrentRow(), 2);
  list.SetRow(1);
  list.Move(-3);
  EXPECT_EQ(list.GetCurrentRow(), 0);
  EXPECT_EQ(list.PreviousRow(), 0);
  list.Move(5);
  EXPECT_EQ(list.GetCurrentRow(), 2);
  EXPECT_EQ(list.SetRow(3), 0);
  EXPECT_EQ(list.SetRow(-1), 0);
  EXPECT_EQ(list.MoveToRecord(1), 1);
  EXPECT_EQ(list.GetMemberVar(kFileName), "row1");
}

TEST(SampleListTest, RowNumbersAreOneBasedForGetSampleOnlyAndCountFirstForDeleteRecords) {
  MemoryList list;
  Fill(list, 8);
  ASSERT_NE(list.GetSample(1), nullptr);
  EXPECT_EQ((*list.GetSample(1))[kFileName].text(), "row0");
  EXPECT_EQ(list.GetSample(0), nullptr);
  EXPECT_EQ(list.GetSample(9), nullptr);

  EXPECT_EQ(list.RemoveSample(1), 1);
  EXPECT_EQ(Names(list), (std::vector<std::string>{"row0", "row2", "row3", "row4", "row5",
                                                    "row6", "row7"}));
  EXPECT_EQ(list.DeleteRecords(2, 5), 2);
  EXPECT_EQ(Names(list),
            (std::vector<std::string>{"row0", "row2", "row3", "row4", "row5"}));
  // DeleteRows checks only where it starts and stops at the end.
  EXPECT_EQ(list.DeleteRows(3, 100), 1);
  EXPECT_EQ(Names(list), (std::vector<std::string>{"row0", "row2", "row3"}));
  EXPECT_EQ(list.DeleteRows(3, 1), 0);
  EXPECT_EQ(list.DeleteRow(3), 0);
}

TEST(SampleListTest, InsertionsAcceptPositionsUpToTheCount) {
  MemoryList list;
  Fill(list, 2);
  CSampleListRow row;
  row[kFileName] = "new";
  EXPECT_EQ(list.InsertRow(2, row), 1);
  EXPECT_EQ(list.InsertRow(4, row), 0);
  EXPECT_EQ(list.InsertRow(-1, row), 0);
  EXPECT_EQ(list.InsertRow(0, row), 1);
  EXPECT_EQ(Names(list), (std::vector<std::string>{"new", "row0", "row1", "new"}));
  EXPECT_EQ(list.InsertRecords(1, 2), 2);
  EXPECT_EQ(Names(list), (std::vector<std::string>{"new", "", "", "row0", "row1", "new"}));
  EXPECT_EQ(list.InsertBlankRows(7, 1), 0);
  EXPECT_EQ(list.AddSample(row), 7);
  // The list holds copies.
  row[kFileName] = "changed";
  EXPECT_EQ(list[6][kFileName].text(), "new");
}

TEST(SampleListTest, CursorIsNotAdjustedAndAStaleCursorTouchesNothing) {
  MemoryList list;
  Fill(list, 3);
  list.SetRow(2);
  list.InsertBlankRows(0, 1);
  EXPECT_EQ(list.GetCurrentRow(), 2);
  EXPECT_EQ(list.GetMemberVar(kFileName), "row1");

  list.DeleteRows(0, 3);
  EXPECT_EQ(list.GetNumSamples(), 1);
  EXPECT_EQ(list.GetCurrentRow(), 2);
  EXPECT_EQ(list.GetItem(kFileName).vt(), VT_EMPTY);
  EXPECT_EQ(list.SetItem(kFileName, CKVVariant("lost")), 0);
  EXPECT_EQ(list.SetMemberVar(kFileName, "lost"), 0);
  EXPECT_EQ(list[0][kFileName].text(), "row2");

  EXPECT_EQ(list.DeleteLastRow(), 1);
  EXPECT_EQ(list.DeleteLastRow(), 0);
  EXPECT_THROW(list[0], std::out_of_range);
}

TEST(SampleListTest, CopyingAListCopiesItsRowsAndMarksItModified) {
  MemoryList source;
  Fill(source, 3);
  source.SetExternalProgram(CExternalProgram("c:\\p.exe"), 0);
  MemoryList copy;
  copy = source;
  EXPECT_EQ(copy.GetNumSamples(), 3);
  EXPECT_EQ(copy.IsDirty(), 1);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(copy[i], source[i]);
  copy[1][kWavelengthA] = 5.0;
  EXPECT_NE(copy[1], source[1]);
  CExternalProgram program;
  EXPECT_EQ(copy.GetExternalProgram(program, 0), 0);
}

TEST(SampleListTest, RowCellsAreCheckedAndCompareByTagAndValue) {
  CSampleListRow row;
  EXPECT_THROW(row[160], NotSupportedException);
  EXPECT_THROW(row[-1], NotSupportedException);
  const CSampleListRow& constRow = row;
  EXPECT_THROW(constRow[160], NotSupportedException);

  CSampleListRow other;
  other[kWavelengthA] = 0L;  // VT_I4 zero against VT_R8 zero
  EXPECT_FALSE(row == other);
  other[kWavelengthA] = 0.0;
  EXPECT_TRUE(row == other);
  other[159] = 1.0;
  EXPECT_FALSE(row == other);
}

TEST(SampleListTest, ExternalProgramSlots) {
  MemoryList list;
  CExternalProgram program("c:\\proc.exe -x");
  CExternalProgram out;
  EXPECT_EQ(list.GetExternalProgram(out, 0), 0);
  EXPECT_EQ(list.SetExternalProgram(program, 3), 0);
  EXPECT_EQ(list.SetExternalProgram(program, -1), 0);
  EXPECT_EQ(list.SetExternalProgram(program, 2), 1);
  program.SetProgram("c:\\other.exe");
  ASSERT_EQ(list.GetExternalProgram(out, 2), 1);
  EXPECT_EQ(out.GetProgram(), "c:\\proc.exe");
  EXPECT_EQ(out.GetArguments(), " -x");
  EXPECT_EQ(list.GetExternalProgram(out, 3), 0);
}

class SampleListFileTest : public test::TempEnvTest {};

TEST_F(SampleListFileTest, OpenKeepsTheOpenFlagEvenWhenTheFileCannotBeRead) {
  MemoryList list;
  EXPECT_EQ(list.Open(PathTo("missing.spl")), 0);
  EXPECT_TRUE(list.IsOpen());
  EXPECT_EQ(list.IsUntitled(), 1);
  EXPECT_EQ(list.GetFileName(), PathTo("missing.spl"));
  EXPECT_EQ(list.Open(PathTo("missing.spl")), 0);
  EXPECT_EQ(list.Close(0), 1);
  EXPECT_EQ(list.Close(0), 0);

  test::WriteFile(PathTo("list.spl"), "x");
  EXPECT_EQ(list.Open(PathTo("list.spl")), 1);
  EXPECT_EQ(list.IsUntitled(), 0);
  // New closes the list and makes it untitled again.
  list.New();
  EXPECT_FALSE(list.IsOpen());
  EXPECT_EQ(list.IsUntitled(), 1);
}

TEST_F(SampleListFileTest, SaveNameFollowsTitleAndModification) {
  MemoryList list;
  list.New();
  ASSERT_EQ(list.Save(nullptr), 1);
  EXPECT_EQ(list.GetSaveName(), root() + "/project/SampleDB/default.spl");
  ASSERT_EQ(list.Save("/data/a.spl"), 1);
  EXPECT_EQ(list.GetSaveName(), "/data/a.spl");

  std::string path = PathTo("titled.spl");
  test::WriteFile(path, "x");
  ASSERT_EQ(list.Open(path), 1);
  EXPECT_EQ(list.Save(nullptr), 0);
  EXPECT_EQ(list.Save(path.c_str()), 0);
  ASSERT_EQ(list.Save("/data/b.spl"), 1);
  EXPECT_EQ(list.GetSaveName(), "/data/b.spl");
  list.SetMemberVar(kFileName, "edited");
  ASSERT_EQ(list.Save(nullptr), 1);
  EXPECT_EQ(list.GetSaveName(), path);
}

}  // namespace
}  // namespace kvdao
