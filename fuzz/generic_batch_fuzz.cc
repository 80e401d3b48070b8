// Fuzzes the generic batch file reader: any bytes as a batch file, read
// whole, written back in canonical form and read again, plus the single-key
// readers. A batch that read must write, and its canonical form must read.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "kvdao/genericbatch/generic_batch.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string pid = std::to_string(::getpid());
  static const std::string path = "/tmp/kvdao-fuzz-batch-" + pid + ".xbt";
  static const std::string copy = "/tmp/kvdao-fuzz-batch-" + pid + "-out.xbt";
  if (std::FILE* out = std::fopen(path.c_str(), "wb")) {
    std::fwrite(data, 1, size, out);
    std::fclose(out);
  }
  int n = 0;
  kvdao::GenericBatch::GetNumOfSamples(path.c_str(), n);
  std::string text;
  kvdao::GenericBatch::GetReportScheme(path.c_str(), text);
  if (text.size() > 1023) __builtin_trap();

  kvdao::GenericBatch batch;
  if (batch.Read(path, ":") == 1) {
    if (batch.Write(copy, ":") != 1) __builtin_trap();
    kvdao::GenericBatch again;
    again.SetSectionPrefix(batch.GetSectionPrefix());
    // Wells without a location are written without one and cannot be read
    // back; every other canonical file must read.
    bool located = true;
    for (const auto& plate : batch.Plates()) {
      for (const auto& sample : plate.Samples()) located = located && !sample.Location().empty();
    }
    if (again.Read(copy, ":") != 1 && located) __builtin_trap();
  }
  return 0;
}
