// The method manager: filling the working list from a method file, saving,
// whole-file writes, and the editing cycle between working and permanent
// lists, whose records must stay independent.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/test_env.h"
#include "kvdao/method/method_manager.h"

namespace kvdao {
namespace {

CMethodRecord* Named(const std::string& name) {
  auto* record = new CMethodRecord;
  record->SetName(name);
  return record;
}

std::string NameAt(const CMethodManager& manager, int index) {
  auto* record = dynamic_cast<CMethodRecord*>(manager.GetAt(index));
  return record != nullptr ? record->GetName() : "<null>";
}

class MethodManagerTest : public test::TempEnvTest {
 protected:
  // A method file holding the given names, written through a manager.
  std::string MakeFile(const std::vector<std::string>& names) {
    std::string path = PathTo("quan.mdb3");
    CMethodManager manager;
    EXPECT_TRUE(manager.OpenFile(path.c_str(), CDB3File::modeCreate));
    for (const std::string& name : names) manager.AddEntry(Named(name));
    EXPECT_TRUE(manager.WriteFile());
    manager.CloseFile();
    return path;
  }
};

TEST_F(MethodManagerTest, OpenFillsTheWorkingListInFileOrder) {
  std::string path = MakeFile({"alpha", "beta", "gamma"});
  CMethodManager manager;
  ASSERT_TRUE(manager.Open(path.c_str(), 0));
  ASSERT_EQ(manager.GetSize(), 3);
  EXPECT_EQ(NameAt(manager, 0), "alpha");
  EXPECT_EQ(NameAt(manager, 2), "gamma");
  CMethodRecord record;
  EXPECT_TRUE(manager.Read(&record, 1));
  EXPECT_EQ(record.GetName(), "beta");
  EXPECT_FALSE(manager.Read(&record, 3)) << "list position 3 is beyond the file";
  EXPECT_FALSE(manager.Read(static_cast<CRecord*>(nullptr), 0));
  EXPECT_EQ(manager.GetFile()->GetLength(), 3);
}

TEST_F(MethodManagerTest, CreateArrayOnAnEmptyFileKeepsTheList) {
  CMethodManager manager;
  ASSERT_TRUE(manager.OpenFile(PathTo("empty.mdb3").c_str(), CDB3File::modeCreate));
  manager.AddEntry(Named("kept"));
  EXPECT_FALSE(manager.CreateArray());
  ASSERT_EQ(manager.GetSize(), 1);
  EXPECT_EQ(NameAt(manager, 0), "kept");
  EXPECT_FALSE(manager.OpenFile(PathTo("missing.mdb3").c_str(), 0)) << "already open";
  EXPECT_TRUE(manager.CloseFile());
  EXPECT_FALSE(manager.OpenFile(PathTo("missing.mdb3").c_str(), 0));
}

TEST_F(MethodManagerTest, SaveWritesAtTheSamePositionAndChecksTheIndex) {
  std::string path = MakeFile({"a", "b"});
  CMethodManager manager;
  ASSERT_TRUE(manager.Open(path.c_str(), 0));
  static_cast<CMethodRecord*>(manager.GetAt(1))->SetName("B");
  manager.AddEntry(Named("c"));
  EXPECT_TRUE(manager.Save(1));
  EXPECT_TRUE(manager.Save(2)) << "one past the file's end appends";
  EXPECT_FALSE(manager.Save(3));
  EXPECT_FALSE(manager.Save(-1));
  manager.Close();
  ASSERT_TRUE(manager.Open(path.c_str(), 0));
  ASSERT_EQ(manager.GetSize(), 3);
  EXPECT_EQ(NameAt(manager, 1), "B");
  EXPECT_EQ(NameAt(manager, 2), "c");

  manager.New();
  EXPECT_EQ(manager.GetSize(), 0);
  EXPECT_TRUE(manager.SaveAll()) << "an empty list saves nothing";
  EXPECT_FALSE(manager.WriteFile()) << "an empty list is no method";
  EXPECT_EQ(manager.GetFile()->GetLength(), 3);
}

TEST_F(MethodManagerTest, WriteFileReplacesTheWholeFile) {
  std::string path = MakeFile({"a", "b", "c", "d"});
  CMethodManager manager;
  ASSERT_TRUE(manager.Open(path.c_str(), 0));
  manager.RemoveAt(0);
  manager.RemoveAt(0);
  ASSERT_TRUE(manager.WriteFile());
  manager.Close();
  ASSERT_TRUE(manager.Open(path.c_str(), 0));
  ASSERT_EQ(manager.GetSize(), 2);
  EXPECT_EQ(NameAt(manager, 0), "c");
  EXPECT_EQ(NameAt(manager, 1), "d");
}

TEST_F(MethodManagerTest, EditingCycleKeepsWorkingAndPermanentCopiesApart) {
  std::string path = MakeFile({"one", "two"});
  CMethodManager manager;
  EXPECT_FALSE(manager.CopyPermanentToTemp()) << "no snapshot yet";
  EXPECT_EQ(manager.GetSize(), 0);
  EXPECT_EQ(manager.GetPermanentSize(), 0);
  EXPECT_EQ(manager.GetPermanentAt(0), nullptr);

  ASSERT_TRUE(manager.Open(path.c_str(), 0));
  ASSERT_TRUE(manager.CopyTempToPermanent());
  ASSERT_EQ(manager.GetPermanentSize(), 2);
  auto* working = static_cast<CMethodRecord*>(manager.GetAt(0));
  EXPECT_NE(working, manager.GetPermanentAt(0));
  working->SetName("edited");
  EXPECT_EQ(manager.GetPermanentAt(0)->GetName(), "one") << "the snapshot is a separate copy";
  EXPECT_EQ(manager.GetPermanentAt(2), nullptr);
  EXPECT_EQ(manager.GetPermanentAt(-1), nullptr);

  // Revert: the working list becomes copies of the snapshot again.
  ASSERT_TRUE(manager.CopyPermanentToTemp());
  ASSERT_EQ(manager.GetSize(), 2);
  EXPECT_EQ(NameAt(manager, 0), "one");
  static_cast<CMethodRecord*>(manager.GetAt(1))->SetName("changed again");
  EXPECT_EQ(manager.GetPermanentAt(1)->GetName(), "two");

  // Commit: save, then snapshot the saved state.
  ASSERT_TRUE(manager.SaveAll());
  ASSERT_TRUE(manager.CopyTempToPermanent());
  EXPECT_EQ(manager.GetPermanentAt(1)->GetName(), "changed again");
  manager.Close();
  ASSERT_TRUE(manager.Open(path.c_str(), 0));
  EXPECT_EQ(NameAt(manager, 1), "changed again");
  EXPECT_EQ(manager.GetPermanentSize(), 2) << "the snapshot outlives Close";
}

}  // namespace
}  // namespace kvdao
