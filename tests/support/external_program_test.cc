#include "kvdao/support/external_program.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "common/test_env.h"

namespace kvdao {
namespace {

TEST(ExternalProgramTest, CommandLineIsSplitInLowerCaseAtTheFirstExe) {
  CExternalProgram program("C:\\Tools\\Proc.EXE -a X");
  EXPECT_EQ(program.GetProgram(), "c:\\tools\\proc.exe");
  EXPECT_EQ(program.GetArguments(), " -a x");
  EXPECT_EQ(program.GetDirectory(), "c:\\tools\\");

  EXPECT_EQ(program.SetProgram("C:\\A.EXE\\b.exe run.exe now"), 1);
  EXPECT_EQ(program.GetProgram(), "c:\\a.exe\\b.exe");
  EXPECT_EQ(program.GetArguments(), " run.exe now");

  // No ".exe " at all: no arguments, the whole line names the program.
  program.SetProgram("D:\\Bin\\Tool.exe");
  EXPECT_EQ(program.GetProgram(), "d:\\bin\\tool.exe");
  EXPECT_EQ(program.GetArguments(), "");
  program.SetProgram("D:\\Bin\\Tool");
  EXPECT_EQ(program.GetProgram(), "d:\\bin\\tool.exe");
  EXPECT_EQ(program.GetDirectory(), "d:\\bin\\");

  char cwd[4096];
  ASSERT_NE(::getcwd(cwd, sizeof cwd), nullptr);
  program.SetProgram("Tool -v");
  EXPECT_EQ(program.GetProgram(), std::string(cwd) + "/tool -v.exe");
  EXPECT_EQ(program.GetDirectory(), std::string(cwd) + "/");

  EXPECT_EQ(program.SetProgram(nullptr), 0);
  EXPECT_EQ(program.GetProgram(), "");
  EXPECT_EQ(program.GetDirectory(), "");
  EXPECT_EQ(program.SetProgram(""), 1);
  EXPECT_EQ(program.GetProgram(), "");
}

class ExternalProgramFileTest : public test::TempEnvTest {
 protected:
  CExternalProgram Load(const std::string& content) {
    test::WriteFile(PathTo("line.txt"), content);
    StdioFile file;
    EXPECT_TRUE(file.Open(PathTo("line.txt").c_str(), StdioFile::modeRead));
    Archive archive(file, Archive::load);
    CExternalProgram program("c:\\previous.exe x");
    program.Serialize(archive);
    return program;
  }
};

TEST_F(ExternalProgramFileTest, StoresOneLineAndLoadsItBack) {
  CExternalProgram program("C:\\Tools\\Proc.EXE -a X");
  StdioFile file;
  ASSERT_TRUE(file.Open(PathTo("p.txt").c_str(), StdioFile::modeCreate | StdioFile::modeWrite));
  Archive store(file, Archive::store);
  program.Serialize(store);
  file.Close();
  EXPECT_EQ(test::ReadFile(PathTo("p.txt")), "1000,c:\\tools\\proc.exe, -a x,c:\\tools\\\r\n");

  CExternalProgram loaded = Load(test::ReadFile(PathTo("p.txt")));
  EXPECT_EQ(loaded.GetProgram(), program.GetProgram());
  EXPECT_EQ(loaded.GetArguments(), program.GetArguments());
  EXPECT_EQ(loaded.GetDirectory(), program.GetDirectory());
}

TEST_F(ExternalProgramFileTest, ShortLinesLeaveMembersEmptyAndCommasSplit) {
  CExternalProgram shortLine = Load("1000,c:\\p.exe\n");
  EXPECT_EQ(shortLine.GetProgram(), "c:\\p.exe");
  EXPECT_EQ(shortLine.GetArguments(), "");
  EXPECT_EQ(shortLine.GetDirectory(), "");

  CExternalProgram comma = Load("1000,c:\\p.exe, -a 1,2,c:\\\r\n");
  EXPECT_EQ(comma.GetArguments(), " -a 1");
  EXPECT_EQ(comma.GetDirectory(), "2");

  // Nothing to read: the object is left as it was.
  CExternalProgram empty = Load("");
  EXPECT_EQ(empty.GetProgram(), "c:\\previous.exe");
  EXPECT_EQ(empty.GetArguments(), " x");
}

}  // namespace
}  // namespace kvdao
