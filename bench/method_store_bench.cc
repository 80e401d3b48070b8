// Method files: writes 10,000 method records through CMethodManager (one
// WriteFile, one commit) and reads them back (OpenFile + CreateArray), against
// two baselines run in the same process on the same disk:
//  - raw: fwrite of the same bytes to a plain file, then fread them back;
//  - durable raw: the same, with the syncs the store's commit makes (a small
//    journal file synced, its folder synced, the data synced), so that the
//    ratio shows the cost of the store itself rather than of durability.
// Each variant runs five times; the medians and their ratios are printed.
//
// Usage: method_store_bench [records] [folder] (defaults 10000, $TMPDIR or /tmp)

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "kvdao/method/method_manager.h"

namespace {

using Clock = std::chrono::steady_clock;

double Since(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void SyncFolder(const std::string& folder) {
  int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
  ::fsync(fd);
  ::close(fd);
}

// Writes the records' bytes with stdio and reads them back into records;
// with `durable`, makes the syncs that a store commit makes. Returns a check
// value from what was read.
long long RawRound(const std::vector<kvdao::CMethodRecord>& records, const std::string& folder, bool durable) {
  const std::string path = folder + "/raw.bin";
  if (durable) {
    std::FILE* journal = std::fopen((path + "-journal").c_str(), "wb");
    std::fwrite("journal header", 1, 100, journal);
    std::fflush(journal);
    ::fdatasync(::fileno(journal));
    std::fclose(journal);
    SyncFolder(folder);
  }
  std::FILE* out = std::fopen(path.c_str(), "wb");
  for (const auto& record : records) std::fwrite(record.GetData(), 1, kvdao::kMethodRecordSize, out);
  std::fflush(out);
  if (durable) ::fdatasync(::fileno(out));
  std::fclose(out);
  if (durable) ::unlink((path + "-journal").c_str());

  std::vector<kvdao::CMethodRecord> back(records.size());
  std::FILE* in = std::fopen(path.c_str(), "rb");
  for (auto& record : back) {
    if (std::fread(record.GetData(), 1, kvdao::kMethodRecordSize, in) != kvdao::kMethodRecordSize) return -1;
  }
  std::fclose(in);
  return back.back().GetRecord().IStd[0] + static_cast<long long>(back.size());
}

long long StoreRound(const std::vector<kvdao::CMethodRecord>& records, const std::string& path) {
  {
    kvdao::CMethodManager manager;
    if (!manager.OpenFile(path.c_str(), 0)) return -1;
    for (const auto& record : records) manager.AddEntry(new kvdao::CMethodRecord(record));
    if (!manager.WriteFile()) return -1;
  }
  kvdao::CMethodManager manager;
  if (!manager.Open(path.c_str(), 0) || manager.GetSize() != static_cast<int>(records.size())) return -1;
  auto* last = static_cast<kvdao::CMethodRecord*>(manager.GetAt(manager.GetSize() - 1));
  return last->GetRecord().IStd[0] + static_cast<long long>(manager.GetSize());
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc > 1 ? std::atoi(argv[1]) : 10000;
  const char* tmp = std::getenv("TMPDIR");
  std::string folder = argc > 2 ? argv[2] : std::string(tmp != nullptr ? tmp : "/tmp") + "/kvdao-store-bench-XXXXXX";
  if (argc <= 2 && ::mkdtemp(folder.data()) == nullptr) return 1;

  std::vector<kvdao::CMethodRecord> records(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    records[static_cast<std::size_t>(i)].SetName("Compound " + std::to_string(i));
    records[static_cast<std::size_t>(i)].SetIStd(0, i % 7);
    records[static_cast<std::size_t>(i)].SetPredRT(1.0f + 0.001f * static_cast<float>(i));
  }
  const std::string store = folder + "/method.db3";
  {
    // An empty method file to start from; creating it is not timed.
    kvdao::CMethodManager manager;
    if (!manager.OpenFile(store.c_str(), kvdao::CDB3File::modeCreate)) return 1;
  }

  std::vector<double> storeTimes, rawTimes, durableTimes;
  long long expected = RawRound(records, folder, false);
  for (int round = 0; round < 5; ++round) {
    auto start = Clock::now();
    if (StoreRound(records, store) != expected) {
      std::fprintf(stderr, "method store: records read back differ\n");
      return 1;
    }
    storeTimes.push_back(Since(start));
    start = Clock::now();
    RawRound(records, folder, false);
    rawTimes.push_back(Since(start));
    start = Clock::now();
    RawRound(records, folder, true);
    durableTimes.push_back(Since(start));
  }
  const double library = Median(storeTimes), raw = Median(rawTimes), durable = Median(durableTimes);
  std::printf("%d method records written and read back (%.1f MB), median of 5:\n", count,
              count * 3504.0 / 1e6);
  std::printf("  CMethodManager         %8.1f ms\n", library * 1e3);
  std::printf("  fwrite/fread           %8.1f ms   ratio %.2f\n", raw * 1e3, library / raw);
  std::printf("  fwrite/fread + syncs   %8.1f ms   ratio %.2f\n", durable * 1e3, library / durable);
  ::unlink(store.c_str());
  ::unlink((folder + "/raw.bin").c_str());
  if (argc <= 2) ::rmdir(folder.c_str());
  return 0;
}
