// The record array and record manager: list operations, ownership, growth
// and the open/close protocol, with records that count their destruction.

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "kvdao/method/record_manager.h"

namespace kvdao {
namespace {

struct CountedRecord : CRecord {
  explicit CountedRecord(int* destroyed) : destroyed(destroyed) {}
  ~CountedRecord() override { ++*destroyed; }
  int* destroyed;
};

// A manager over an in-memory "file" of a given number of records.
class TestManager : public CRecordManager {
 public:
  explicit TestManager(int* destroyed) : destroyed_(destroyed) {}

  void MakeList() { m_pArray = std::make_unique<CRecordArray>(); }
  CRecord* Make() { return new CountedRecord(destroyed_); }

  bool Read(CRecord*, const int&) override { return true; }
  bool Save(const int&) override { return true; }
  bool SaveAll() override { return true; }
  bool OpenFile(const char* path, unsigned) override {
    ++opened;
    return path != nullptr && std::string(path) != "missing";
  }
  bool CloseFile() override {
    ++closed;
    return true;
  }
  bool New() override { return true; }
  bool CreateArray() override {
    MakeList();
    for (int i = 0; i < fileRecords; ++i) AddEntry(Make());
    return fileRecords > 0;
  }

  int fileRecords = 3;
  int opened = 0;
  int closed = 0;

 private:
  int* destroyed_;
};

class RecordManagerTest : public ::testing::Test {
 protected:
  // A list of `count` records, kept also in `records` for identity checks.
  void Fill(int count) {
    manager.MakeList();
    for (int i = 0; i < count; ++i) {
      records.push_back(manager.Make());
      manager.AddEntry(records.back());
    }
  }

