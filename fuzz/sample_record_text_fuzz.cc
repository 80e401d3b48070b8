// Fuzzes the sample record's text-form reader: any bytes as the file, read
// as sample 1 and 2; whatever is read must write and read back unchanged.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "kvdao/samplelist/sample_record.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string pid = std::to_string(::getpid());
  static const std::string path = "/tmp/kvdao-fuzz-sample-" + pid + ".txt";
  static const std::string again = "/tmp/kvdao-fuzz-sample-again-" + pid + ".txt";
  if (std::FILE* out = std::fopen(path.c_str(), "wb")) {
    std::fwrite(data, 1, size, out);
    std::fclose(out);
  }
  for (int n : {1, 2}) {
    kvdao::CSampleRecord record;
    if (record.Read(path.c_str(), n) == 0) continue;
    if (record.Write(again.c_str()) == 0) continue;
    kvdao::CSampleRecord back;
    if (back.Read(again.c_str()) != 1) __builtin_trap();
    // Line breaks cannot survive a line; everything else must.
    kvdao::_tagINTERNAL_SAMPLES_DB_RECORD a, b;
    record.GetSample(&a);
    back.GetSample(&b);
    bool hasBreak = std::memchr(data, '\r', size) != nullptr;
    if (!hasBreak && std::memcmp(&a, &b, sizeof a) != 0) __builtin_trap();
  }
  return 0;
}
