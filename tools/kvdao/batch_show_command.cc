// kvdao batch show: a generic batch file in readable form (its plates, its
// samples and the sample fields in use), optionally re-written in canonical
// form.

#include <iomanip>
#include <ostream>

#include "batch_command.h"

namespace kvdao::cli {
namespace {

// Whether a sample fills the field of AllFields entry `index`.
bool Fills(GenericSample& sample, int index) {
  const GenericSample::FieldInfo& entry = GenericSample::AllFields[static_cast<std::size_t>(index)];
  void* field = sample.FieldAddress(index);
  if (entry.maxCount > 0) {
    return entry.type == GenericSample::FieldInfo::Double
               ? static_cast<DoubleArray*>(field)->GetSize() > 0
               : static_cast<StringArray*>(field)->GetSize() > 0;
  }
  switch (entry.type) {
    case GenericSample::FieldInfo::Integer:
      return *static_cast<GenericSample::SampleType*>(field) != 0;
    case GenericSample::FieldInfo::Double:
      return *static_cast<double*>(field) != 0.0;
    default:
      return !static_cast<std::string*>(field)->empty();
  }
}

void ShowSamples(const GenericPlate& plate, int number, std::ostream& out) {
  int compounds = 0, wells = 0, total = 0;
  plate.NumberOfCompounds(compounds, wells, total);
  out << "plate " << number << ": " << (plate.PlateID().empty() ? "-" : plate.PlateID())
      << ", position " << (plate.PlatePosition().empty() ? "-" : plate.PlatePosition()) << ", "
      << plate.Rows() << " x " << plate.Columns() << ", " << wells << " wells, " << compounds
      << " compounds\n";
  for (const GenericSample& sample : plate.Samples()) {
    out << "  " << std::left << std::setw(10) << sample.GetSectionPrefix() << std::setw(8)
        << sample.Location() << std::setw(12) << sample.SampleID() << std::setw(24)
        << sample.Description() << sample.MSDataName() << "\n";
  }
}

}  // namespace

int RunBatchShow(CommandContext& context) {
  std::vector<std::string>& args = context.args;
  std::optional<std::string> rewrite = TakeOption(args, "--rewrite");
  if (int status = RejectExtraArguments(context, "batch show", 1); status != kExitOk) return status;
  if (args.empty()) {
    context.err << "kvdao batch show: give a FILE\n";
    return kExitUsage;
  }
  GenericBatch batch;
  if (!ReadBatchFile(context, args[0], batch)) return kExitFailure;

  int samples = 0;
  for (const GenericPlate& plate : batch.Plates()) samples += plate.NumSamples();
  context.out << "batch " << (batch.BatchID().empty() ? "-" : batch.BatchID()) << ", user "
              << (batch.UserName().empty() ? "-" : batch.UserName()) << ", " << batch.NumPlates()
              << " plates, " << samples << " samples\n";
  for (int p = 0; p < batch.NumPlates(); ++p) ShowSamples(batch.Plates()[p], p + 1, context.out);

  // How many samples fill each field (the second "LCMethod" entry repeats
  // the first and is left out).
  std::vector<int> users(GenericSample::FieldCount, 0);
  for (const GenericPlate& plate : batch.Plates()) {
    for (GenericSample sample : plate.Samples()) {
      for (int i = 0; i < GenericSample::FieldCount; ++i) users[i] += Fills(sample, i) ? 1 : 0;
    }
  }
  context.out << "fields in use:\n";
  for (int i = 0; i < GenericSample::FieldCount; ++i) {
    if (i == 29 || users[i] == 0) continue;
    context.out << "  " << std::left << std::setw(24) << GenericSample::AllFields[i].name
                << users[i] << "\n";
  }

  if (rewrite) {
    if (batch.Write(*rewrite, kBatchSeparator) == 0) {
      context.err << "kvdao batch show: cannot write " << *rewrite << "\n";
      return kExitFailure;
    }
    context.err << "kvdao batch show: wrote " << *rewrite << "\n";
  }
  return kExitOk;
}

}  // namespace kvdao::cli