  int destroyed = 0;
  TestManager manager{&destroyed};
  std::vector<CRecord*> records;
};

TEST_F(RecordManagerTest, WithoutListEveryOperationIsInert) {
  CountedRecord record(&destroyed);
  manager.AddEntry(&record);
  manager.InsertAt(0, &record);
  manager.SetAtGrow(2, &record);
  manager.RemoveAt(0);
  manager.DeleteAll();
  EXPECT_EQ(manager.GetSize(), 0);
  EXPECT_EQ(manager.GetAt(0), nullptr);
  EXPECT_EQ(manager.GetCurrentRecord(), nullptr);
  EXPECT_EQ(destroyed, 0);
}

TEST_F(RecordManagerTest, GetAtAndRemoveAtOutsideTheListChangeNothing) {
  Fill(3);
  EXPECT_EQ(manager.GetAt(-1), nullptr);
  EXPECT_EQ(manager.GetAt(3), nullptr);
  EXPECT_EQ(manager.GetAt(2), records[2]);
  manager.RemoveAt(-1);
  manager.RemoveAt(3);
  EXPECT_EQ(manager.GetSize(), 3);
  EXPECT_EQ(destroyed, 0);
}

TEST_F(RecordManagerTest, RemoveAtDeletesTheRecordAndClosesTheGap) {
  Fill(3);
  manager.RemoveAt(1);
  EXPECT_EQ(destroyed, 1);
  ASSERT_EQ(manager.GetSize(), 2);
  EXPECT_EQ(manager.GetAt(0), records[0]);
  EXPECT_EQ(manager.GetAt(1), records[2]);
}

TEST_F(RecordManagerTest, InsertAtInsideShiftsAndBeyondTheEndPadsWithNull) {
  Fill(2);
  CRecord* first = manager.Make();
  manager.InsertAt(0, first);
  ASSERT_EQ(manager.GetSize(), 3);
  EXPECT_EQ(manager.GetAt(0), first);
  EXPECT_EQ(manager.GetAt(1), records[0]);
  EXPECT_EQ(manager.GetAt(2), records[1]);

  CRecord* far = manager.Make();
  manager.InsertAt(7, far);
  ASSERT_EQ(manager.GetSize(), 8);
  for (int i = 3; i < 7; ++i) EXPECT_EQ(manager.GetAt(i), nullptr) << i;
  EXPECT_EQ(manager.GetAt(7), far);
}

TEST_F(RecordManagerTest, InsertAtFiveOnAListOfTwo) {
  Fill(2);
  CRecord* record = manager.Make();
  manager.InsertAt(5, record);
  ASSERT_EQ(manager.GetSize(), 6);
  EXPECT_EQ(manager.GetAt(1), records[1]);
  for (int i = 2; i <= 4; ++i) EXPECT_EQ(manager.GetAt(i), nullptr);
  EXPECT_EQ(manager.GetAt(5), record);
}

TEST_F(RecordManagerTest, SetAtReplacesWithoutDeletingAndSetAtGrowExtends) {
  Fill(2);
  CRecord* replacement = manager.Make();
  manager.SetAt(0, replacement);
  EXPECT_EQ(manager.GetAt(0), replacement);
  EXPECT_EQ(destroyed, 0);
  delete records[0];  // the caller kept it

  CRecord* grown = manager.Make();
  manager.SetAtGrow(4, grown);
  ASSERT_EQ(manager.GetSize(), 5);
  EXPECT_EQ(manager.GetAt(3), nullptr);
  EXPECT_EQ(manager.GetAt(4), grown);
}

TEST_F(RecordManagerTest, DeleteAllDeletesOnlyTheRecordsAtEvenPositions) {
  Fill(4);
  manager.DeleteAll();
  EXPECT_EQ(manager.GetSize(), 0);
  EXPECT_EQ(destroyed, 2);
  // The records at positions 1 and 3 left the list undeleted and are still
  // alive: deleting them here counts them exactly once.
  delete records[1];
  delete records[3];
  EXPECT_EQ(destroyed, 4);
}

TEST_F(RecordManagerTest, CurrentIndexAcceptsOnlyPositionsInTheList) {
  Fill(0);
  manager.SetCurrentIndex(0);
  EXPECT_EQ(manager.GetCurrentIndex(), 0);
  Fill(3);
  manager.SetCurrentIndex(2);
  EXPECT_EQ(manager.GetCurrentIndex(), 2);
  EXPECT_EQ(manager.GetCurrentRecord(), records[2]);
  manager.SetCurrentIndex(3);
  manager.SetCurrentIndex(-1);
  EXPECT_EQ(manager.GetCurrentIndex(), 2);
}

TEST_F(RecordManagerTest, OpenReplacesTheListAndCloseDeletesIt) {
  Fill(2);
  EXPECT_TRUE(manager.Open("file", 0));
  EXPECT_EQ(manager.closed, 1);
  EXPECT_EQ(destroyed, 2);  // the previous list went with Close()
  EXPECT_EQ(manager.GetSize(), 3);

  manager.SetCurrentIndex(1);
  EXPECT_TRUE(manager.Close());
  EXPECT_EQ(destroyed, 5);
  EXPECT_EQ(manager.GetSize(), 0);
  EXPECT_EQ(manager.GetCurrentIndex(), 1);

  EXPECT_FALSE(manager.Open("missing", 0));
  EXPECT_EQ(manager.GetSize(), 0);
  manager.fileRecords = 0;
  EXPECT_FALSE(manager.Open("file", 0));
}

TEST_F(RecordManagerTest, DestructionDeletesEveryRecord) {
  {
    TestManager scoped(&destroyed);
    scoped.MakeList();
    for (int i = 0; i < 5; ++i) scoped.AddEntry(scoped.Make());
    scoped.InsertAt(8, scoped.Make());
  }
  EXPECT_EQ(destroyed, 6);
}

TEST(RecordArrayTest, GrowsByTheAutomaticStepThenToTheNeededSize) {
  CRecordArray array;
  array.Add(nullptr);
  EXPECT_EQ(array.GetCapacity(), 4);  // count 0: step 4
  for (int i = 1; i < 5; ++i) array.Add(nullptr);
  EXPECT_EQ(array.GetCapacity(), 8);  // 4 + max(4, 4 / 8)
  for (int i = 5; i < 41; ++i) array.Add(nullptr);
  // Steps of 4 up to 40, then 40 / 8 = 5 when the 41st arrives.
  EXPECT_EQ(array.GetSize(), 41);
  EXPECT_EQ(array.GetCapacity(), 45);
  array.SetSize(200);
  EXPECT_EQ(array.GetCapacity(), 200);  // step too small: exactly the size

  CRecordArray stepped;
  stepped.SetGrowBy(10);
  stepped.Add(nullptr);
  EXPECT_EQ(stepped.GetCapacity(), 10);
}

TEST(RecordArrayTest, LargeArraysGrowByAtMost1024) {
  CRecordArray array;
  array.SetSize(20000);
  EXPECT_EQ(array.GetCapacity(), 20000);
  array.Add(nullptr);
  EXPECT_EQ(array.GetCapacity(), 21024);
}

}  // namespace
}  // namespace kvdao
