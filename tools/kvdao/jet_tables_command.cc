// kvdao jet tables FILE [--system]: the tables of a database, one per line.

#include <ostream>

#include "jet_command.h"

namespace kvdao::cli {

int RunJetTables(CommandContext& context) {
  bool system = TakeFlag(context.args, "--system");
  if (int status = RejectExtraArguments(context, "jet tables", 1); status != kExitOk) return status;
  if (context.args.empty()) {
    context.err << "kvdao jet tables: missing database file\n";
    return kExitUsage;
  }
  jet::Database database;
  if (!OpenJetDatabase(context, context.args[0], database)) return kExitFailure;
  for (const std::string& name : database.GetTableNames(system)) context.out << Cp1252ToUtf8(name) << "\n";
  return kExitOk;
}

}  // namespace kvdao::cli
