// kvdao batch submit: records every sample of a batch file in the status
// database beside a login area, as the open-access front end does.

#include <sqlite3.h>

#include <ostream>

#include "batch_command.h"

namespace kvdao::cli {

int RunBatchSubmit(CommandContext& context) {
  std::vector<std::string>& args = context.args;
  bool isQC = TakeFlag(args, "--qc");
  if (int status = RejectExtraArguments(context, "batch submit", 2); status != kExitOk) {
    return status;
  }
  if (args.size() != 2) {
    context.err << "kvdao batch submit: give a FILE and a LOGIN-PATH\n";
    return kExitUsage;
  }
  const std::string& file = args[0];
  const std::string& login = args[1];
  context.err << "reading " << file << "\n";
  GenericBatch batch;
  if (!ReadBatchFile(context, file, batch)) return kExitFailure;
  int samples = 0;
  for (const GenericPlate& plate : batch.Plates()) samples += plate.NumSamples();
  std::string database = GenericBatch::StatusDatabasePath(login);
  context.err << "submitting " << samples << " samples to " << database << "\n";
  if (batch.WriteZQStatus(login, isQC) == 0) {
    context.err << "kvdao batch submit: the status database refused the rows: "
                << GenericBatch::LastStatusError() << "\n";
    return kExitFailure;
  }
  if (GenericBatch::LastStatusResult() == SQLITE_CANTOPEN) {
    context.err << "kvdao batch submit: cannot open " << database << "; nothing recorded\n";
    return kExitFailure;
  }
  context.out << samples << " samples recorded in " << database << "\n";
  return kExitOk;
}

}  // namespace kvdao::cli
