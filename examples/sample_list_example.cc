// A tour of the in-memory sample list: build a small run of injections,
// fill typed cells by column name, attach a processing program, copy the
// list and compare it row by row.

#include <kvdao/kvdao.h>

#include <cstdio>
#include <string>

namespace {

class MemoryList : public kvdao::CSampleListMem {
 public:
  int Load(const char*) override { return 0; }
  int Save(const char* path) override { return PreSave(path); }
};

}  // namespace

int main() {
  MemoryList list;
  list.New();
  list.AddRecords(3);

  const char* types[] = {"Blank", "Standard", "Standard", "Analyte"};
  for (int row = 0; row < list.GetNumSamples(); ++row) {
    list.SetRow(row);
    list.SetMemberVar("VERSION", kvdao::CSampleList::m_fVersion);
    list.SetMemberVar("FILE_NAME", "RUN_" + std::to_string(row + 1));
    list.SetMemberVar("TYPE", types[row]);
    list.SetMemberVar("MASS_A", "301.2");               // masses are text
    list.SetMemberVar("WAVELENGTH_A", "254.5nm");        // parsed as 254.5
    list.SetMemberVar("CONC_A", row == 0 ? "" : std::to_string(10 * row));
    list.SetMemberVar("Index", static_cast<double>(row));
  }
  list.SetExternalProgram(kvdao::CExternalProgram("C:\\Korvalis\\Quantify.EXE /batch"), 0);

  std::printf("%-8s %-9s %-7s %-12s %s\n", "FILE", "TYPE", "MASS_A", "WAVELENGTH_A", "CONC_A");
  list.MoveFirst();
  do {
    std::printf("%-8s %-9s %-7s %-12s %s\n", list.GetMemberVar("FILE_NAME").c_str(),
                list.GetMemberVar("TYPE").c_str(), list.GetMemberVar("MASS_A").c_str(),
                list.GetMemberVar("WAVELENGTH_A").c_str(), list.GetMemberVar("CONC_A").c_str());
  } while (list.MoveNext() != 0);

  kvdao::CExternalProgram program;
  list.GetExternalProgram(program, 0);
  std::printf("\nprocessing program: %s\n  arguments:%s\n  folder: %s\n",
              program.GetProgram().c_str(), program.GetArguments().c_str(),
              program.GetDirectory().c_str());

  MemoryList copy;
  copy = list;
  copy.SetRow(3);
  copy.SetMemberVar("CONC_A", "35");
  int same = 0;
  for (int row = 0; row < list.GetNumSamples(); ++row) same += list[row] == copy[row] ? 1 : 0;
  std::printf("copy: %d rows, %d identical to the original, modified: %s\n",
              copy.GetNumSamples(), same, copy.IsDirty() != 0 ? "yes" : "no");

  list.Save(nullptr);
  std::printf("an untitled list saves to %s\n", list.GetSaveName().c_str());
  return 0;
}
