// Builds a three-row sample list and prints it: the smallest program that
// uses kvdao from outside its tree.

#include <kvdao/kvdao.h>

#include <cstdio>

namespace {

// A sample list kept in memory only.
class MemoryList : public kvdao::CSampleListMem {
 public:
  int Load(const char*) override { return 0; }
  int Save(const char* path) override { return PreSave(path); }
};

}  // namespace

int main() {
  MemoryList list;
  list.New();
  list.AddRecords(2);
  for (int row = 0; row < list.GetNumSamples(); ++row) {
    list.SetRow(row);
    list.SetMemberVar("FILE_NAME", "SMP_00" + std::to_string(row + 1));
    list.SetMemberVar("INJ_VOL", "5.0");
    list.SetMemberVar("Index", static_cast<double>(row));
  }
  std::printf("kvdao %s, rows: %d\n", KVDAO_VERSION_STRING, list.GetNumSamples());
  for (list.MoveFirst();; ) {
    std::printf("  %s  inj %s\n", list.GetMemberVar("FILE_NAME").c_str(),
                list.GetMemberVar("INJ_VOL").c_str());
    if (list.MoveNext() == 0) break;
  }
  return 0;
}
