// Bulk index building: 100,000 rows of a Long column (values in scrambled
// order) become index entries, are sorted, and are written as a Jet 4 index
// tree into memory pages. The baseline, measured in the same run, is the
// sort of the same entries alone, which any bulk build has to pay. Prints
// the best of several runs of each step and the ratio of building (key
// encoding plus tree writing) to sorting.
//
// Usage: jet_index_bench [rows] (default 100000)

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <vector>

#include "format.h"
#include "index_builder.h"
#include "index_key.h"
#include "page_writer.h"

namespace {

using Clock = std::chrono::steady_clock;
using namespace kvdao::jet::internal;

class MemoryPages : public PageWriter {
 public:
  std::uint32_t PageSize() const noexcept override { return 4096; }
  std::uint32_t AllocatePage(std::uint32_t) override {
    pages_.emplace_back(4096, std::uint8_t{0});
    return static_cast<std::uint32_t>(pages_.size());
  }
  void FreePage(std::uint32_t, std::uint32_t) override {}
  std::span<std::uint8_t> MutablePage(std::uint32_t page) override { return pages_[page - 1]; }
  std::span<const std::uint8_t> Page(std::uint32_t page) const override { return pages_[page - 1]; }
  std::size_t count() const noexcept { return pages_.size(); }

 private:
  std::vector<std::vector<std::uint8_t>> pages_;
};

template <typename F>
double BestSeconds(int runs, F&& step) {
  double best = 1e30;
  for (int i = 0; i < runs; ++i) {
    auto start = Clock::now();
    step();
    best = std::min(best, std::chrono::duration<double>(Clock::now() - start).count());
  }
  return best;
}

}  // namespace

int main(int argc, char** argv) {
  const int rows = argc > 1 ? std::atoi(argv[1]) : 100000;
  const int runs = 5;
  const IndexKeyColumn column{kvdao::jet::format::kLong, true};

  std::vector<kvdao::Variant> values;
  for (int i = 0; i < rows; ++i) values.emplace_back(static_cast<int>((i * 2654435761u) % 1000003u) - 500000);

  std::vector<IndexEntry> unsorted;
  double encode = BestSeconds(runs, [&] {
    unsorted.clear();
    unsorted.reserve(static_cast<std::size_t>(rows));
    for (int i = 0; i < rows; ++i) {
      IndexEntry entry{{}, static_cast<std::uint32_t>(100 + i / 60), static_cast<std::uint8_t>(i % 60)};
      EncodeIndexKey(std::span(&column, 1), std::span(&values[static_cast<std::size_t>(i)], 1), entry.key);
      unsorted.push_back(std::move(entry));
    }
  });

  std::vector<IndexEntry> sorted;
  double sort = 1e30;
  for (int i = 0; i < runs; ++i) {
    sorted = unsorted;  // the copy is not part of the baseline
    auto start = Clock::now();
    std::sort(sorted.begin(), sorted.end(), IndexEntryLess);
    sort = std::min(sort, std::chrono::duration<double>(Clock::now() - start).count());
  }

  std::size_t pages_written = 0;
  double build = BestSeconds(runs, [&] {
    MemoryPages pages;
    BuildIndexTree(pages, 2, sorted);
    pages_written = pages.count();
  });

  std::printf("jet index build, %d Long keys (best of %d runs)\n", rows, runs);
  std::printf("  baseline: sort entries      %8.2f ms\n", sort * 1e3);
  std::printf("  encode keys                 %8.2f ms\n", encode * 1e3);
  std::printf("  write tree (%zu pages)      %8.2f ms\n", pages_written, build * 1e3);
  std::printf("  ratio (encode + write) / sort: %.2f\n", (encode + build) / sort);
  std::printf("  ratio write / sort:            %.2f\n", build / sort);
  return 0;
}
