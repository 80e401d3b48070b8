// Sample-list row storage: builds a 100,000-row list, sets every cell of a
// few columns, copies the list, and compares with a baseline that keeps each
// of a row's 160 cells in its own heap allocation (a text cell's string
// being one more), as a straightforward port would. Prints both times, their
// ratio, and the heap bytes per row that each form holds.
//
// Usage: sample_list_bench [rows] (default 100000)

#include <malloc.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "kvdao/samplelist/sample_list_mem.h"

namespace {

using Clock = std::chrono::steady_clock;

class MemoryList : public kvdao::CSampleListMem {
 public:
  int Load(const char*) override { return 0; }
  int Save(const char*) override { return 0; }
};

// The columns filled in every row: a few texts and doubles, as a typical
// list has (file name, method, mass, concentration, injection volume, index).
constexpr int kTextColumns[] = {1, 3, 57, 27};
constexpr int kDoubleColumns[] = {47, 99, 159};

std::string TextFor(int column, int row) {
  return "C" + std::to_string(column) + "_" + std::to_string(row);
}

// --- baseline: one heap cell per column ---
struct BaselineCell {
  std::uint16_t vt = kvdao::VT_EMPTY;
  double number = 0.0;
  std::unique_ptr<std::string> text;
  BaselineCell() = default;
  BaselineCell(const BaselineCell& other) : vt(other.vt), number(other.number) {
    if (other.text) text = std::make_unique<std::string>(*other.text);
  }
};

struct BaselineRow {
  std::vector<std::unique_ptr<BaselineCell>> cells;
  BaselineRow() {
    cells.reserve(kvdao::kSampleColumnCount);
    for (int i = 0; i < kvdao::kSampleColumnCount; ++i) {
      auto cell = std::make_unique<BaselineCell>();
      if (kvdao::kSampleColumns[i].type == kvdao::dbDouble) {
        cell->vt = kvdao::VT_R8;
      } else {
        cell->vt = kvdao::VT_BSTR;
        cell->text = std::make_unique<std::string>();
      }
      cells.push_back(std::move(cell));
    }
  }
  BaselineRow(const BaselineRow& other) {
    cells.reserve(other.cells.size());
    for (const auto& cell : other.cells) cells.push_back(std::make_unique<BaselineCell>(*cell));
  }
};

std::size_t HeapInUse() { return mallinfo2().uordblks; }

struct Result {
  double seconds;
  double bytesPerRow;
  std::size_t check;
};

Result RunLibrary(int rows) {
  std::size_t before = HeapInUse();
  auto start = Clock::now();
  auto list = std::make_unique<MemoryList>();
  list->New();
  list->AddRecords(rows - 1);
  for (int row = 0; row < rows; ++row) {
    list->SetRow(row);
    for (int column : kTextColumns) list->SetMemberVar(column, TextFor(column, row));
    for (int column : kDoubleColumns) list->SetMemberVar(column, row * 0.5);
  }
  std::size_t held = HeapInUse() - before;
  auto copy = std::make_unique<MemoryList>();
  *copy = *list;
  double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  std::size_t check = copy->GetNumSamples() + (*copy)[rows - 1][1].text().size();
  return {seconds, static_cast<double>(held) / rows, check};
}

Result RunBaseline(int rows) {
  std::size_t before = HeapInUse();
  auto start = Clock::now();
  std::vector<std::unique_ptr<BaselineRow>> list;
  list.push_back(std::make_unique<BaselineRow>());
  for (int row = 1; row < rows; ++row) list.push_back(std::make_unique<BaselineRow>());
  for (int row = 0; row < rows; ++row) {
    for (int column : kTextColumns) {
      list[row]->cells[column]->text = std::make_unique<std::string>(TextFor(column, row));
    }
    for (int column : kDoubleColumns) list[row]->cells[column]->number = row * 0.5;
  }
  std::size_t held = HeapInUse() - before;
  std::vector<std::unique_ptr<BaselineRow>> copy;
  for (const auto& row : list) copy.push_back(std::make_unique<BaselineRow>(*row));
  double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  std::size_t check = copy.size() + copy.back()->cells[1]->text->size();
  return {seconds, static_cast<double>(held) / rows, check};
}

}  // namespace

int main(int argc, char** argv) {
  int rows = argc > 1 ? std::atoi(argv[1]) : 100000;
  if (rows < 1) rows = 1;
  // Best of three runs each, alternating, so that neither side profits from
  // a warmer heap.
  Result library{1e9, 0, 0}, baseline{1e9, 0, 0};
  for (int round = 0; round < 3; ++round) {
    Result b = RunBaseline(rows);
    if (b.seconds < baseline.seconds) baseline = b;
    malloc_trim(0);
    Result l = RunLibrary(rows);
    if (l.seconds < library.seconds) library = l;
    malloc_trim(0);
  }
  if (library.check != baseline.check) {
    std::fprintf(stderr, "the two forms disagree\n");
    return 1;
  }
  std::printf("sample list, %d rows: build, fill 7 columns, copy\n", rows);
  std::printf("  baseline (160 heap cells a row): %8.3f s  %8.0f heap bytes/row\n",
              baseline.seconds, baseline.bytesPerRow);
  std::printf("  kvdao (cells inside the row):    %8.3f s  %8.0f heap bytes/row\n",
              library.seconds, library.bytesPerRow);
  std::printf("  time ratio baseline/kvdao: %.2fx faster; memory ratio: %.2fx smaller\n",
              baseline.seconds / library.seconds, baseline.bytesPerRow / library.bytesPerRow);
  return 0;
}
