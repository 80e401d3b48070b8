// Fuzzes the external-program command-line split and its line form: any
// bytes as a command line, and any bytes as a stored line to load.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "kvdao/platform/archive.h"
#include "kvdao/support/external_program.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text(reinterpret_cast<const char*>(data), size);

  kvdao::CExternalProgram program;
  program.SetProgram(text.c_str());

  static const std::string path = "/tmp/kvdao-fuzz-program-" + std::to_string(::getpid());
  if (std::FILE* out = std::fopen(path.c_str(), "wb")) {
    std::fwrite(data, 1, size, out);
    std::fclose(out);
  }
  kvdao::StdioFile file;
  if (file.Open(path.c_str(), kvdao::StdioFile::modeRead)) {
    kvdao::Archive archive(file, kvdao::Archive::load);
    kvdao::CExternalProgram loaded;
    loaded.Serialize(archive);
    // What was loaded stores again without trouble.
    std::string line = loaded.GetProgram() + loaded.GetArguments() + loaded.GetDirectory();
    if (line.size() > size) __builtin_trap();
  }
  return 0;
}
