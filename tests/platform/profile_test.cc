#include "kvdao/platform/profile.h"

#include <gtest/gtest.h>

#include "common/test_env.h"

namespace kvdao::platform {
namespace {

class ProfileTest : public test::TempEnvTest {
 protected:
  std::string Ini(const std::string& content) {
    std::string path = PathTo("file" + std::to_string(++count_) + ".ini");
    test::WriteFile(path, content);
    return path;
  }
  int count_ = 0;
};

TEST_F(ProfileTest, LookupsIgnoreCaseTrimBlanksAndTakeTheFirstMatch) {
  std::string path = Ini(
      "[Plate 1]\r\n"
      "  Sample Count = 96  \r\n"
      "Name=\"  quoted  \"\r\n"
      "Single='x'\r\n"
      "Half=\"open\r\n"
      "Name=second\r\n"
      "[PLATE 1]\r\n"
      "Other=hidden\r\n"
      "[\xc9tude]\n"
      "Cl\xc9=accent\n"
      "Empty=\n");
  EXPECT_EQ(GetPrivateProfileString("plate 1", "SAMPLE COUNT", "", path), "96");
  EXPECT_EQ(GetPrivateProfileString("Plate 1", "name", "", path), "  quoted  ");
  EXPECT_EQ(GetPrivateProfileString("Plate 1", "Single", "", path), "x");
  EXPECT_EQ(GetPrivateProfileString("Plate 1", "Half", "", path), "\"open");
  EXPECT_EQ(GetPrivateProfileString("Plate 1", "Other", "none", path), "none");
  EXPECT_EQ(GetPrivateProfileString("\xe9tude", "cl\xe9", "", path), "accent");
  EXPECT_EQ(GetPrivateProfileString("\xc9tude", "Empty", "default", path), "");
  EXPECT_EQ(GetPrivateProfileString("Missing", "Name", "default", path), "default");
  EXPECT_EQ(GetPrivateProfileString("Plate 1", "Missing", nullptr, path), "");
  EXPECT_EQ(GetPrivateProfileString("Plate 1", "Name", "d", PathTo("absent.ini")), "d");
  EXPECT_EQ(GetPrivateProfileKeys("PLATE 1", path),
            (std::vector<std::string>{"Sample Count", "Name", "Single", "Half"}));
  EXPECT_EQ(GetPrivateProfileSectionNames(path),
            (std::vector<std::string>{"Plate 1", "\xc9tude"}));
  EXPECT_EQ(GetPrivateProfileSectionCount(path), 2u);
  EXPECT_TRUE(GetPrivateProfileSectionNames(PathTo("absent.ini")).empty());
}

TEST_F(ProfileTest, BufferSizesCutValuesAsAWindowsBufferWould) {
  std::string path = Ini("[S]\nLong=" + std::string(2000, 'v') + "\n");
  EXPECT_EQ(GetPrivateProfileString("S", "Long", "", 1024, path).size(), 1023u);
  EXPECT_EQ(GetPrivateProfileString("S", "Long", "", path).size(), 2000u);
  EXPECT_EQ(GetPrivateProfileString("S", "Missing", "abcdef", 4, path), "abc");
}

TEST_F(ProfileTest, IntegersParseTheLeadingNumber) {
  std::string path = Ini("[N]\nA=42abc\nB=abc\nC=-7\nD=0x1F\nE= +12 \nF=4294967297\nG=\n");
  EXPECT_EQ(GetPrivateProfileInt("N", "A", 5, path), 42);
  EXPECT_EQ(GetPrivateProfileInt("N", "B", 5, path), 0);
  EXPECT_EQ(GetPrivateProfileInt("N", "C", 5, path), -7);
  EXPECT_EQ(GetPrivateProfileInt("N", "D", 5, path), 31);
  EXPECT_EQ(GetPrivateProfileInt("N", "E", 5, path), 12);
  EXPECT_EQ(GetPrivateProfileInt("N", "F", 5, path), 1);
  EXPECT_EQ(GetPrivateProfileInt("N", "G", 5, path), 0);
  EXPECT_EQ(GetPrivateProfileInt("N", "Missing", 5, path), 5);
}

TEST_F(ProfileTest, ChangesOnDiskAreNoticed) {
  std::string path = Ini("[S]\nKey=old\n");
  EXPECT_EQ(GetPrivateProfileString("S", "Key", "", path), "old");
  test::WriteFile(path, "[S]\nKey=newer value\n");
  EXPECT_EQ(GetPrivateProfileString("S", "Key", "", path), "newer value");
  ASSERT_TRUE(WritePrivateProfileString("S", "Key", "written", path));
  EXPECT_EQ(GetPrivateProfileString("S", "Key", "", path), "written");
  ASSERT_EQ(std::remove(path.c_str()), 0);
  EXPECT_EQ(GetPrivateProfileString("S", "Key", "gone", path), "gone");
}

TEST_F(ProfileTest, ASnapshotHoldsTheFileUntilItEndsButSeesItsOwnWrites) {
  std::string path = Ini("[S]\nKey=old\n");
  {
    ProfileSnapshot outer(path);
    test::WriteFile(path, "[S]\nKey=changed on disk, longer\n");
    EXPECT_EQ(GetPrivateProfileString("S", "Key", "", path), "old");
    {
      ProfileSnapshot inner(path);
      ASSERT_TRUE(WritePrivateProfileString("S", "Other", "mine", path));
      EXPECT_EQ(GetPrivateProfileString("S", "Other", "", path), "mine");
      // The write went to the file as it is on disk now.
      EXPECT_EQ(GetPrivateProfileString("S", "Key", "", path), "changed on disk, longer");
    }
    EXPECT_EQ(GetPrivateProfileString("S", "Other", "", path), "mine");
  }
  test::WriteFile(path, "[S]\nKey=after\n");
  EXPECT_EQ(GetPrivateProfileString("S", "Key", "", path), "after");
}

TEST_F(ProfileTest, WritingChangesOneKeyAndLeavesOtherLinesAlone) {
  std::string path = Ini(
      "; batch file\r\n"
      "[Batch]\r\n"
      "Name = first \r\n"
      "Plates=2\r\n"
      "\r\n"
      "[Plate1]\r\n"
      "Wells=96");
  ASSERT_TRUE(WritePrivateProfileString("BATCH", "name", "renamed", path));
  ASSERT_TRUE(WritePrivateProfileString("Batch", "Owner", "lab", path));
  ASSERT_TRUE(WritePrivateProfileString("Plate1", "Type", "deep", path));
  ASSERT_TRUE(WritePrivateProfileString("Plate2", "Wells", "384", path));
  EXPECT_EQ(test::ReadFile(path),
            "; batch file\r\n"
            "[Batch]\r\n"
            "name=renamed\r\n"
            "Plates=2\r\n"
            "Owner=lab\n"
            "\r\n"
            "[Plate1]\r\n"
            "Wells=96\n"
            "Type=deep\n"
            "[Plate2]\n"
            "Wells=384\n");

  ASSERT_TRUE(WritePrivateProfileString("Batch", "Plates", nullptr, path));
  ASSERT_TRUE(WritePrivateProfileString("Plate1", nullptr, nullptr, path));
  EXPECT_EQ(test::ReadFile(path),
            "; batch file\r\n"
            "[Batch]\r\n"
            "name=renamed\r\n"
            "Owner=lab\n"
            "\r\n"
            "[Plate2]\n"
            "Wells=384\n");
}

TEST_F(ProfileTest, WritingCreatesTheFileButNotItsFolder) {
  std::string path = PathTo("new.ini");
  ASSERT_TRUE(WritePrivateProfileString("GlobalEntry", "LogSamples", "1", path));
  EXPECT_EQ(test::ReadFile(path), "[GlobalEntry]\nLogSamples=1\n");
  EXPECT_EQ(GetPrivateProfileInt("globalentry", "logsamples", 0, path), 1);
  EXPECT_FALSE(WritePrivateProfileString("S", "K", "V", PathTo("no/such/folder/x.ini")));
  EXPECT_FALSE(WritePrivateProfileString(nullptr, "K", "V", path));
}

}  // namespace
}  // namespace kvdao::platform
