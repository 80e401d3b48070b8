// Fuzzes the initialisation-file reader and writer: any bytes as a file,
// looked up by section and key names taken from the input, then one key
// written back.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "kvdao/platform/profile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string path = "/tmp/kvdao-fuzz-profile-" + std::to_string(::getpid()) + ".ini";
  std::string text(reinterpret_cast<const char*>(data), size);
  if (std::FILE* out = std::fopen(path.c_str(), "wb")) {
    std::fwrite(text.data(), 1, text.size(), out);
    std::fclose(out);
  }
  // Names from the first line, so that the fuzzer can find real sections.
  std::string first = text.substr(0, text.find('\n'));
  // The names as the C strings the functions receive.
  std::string section = first.substr(0, first.size() / 2).c_str();
  std::string key = first.substr(first.size() / 2).c_str();

  std::string value = kvdao::platform::GetPrivateProfileString(section.c_str(), key.c_str(),
                                                               "default", 64, path);
  if (value.size() > 63) __builtin_trap();
  kvdao::platform::GetPrivateProfileInt(section.c_str(), key.c_str(), 0, path);
  kvdao::platform::GetPrivateProfileKeys(section.c_str(), path);
  if (kvdao::platform::WritePrivateProfileString(section.c_str(), key.c_str(), "v", path)) {
    // Whatever the file held, the key written reads back, unless its names
    // hold characters that a profile line cannot carry.
    bool plain = section.find_first_of("[]\r\n") == std::string::npos &&
                 key.find_first_of("=[;\r\n") == std::string::npos &&
                 section.find_first_not_of(" \t\v\f") != std::string::npos &&
                 key.find_first_not_of(" \t\v\f") != std::string::npos;
    if (plain && kvdao::platform::GetPrivateProfileString(section.c_str(), key.c_str(), "",
                                                          path) != "v") {
      __builtin_trap();
    }
  }
  return 0;
}
