// Opens arbitrary bytes as a record store, with arbitrary bytes as its
// rollback journal, and reads every record, through the record-database
// calls and the ".SDB" record access. The first input byte picks the kind
// and whether there is a journal; when there is, the second and third bytes
// (big-endian) are the store's length and the journal takes the rest. Damage must end in a
// failure result; any crash, leak or out-of-bounds access is a finding.

#include <stdlib.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "kvdao/platform/access_db.h"
#include "kvdao/platform/record_database.h"

namespace {

const std::string& Folder() {
  static const std::string folder = [] {
    std::string pattern = "/tmp/kvdao-store-fuzz-XXXXXX";
    return std::string(::mkdtemp(pattern.data()) != nullptr ? pattern : "/tmp");
  }();
  return folder;
}

void Put(const std::string& path, const std::uint8_t* data, std::size_t size) {
  if (std::FILE* file = std::fopen(path.c_str(), "wb")) {
    if (size > 0) std::fwrite(data, 1, size, file);
    std::fclose(file);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kvdao::platform;
  if (size < 1) return 0;
  static const int kKinds[] = {kDB3KindMethod, kDB3KindSample, kDB3KindPeak, kDB3KindCalibration};
  const int kind = kKinds[data[0] & 3];
  const bool journal = (data[0] & 4) != 0;
  ++data;
  --size;
  const std::string path = Folder() + "/store";
  std::size_t storeSize = size;
  if (journal && size >= 2) {
    storeSize = std::min<std::size_t>(size - 2, std::size_t{data[0]} << 8 | data[1]);
    data += 2;
    size -= 2;
    Put(path + "-journal", data + storeSize, size - storeSize);
  } else {
    ::unlink((path + "-journal").c_str());
  }
  Put(path, data, storeSize);

  std::vector<std::uint8_t> record(static_cast<std::size_t>(DB3RecordSize(kind)));
  if (DB3Open(kind, path.c_str(), kDB3OpenExisting) == 0) {
    int count = DB3GetRecordsInDB(kind);
    for (int n = 1; n <= count && n <= 64; ++n) DB3HandleRecord(kind, n, record.data(), kDB3Read, 0);
    DB3Close(kind);
  }
  tagACCESSDB block{};
  if (AccessDBOpen(path.c_str(), kind, DB3RecordSize(kind), &block, 0) != 0) {
    for (int n = 1; n <= block.nNumRecords && n <= 64; ++n) AccessDBGetRecord(&block, n, record.data());
    AccessDBClose(&block, 0);
  }
  return 0;
}
