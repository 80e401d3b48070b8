#pragma once

// Test helpers shared by every test program.

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kvdao::test {

// A fresh temporary folder for one test, with KVDAO_HOME, TMPDIR and
// KVDAO_PROJECT pointed into it; those (and HOME, XDG_DATA_HOME) are restored
// and the folder removed when the test ends.
class TempEnvTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // A path inside the test's folder.
  std::string PathTo(const std::string& name) const;
  const std::string& root() const { return root_; }

 private:
  std::string root_;
  struct Saved {
    std::string name;
    bool present;
    std::string value;
  };
  std::vector<Saved> saved_;
};

// The shared fixtures folder (…/shared/fixtures), or empty when it is not
// beside the checkout. Tests that need it call GTEST_SKIP when it is empty.
std::string FixturesDir();

// Writes and reads whole files.
void WriteFile(const std::string& path, const std::string& content);
std::string ReadFile(const std::string& path);

}  // namespace kvdao::test
