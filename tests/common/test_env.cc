#include "common/test_env.h"

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace kvdao::test {

void TempEnvTest::SetUp() {
  std::string pattern =
      (std::filesystem::temp_directory_path() / "kvdao-test-XXXXXX").string();
  ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
  root_ = pattern;
  for (const char* name : {"KVDAO_HOME", "TMPDIR", "KVDAO_PROJECT", "XDG_DATA_HOME", "HOME"}) {
    const char* value = std::getenv(name);
    saved_.push_back({name, value != nullptr, value != nullptr ? value : ""});
  }
  ::setenv("KVDAO_HOME", (root_ + "/home").c_str(), 1);
  ::setenv("TMPDIR", (root_ + "/tmp").c_str(), 1);
  ::setenv("KVDAO_PROJECT", (root_ + "/project").c_str(), 1);
}

void TempEnvTest::TearDown() {
  for (const Saved& saved : saved_) {
    if (saved.present) {
      ::setenv(saved.name.c_str(), saved.value.c_str(), 1);
    } else {
      ::unsetenv(saved.name.c_str());
    }
  }
  std::error_code ignored;
  if (!root_.empty()) std::filesystem::remove_all(root_, ignored);
}

std::string TempEnvTest::PathTo(const std::string& name) const { return root_ + "/" + name; }

std::string FixturesDir() {
  const char* override = std::getenv("KVDAO_FIXTURES");
  std::string dir = override != nullptr ? std::string(override)
                                        : std::string(KVDAO_SHARED_DIR) + "/fixtures";
  std::error_code error;
  return std::filesystem::is_directory(dir, error) ? dir : std::string();
}

void WriteFile(const std::string& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary);
  out << content;
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream content;
  content << in.rdbuf();
  return content.str();
}

}  // namespace kvdao::test
