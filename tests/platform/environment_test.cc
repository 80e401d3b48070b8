#include "kvdao/platform/environment.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

#include "common/test_env.h"
#include "kvdao/platform/message.h"

namespace kvdao::platform {
namespace {

bool IsDirectory(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

class EnvironmentTest : public test::TempEnvTest {};

TEST_F(EnvironmentTest, FoldersComeFromTheEnvironmentAndAreCreated) {
  EXPECT_EQ(GetHomeDirectory(), root() + "/home");
  EXPECT_EQ(GetTempDirectory(), root() + "/tmp");
  EXPECT_EQ(GetProjectDirectory(), root() + "/project");
  EXPECT_TRUE(IsDirectory(root() + "/home"));
  EXPECT_TRUE(IsDirectory(root() + "/tmp"));
  EXPECT_TRUE(IsDirectory(root() + "/project"));

  ::setenv("KVDAO_HOME", (root() + "/deep/er/home/").c_str(), 1);
  EXPECT_EQ(GetHomeDirectory(), root() + "/deep/er/home");
  EXPECT_TRUE(IsDirectory(root() + "/deep/er/home"));
}

TEST_F(EnvironmentTest, DefaultsFollowTheHomeFolder) {
  ::unsetenv("KVDAO_PROJECT");
  EXPECT_EQ(GetProjectDirectory(), root() + "/home/project");

  ::unsetenv("KVDAO_HOME");
  ::setenv("XDG_DATA_HOME", (root() + "/xdg").c_str(), 1);
  EXPECT_EQ(GetHomeDirectory(), root() + "/xdg/kvdao");
  ::unsetenv("XDG_DATA_HOME");
  ::setenv("HOME", root().c_str(), 1);
  EXPECT_EQ(GetHomeDirectory(), root() + "/.local/share/kvdao");
}

TEST(MessageTest, HandlerReceivesMessagesAndCanBeRestored) {
  std::string seen;
  MessageHandler previous = SetMessageHandler(
      [&](const std::string& text, const std::string& caption, unsigned icon) {
        seen = caption + "|" + text + "|" + std::to_string(icon);
      });
  ShowMessage("Reason: Unknown", "Sample List", IconStop);
  EXPECT_EQ(seen, "Sample List|Reason: Unknown|16");

  MessageHandler mine = SetMessageHandler(previous);
  EXPECT_TRUE(static_cast<bool>(mine));
  ::testing::internal::CaptureStderr();
  ShowMessage("text", "caption", IconStop);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "caption: text\n");
}

}  // namespace
}  // namespace kvdao::platform
