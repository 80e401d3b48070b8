// kvdao method: raw ↔ XML conversion driven in-process.

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "cli.h"
#include "kvdao/method/method_record.h"

namespace kvdao::cli {
int RunMethodCommand(CommandContext& context);
namespace {

class MethodCommandTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = std::filesystem::temp_directory_path() /
           ("kvdao-method-cli-" + std::to_string(::getpid()) + "-" +
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(dir_);
  }
  void TearDown() override { std::filesystem::remove_all(dir_); }

  std::string Path(const char* name) const { return (dir_ / name).string(); }
  int Run(std::vector<std::string> args) {
    out.str("");
    err.str("");
    CommandContext context{std::move(args), out, err};
    return RunMethodCommand(context);
  }
  static void Write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
  }
  static std::string Read(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }

  std::ostringstream out;
  std::ostringstream err;

 private:
  std::filesystem::path dir_;
};

TEST_F(MethodCommandTest, RawToXmlAndBackKeepsTheRecords) {
  CMethodRecord first;
  first.SetName(std::string("Atrazine"));
  first.SetMassIntData("216,100");
  CMethodRecord second;
  second.SetName(std::string("Simazine"));
  second.SetLocateRTWin(0.5f);
  // The text form gives a peak mode other than 5 back as -1.
  first.SetPkMode(5);
  second.SetPkMode(5);
  std::string raw(reinterpret_cast<const char*>(first.GetData()), 3504);
  raw.append(reinterpret_cast<const char*>(second.GetData()), 3504);
  Write(Path("in.raw"), raw);

  ASSERT_EQ(Run({"to-xml", Path("in.raw"), Path("method.xml")}), kExitOk) << err.str();
  ASSERT_EQ(Run({"from-xml", Path("method.xml"), Path("out.raw")}), kExitOk) << err.str();
  EXPECT_TRUE(Read(Path("out.raw")) == raw);

  ASSERT_EQ(Run({"to-xml", Path("in.raw")}), kExitOk);
  EXPECT_EQ(out.str(), Read(Path("method.xml")));
  EXPECT_NE(out.str().find("value=\"Simazine\""), std::string::npos);
}

TEST_F(MethodCommandTest, ASingleRecordElementIsAccepted) {
  Write(Path("one.xml"), "<METHODRECORD><PARAMETER id=\"1\" value=\"Solo\"/></METHODRECORD>");
  ASSERT_EQ(Run({"from-xml", Path("one.xml"), Path("one.raw")}), kExitOk) << err.str();
  std::string raw = Read(Path("one.raw"));
  ASSERT_EQ(raw.size(), 3504u);
  CMethodRecord record;
  std::memcpy(record.GetData(), raw.data(), raw.size());
  EXPECT_EQ(record.GetName(), "Solo");
  EXPECT_EQ(record.GetCalCompound(), "New Compound");  // default kept
}

TEST_F(MethodCommandTest, RejectsBadFilesAndArguments) {
  Write(Path("short.raw"), std::string(3503, '\0'));
  EXPECT_EQ(Run({"to-xml", Path("short.raw")}), kExitFailure);
  EXPECT_NE(err.str().find("3503 bytes"), std::string::npos);
  EXPECT_EQ(Run({"to-xml", Path("absent.raw")}), kExitFailure);

  Write(Path("broken.xml"), "<METHOD><METHODRECORD>");
  EXPECT_EQ(Run({"from-xml", Path("broken.xml"), Path("x.raw")}), kExitFailure);
  Write(Path("empty.xml"), "<METHOD/>");
  EXPECT_EQ(Run({"from-xml", Path("empty.xml"), Path("x.raw")}), kExitFailure);
  EXPECT_FALSE(std::filesystem::exists(Path("x.raw")));

  EXPECT_EQ(Run({}), kExitUsage);
  EXPECT_EQ(Run({"convert"}), kExitUsage);
  EXPECT_EQ(Run({"from-xml", Path("empty.xml")}), kExitUsage);
  EXPECT_EQ(Run({"to-xml", "--pretty", Path("short.raw")}), kExitUsage);
}

}  // namespace
}  // namespace kvdao::cli
